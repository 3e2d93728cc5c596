#include "desktop/input_map.h"

#include <SDL.h>
#include <gtest/gtest.h>

namespace {

using platform::KeyboardMap;
using platform::WindowKey;

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
             Row{"a letter where the layout has it", SDL_SCANCODE_Y, 'z', KMOD_NONE, WM_KEYDOWN, 'Z'},
             Row{"a Cyrillic layout: the place", SDL_SCANCODE_Z, kCyrillicYa, KMOD_NONE, WM_KEYDOWN, 'Z'},
             Row{"a letter on a punctuation key", SDL_SCANCODE_SEMICOLON, 'm', KMOD_NONE, WM_KEYDOWN, 'M'},
             Row{"punctuation on a letter's key", SDL_SCANCODE_M, ',', KMOD_NONE, WM_KEYDOWN, 0xBC},
             Row{"a digit", SDL_SCANCODE_7, '7', KMOD_NONE, WM_KEYDOWN, '7'},
             Row{"zero ends the row; the layout needs Shift", SDL_SCANCODE_0, kEAcute, KMOD_NONE, WM_KEYDOWN, '0'},
             Row{"a sign in the digits' row", SDL_SCANCODE_6, '-', KMOD_NONE, WM_KEYDOWN, '6'},
             Row{"an arrow", SDL_SCANCODE_LEFT, SDLK_LEFT, KMOD_NONE, WM_KEYDOWN, VK_LEFT},
             Row{"Enter", SDL_SCANCODE_RETURN, '\r', KMOD_NONE, WM_KEYDOWN, VK_RETURN},
             Row{"the pad's Enter", SDL_SCANCODE_KP_ENTER, SDLK_KP_ENTER, KMOD_NUM, WM_KEYDOWN, VK_RETURN},
             Row{"the pad's arrow", SDL_SCANCODE_KP_4, SDLK_KP_4, KMOD_NONE, WM_KEYDOWN, VK_LEFT},
             Row{"the pad's digit", SDL_SCANCODE_KP_4, SDLK_KP_4, KMOD_NUM, WM_KEYDOWN, 0x64},
             Row{"Shift undoes Num Lock", SDL_SCANCODE_KP_4, SDLK_KP_4, KMOD_NUM | KMOD_LSHIFT, WM_KEYDOWN, VK_LEFT},
             Row{"right Shift", SDL_SCANCODE_RSHIFT, SDLK_RSHIFT, KMOD_RSHIFT, WM_KEYDOWN, 0x10},
             Row{"Ctrl+Break is no 3", SDL_SCANCODE_PAUSE, SDLK_PAUSE, KMOD_LCTRL, WM_KEYDOWN, 0x13},
             Row{"under Alt", SDL_SCANCODE_X, 'x', KMOD_LALT, WM_SYSKEYDOWN, 'X'},
             Row{"Alt itself", SDL_SCANCODE_LALT, SDLK_LALT, KMOD_NONE, WM_SYSKEYDOWN, 0x12},
             Row{"F9", SDL_SCANCODE_F9, SDLK_F9, KMOD_NONE, WM_KEYDOWN, 0x78},
             Row{"F10", SDL_SCANCODE_F10, SDLK_F10, KMOD_NONE, WM_SYSKEYDOWN, 0x79},
         }) {
        SCOPED_TRACE(row.what);
        KeyboardMap map;
        const WindowKey expected{row.message, row.virtualKey};
        EXPECT_EQ(map.translate({row.place, row.symbol, row.modifiers, true}), expected);
        EXPECT_EQ(map.translate({row.place, row.symbol, row.modifiers, true}), expected) << "repeated";
        // A release belongs to what was pressed, whatever changed meanwhile.
        const unsigned changed = row.modifiers ^ KMOD_NUM;
        EXPECT_EQ(map.translate({row.place, '?', changed, false}), (WindowKey{WM_KEYUP, row.virtualKey}));
    }
}

TEST(KeyboardMap, HasNothingForUnknownKeys) {
    for (const int place : {-1, 0, int{SDL_SCANCODE_CANCEL}, int{SDL_SCANCODE_MUTE}, 512, 1 << 30}) {
        EXPECT_FALSE(KeyboardMap().translate({place, 0, KMOD_NONE, true})) << place;
    }
}

}  // namespace
