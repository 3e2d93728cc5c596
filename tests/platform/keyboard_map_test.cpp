#include "desktop/input_map.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using platform::KeyboardMap;
using platform::KeyMessage;
using platform::namedKey;

constexpr std::int32_t kCyrillicYa = 0x44F;
constexpr std::int32_t kEAcute = 0xE9;

TEST(KeyboardMap, MakesWindowsMessagesOfPlacesLayoutsAndModifiers) {
    struct Row {
        const char* what;
        SDL_Scancode place;
        std::int32_t symbol;
        unsigned modifiers;
        UINT message, virtualKey;
    };
    for (const auto& row : {
             Row{"a letter", SDL_SCANCODE_Z, 'z', KMOD_NONE, WM_KEYDOWN, 'Z'},
             Row{"a letter where the layout has it", SDL_SCANCODE_Y, 'z', KMOD_NONE, WM_KEYDOWN, 'Z'},
             Row{"a Cyrillic layout: the place", SDL_SCANCODE_Z, kCyrillicYa, KMOD_NONE, WM_KEYDOWN, 'Z'},
             Row{"a letter on a punctuation key", SDL_SCANCODE_SEMICOLON, 'm', KMOD_NONE, WM_KEYDOWN, 'M'},
             Row{"punctuation on a letter's key", SDL_SCANCODE_M, ',', KMOD_NONE, WM_KEYDOWN, 0xBC},
             Row{"a digit", SDL_SCANCODE_7, '7', KMOD_NONE, WM_KEYDOWN, '7'},
             Row{"zero ends the row", SDL_SCANCODE_0, '0', KMOD_NONE, WM_KEYDOWN, '0'},
             Row{"a digit that needs Shift there", SDL_SCANCODE_2, kEAcute, KMOD_NONE, WM_KEYDOWN, '2'},
             Row{"a sign in the digits' row", SDL_SCANCODE_6, '-', KMOD_NONE, WM_KEYDOWN, '6'},
             Row{"an arrow", SDL_SCANCODE_LEFT, SDLK_LEFT, KMOD_NONE, WM_KEYDOWN, VK_LEFT},
             Row{"Space", SDL_SCANCODE_SPACE, ' ', KMOD_NONE, WM_KEYDOWN, VK_SPACE},
             Row{"Enter", SDL_SCANCODE_RETURN, '\r', KMOD_NONE, WM_KEYDOWN, VK_RETURN},
             Row{"the pad's Enter", SDL_SCANCODE_KP_ENTER, SDLK_KP_ENTER, KMOD_NUM, WM_KEYDOWN, VK_RETURN},
             Row{"the pad's arrow", SDL_SCANCODE_KP_4, SDLK_KP_4, KMOD_NONE, WM_KEYDOWN, VK_LEFT},
             Row{"the pad's middle", SDL_SCANCODE_KP_5, SDLK_KP_5, KMOD_NONE, WM_KEYDOWN, 0x0C},
             Row{"the pad's digit", SDL_SCANCODE_KP_4, SDLK_KP_4, KMOD_NUM, WM_KEYDOWN, 0x64},
             Row{"Shift turns Num Lock round", SDL_SCANCODE_KP_4, SDLK_KP_4, KMOD_NUM | KMOD_LSHIFT, WM_KEYDOWN,
                 VK_LEFT},
             Row{"right Shift", SDL_SCANCODE_RSHIFT, SDLK_RSHIFT, KMOD_RSHIFT, WM_KEYDOWN, 0x10},
             Row{"right Ctrl", SDL_SCANCODE_RCTRL, SDLK_RCTRL, KMOD_RCTRL, WM_KEYDOWN, 0x11},
             Row{"Ctrl+Break is no 3", SDL_SCANCODE_PAUSE, SDLK_PAUSE, KMOD_LCTRL, WM_KEYDOWN, 0x13},
             Row{"under Alt", SDL_SCANCODE_X, 'x', KMOD_LALT, WM_SYSKEYDOWN, 'X'},
             Row{"Alt itself", SDL_SCANCODE_LALT, SDLK_LALT, KMOD_NONE, WM_SYSKEYDOWN, 0x12},
             Row{"F9", SDL_SCANCODE_F9, SDLK_F9, KMOD_NONE, WM_KEYDOWN, 0x78},
             Row{"F10", SDL_SCANCODE_F10, SDLK_F10, KMOD_NONE, WM_SYSKEYDOWN, 0x79},
         }) {
        KeyboardMap map;
        const auto pressed = map.translate({row.place, row.symbol, row.modifiers, true});
        ASSERT_TRUE(pressed) << row.what;
        EXPECT_EQ(pressed->message, row.message) << row.what;
        EXPECT_EQ(pressed->virtualKey, row.virtualKey) << row.what;
        EXPECT_EQ(map.translate({row.place, row.symbol, row.modifiers, true}), pressed) << row.what << ", repeated";
        const auto released = map.translate({row.place, row.symbol, row.modifiers, false});
        EXPECT_EQ(released, (KeyMessage{WM_KEYUP, row.virtualKey})) << row.what << ", released";
    }
}

TEST(KeyboardMap, ReleasesWhatWasPressedWhateverChangedMeanwhile) {
    KeyboardMap map;
    EXPECT_EQ(map.translate({SDL_SCANCODE_KP_6, SDLK_KP_6, KMOD_NONE, true}), (KeyMessage{WM_KEYDOWN, VK_RIGHT}));
    EXPECT_EQ(map.translate({SDL_SCANCODE_KP_6, SDLK_KP_6, KMOD_NUM, false}), (KeyMessage{WM_KEYUP, VK_RIGHT}));
    EXPECT_EQ(map.translate({SDL_SCANCODE_KP_6, SDLK_KP_6, KMOD_NUM, true}), (KeyMessage{WM_KEYDOWN, 0x66}));
}

TEST(KeyboardMap, HasNothingForKeysThatWindowsDoesNotKnow) {
    KeyboardMap map;
    for (const int place : {-1, 0, int{SDL_SCANCODE_CANCEL}, int{SDL_SCANCODE_MUTE}, 511, 512, 1 << 30}) {
        EXPECT_FALSE(map.translate({place, 0, KMOD_NONE, true})) << place;
    }
}

TEST(KeyboardMap, NeverMakesTheCodesThatTheGameKeepsForItself) {
    for (int place = 0; place < SDL_NUM_SCANCODES; ++place) {
        for (const unsigned modifiers : {0U, unsigned{KMOD_LCTRL}, unsigned{KMOD_NUM}}) {
            const auto key = KeyboardMap().translate({place, 0, modifiers, true});
            EXPECT_TRUE(!key || key->virtualKey > 4) << place;
        }
    }
}

TEST(NamedKeys, AreThoseOfScripts) {
    struct Row {
        const char* name;
        UINT virtualKey;
    };
    for (const auto& [name, virtualKey] :
         {Row{"Left", VK_LEFT}, Row{"down", VK_DOWN}, Row{"SPACE", VK_SPACE}, Row{"Enter", VK_RETURN},
          Row{"Escape", VK_ESCAPE}, Row{"esc", VK_ESCAPE}, Row{"Z", 'Z'}, Row{"x", 'X'}, Row{"0", '0'}, Row{"9", '9'},
          Row{"Keypad 5", 0x0C}, Row{"F1", 0x70}, Row{"Alt", 0x12}, Row{",", 0xBC}}) {
        const auto stroke = namedKey(name, true);
        ASSERT_TRUE(stroke) << name;
        KeyboardMap map;
        const auto key = map.translate(*stroke);
        ASSERT_TRUE(key) << name;
        EXPECT_EQ(key->virtualKey, virtualKey) << name;
    }
    EXPECT_FALSE(namedKey("", true));
    EXPECT_FALSE(namedKey("Nowhere", true));
}

TEST(MapVirtualKey, GivesTheCharacterWithoutModifiers) {
    struct Row {
        UINT virtualKey, character;
    };
    for (const auto& [virtualKey, character] :
         {Row{'A', 0x41}, Row{'Z', 0x5A},  Row{'0', '0'},   Row{VK_SPACE, ' '}, Row{VK_RETURN, '\r'},
          Row{VK_UP, 0},  Row{VK_LEFT, 0}, Row{0x60, '0'},  Row{0x69, '9'},     Row{0x6A, '*'},
          Row{0x6B, '+'}, Row{0x6C, 0},    Row{0x6D, '-'},  Row{0x6E, '.'},     Row{0x6F, '/'},
          Row{0x70, 0},   Row{0xBA, ';'},  Row{0xDE, '\''}, Row{0x10, 0},       Row{0xFFFF, 0}}) {
        EXPECT_EQ(MapVirtualKeyA(virtualKey, MAPVK_VK_TO_CHAR), character) << virtualKey;
    }
    EXPECT_EQ(MapVirtualKeyA('A', 0), 0U);
}

}  // namespace
