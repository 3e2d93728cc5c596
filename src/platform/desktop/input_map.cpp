#include "desktop/input_map.h"

#include <SDL.h>

#include <algorithm>
#include <string>
#include <utility>

namespace platform {
namespace {

struct PlaceKey {
    SDL_Scancode scanCode;
    std::uint8_t virtualKey;
};

constexpr UINT kShift = 0x10;
constexpr UINT kMenu = 0x12;  // what Windows calls the Alt key
constexpr UINT kF10 = 0x79;

/// Keys that mean the same under every layout.
constexpr std::array kFixedKeys{
    PlaceKey{SDL_SCANCODE_RETURN, VK_RETURN},
    PlaceKey{SDL_SCANCODE_KP_ENTER, VK_RETURN},
    PlaceKey{SDL_SCANCODE_ESCAPE, VK_ESCAPE},
    PlaceKey{SDL_SCANCODE_SPACE, VK_SPACE},
    PlaceKey{SDL_SCANCODE_BACKSPACE, 0x08},
    PlaceKey{SDL_SCANCODE_TAB, 0x09},
    PlaceKey{SDL_SCANCODE_LEFT, VK_LEFT},
    PlaceKey{SDL_SCANCODE_UP, VK_UP},
    PlaceKey{SDL_SCANCODE_RIGHT, VK_RIGHT},
    PlaceKey{SDL_SCANCODE_DOWN, VK_DOWN},
    PlaceKey{SDL_SCANCODE_PAGEUP, 0x21},
    PlaceKey{SDL_SCANCODE_PAGEDOWN, 0x22},
    PlaceKey{SDL_SCANCODE_END, 0x23},
    PlaceKey{SDL_SCANCODE_HOME, 0x24},
    PlaceKey{SDL_SCANCODE_PRINTSCREEN, 0x2C},
    PlaceKey{SDL_SCANCODE_INSERT, 0x2D},
    PlaceKey{SDL_SCANCODE_DELETE, 0x2E},
    PlaceKey{SDL_SCANCODE_LSHIFT, kShift},
    PlaceKey{SDL_SCANCODE_RSHIFT, kShift},
    PlaceKey{SDL_SCANCODE_LCTRL, 0x11},
    PlaceKey{SDL_SCANCODE_RCTRL, 0x11},
    PlaceKey{SDL_SCANCODE_LALT, kMenu},
    PlaceKey{SDL_SCANCODE_RALT, kMenu},
    PlaceKey{SDL_SCANCODE_PAUSE, 0x13},  // never 0x03 for Ctrl+Break: the game would take it for an arrow
    PlaceKey{SDL_SCANCODE_CAPSLOCK, 0x14},
    PlaceKey{SDL_SCANCODE_LGUI, 0x5B},
    PlaceKey{SDL_SCANCODE_RGUI, 0x5C},
    PlaceKey{SDL_SCANCODE_APPLICATION, 0x5D},
    PlaceKey{SDL_SCANCODE_KP_MULTIPLY, 0x6A},
    PlaceKey{SDL_SCANCODE_KP_PLUS, 0x6B},
    PlaceKey{SDL_SCANCODE_KP_MINUS, 0x6D},
    PlaceKey{SDL_SCANCODE_KP_DIVIDE, 0x6F},
    PlaceKey{SDL_SCANCODE_NUMLOCKCLEAR, 0x90},
    PlaceKey{SDL_SCANCODE_SCROLLLOCK, 0x91},
    PlaceKey{SDL_SCANCODE_NONUSBACKSLASH, 0xE2},
};

/// The numeric pad: digits with Num Lock, a second set of arrows without.
struct PadKey {
    SDL_Scancode scanCode;
    std::uint8_t withNumLock;
    std::uint8_t without;
};
constexpr std::array kPadKeys{
    PadKey{SDL_SCANCODE_KP_0, 0x60, 0x2D},      PadKey{SDL_SCANCODE_KP_1, 0x61, 0x23},
    PadKey{SDL_SCANCODE_KP_2, 0x62, VK_DOWN},   PadKey{SDL_SCANCODE_KP_3, 0x63, 0x22},
    PadKey{SDL_SCANCODE_KP_4, 0x64, VK_LEFT},   PadKey{SDL_SCANCODE_KP_5, 0x65, 0x0C},
    PadKey{SDL_SCANCODE_KP_6, 0x66, VK_RIGHT},  PadKey{SDL_SCANCODE_KP_7, 0x67, 0x24},
    PadKey{SDL_SCANCODE_KP_8, 0x68, VK_UP},     PadKey{SDL_SCANCODE_KP_9, 0x69, 0x21},
    PadKey{SDL_SCANCODE_KP_PERIOD, 0x6E, 0x2E},
};

/// Punctuation: the place on a US keyboard, its character there, its virtual key.
struct PunctuationKey {
    SDL_Scancode scanCode;
    char character;
    std::uint8_t virtualKey;
};
constexpr std::array kPunctuation{
    PunctuationKey{SDL_SCANCODE_SEMICOLON, ';', 0xBA},   PunctuationKey{SDL_SCANCODE_EQUALS, '=', 0xBB},
    PunctuationKey{SDL_SCANCODE_COMMA, ',', 0xBC},       PunctuationKey{SDL_SCANCODE_MINUS, '-', 0xBD},
    PunctuationKey{SDL_SCANCODE_PERIOD, '.', 0xBE},      PunctuationKey{SDL_SCANCODE_SLASH, '/', 0xBF},
    PunctuationKey{SDL_SCANCODE_GRAVE, '`', 0xC0},       PunctuationKey{SDL_SCANCODE_LEFTBRACKET, '[', 0xDB},
    PunctuationKey{SDL_SCANCODE_BACKSLASH, '\\', 0xDC},  PunctuationKey{SDL_SCANCODE_RIGHTBRACKET, ']', 0xDD},
    PunctuationKey{SDL_SCANCODE_APOSTROPHE, '\'', 0xDE},
};

bool isLetter(std::int32_t symbol) { return symbol >= 'a' && symbol <= 'z'; }

bool isDigit(std::int32_t symbol) { return symbol >= '0' && symbol <= '9'; }

UINT upperCase(std::int32_t letter) { return static_cast<UINT>(letter - 'a' + 'A'); }

bool isDigitRow(int scanCode) { return scanCode >= SDL_SCANCODE_1 && scanCode <= SDL_SCANCODE_0; }

/// 1 to 9 and 0 stand in this order.
UINT digitAt(int scanCode) { return static_cast<UINT>('0' + (scanCode - SDL_SCANCODE_1 + 1) % 10); }

UINT fixedKey(int scanCode) {
    if (scanCode >= SDL_SCANCODE_F1 && scanCode <= SDL_SCANCODE_F12) {
        return static_cast<UINT>(0x70 + scanCode - SDL_SCANCODE_F1);
    }
    const auto* key = std::ranges::find(kFixedKeys, scanCode, &PlaceKey::scanCode);
    return key == kFixedKeys.end() ? 0 : key->virtualKey;
}

UINT padKey(int scanCode, unsigned modifiers) {
    const auto* key = std::ranges::find(kPadKeys, scanCode, &PadKey::scanCode);
    if (key == kPadKeys.end()) return 0;
    const bool digits = (modifiers & KMOD_NUM) != 0 && (modifiers & KMOD_SHIFT) == 0;  // Shift turns Num Lock round
    return digits ? key->withNumLock : key->without;
}

/// What the layout says; 0 when it has no letter, digit or known punctuation at this place.
UINT keyBySymbol(int scanCode, std::int32_t symbol) {
    if (isDigitRow(scanCode)) return isDigit(symbol) ? static_cast<UINT>(symbol) : 0;
    if (isLetter(symbol)) return upperCase(symbol);
    if (isDigit(symbol)) return static_cast<UINT>(symbol);
    const auto* key = std::ranges::find(kPunctuation, symbol, &PunctuationKey::character);
    return key == kPunctuation.end() ? 0 : key->virtualKey;
}

/// What a US keyboard has at this place.
UINT keyByPlace(int scanCode) {
    if (isDigitRow(scanCode)) return digitAt(scanCode);
    if (scanCode >= SDL_SCANCODE_A && scanCode <= SDL_SCANCODE_Z) {
        return static_cast<UINT>('A' + scanCode - SDL_SCANCODE_A);
    }
    const auto* key = std::ranges::find(kPunctuation, scanCode, &PunctuationKey::scanCode);
    return key == kPunctuation.end() ? 0 : key->virtualKey;
}

UINT virtualKeyOf(const KeyStroke& stroke) {
    if (const UINT key = fixedKey(stroke.scanCode)) return key;
    if (const UINT key = padKey(stroke.scanCode, stroke.modifiers)) return key;
    if (const UINT key = keyBySymbol(stroke.scanCode, stroke.symbol)) return key;
    return keyByPlace(stroke.scanCode);
}

bool isSameName(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, SDL_tolower, SDL_tolower);
}

/// The numeric pad's digits and signs, from 0x60.
UINT padCharacter(UINT virtualKey) {
    constexpr std::string_view kCharacters("0123456789*+\0-./", 16);  // counted, since a NUL stands among them
    return static_cast<unsigned char>(kCharacters[virtualKey - 0x60]);
}

}  // namespace

std::optional<WindowKey> KeyboardMap::translate(const KeyStroke& stroke) {
    if (stroke.scanCode < 0 || static_cast<std::size_t>(stroke.scanCode) >= pressedAs_.size()) return std::nullopt;
    auto& pressedAs = pressedAs_[static_cast<std::size_t>(stroke.scanCode)];
    // A repeat or a release belongs to the key that was pressed, even if Num Lock, Shift or the layout changed since.
    const UINT key = pressedAs != 0 ? pressedAs : virtualKeyOf(stroke);
    pressedAs = stroke.down ? static_cast<std::uint8_t>(key) : 0;
    if (key == 0) return std::nullopt;
    if (!stroke.down) return WindowKey{WM_KEYUP, key};
    const bool forSystem = (stroke.modifiers & KMOD_ALT) != 0 || key == kMenu || key == kF10;
    return WindowKey{forSystem ? WM_SYSKEYDOWN : WM_KEYDOWN, key};
}

bool KeyboardMap::isDown(UINT virtualKey) const {
    return std::ranges::find(pressedAs_, static_cast<std::uint8_t>(virtualKey)) != pressedAs_.end();
}

std::optional<KeyStroke> namedKey(std::string_view name, bool down) {
    constexpr std::pair<std::string_view, std::string_view> kOtherNames[] = {
        {"Enter", "Return"}, {"Esc", "Escape"}, {"Shift", "Left Shift"}, {"Ctrl", "Left Ctrl"}, {"Alt", "Left Alt"}};
    for (const auto& [ours, systems] : kOtherNames) {
        if (isSameName(name, ours)) name = systems;
    }
    const SDL_Scancode scanCode = SDL_GetScancodeFromName(std::string(name).c_str());
    if (scanCode == SDL_SCANCODE_UNKNOWN) return std::nullopt;
    std::int32_t symbol = 0;
    if (const UINT key = keyByPlace(scanCode); key >= 'A' && key <= 'Z')
        symbol = static_cast<std::int32_t>(key | 0x20U);
    return KeyStroke{scanCode, symbol, KMOD_NONE, down};
}

std::optional<UINT> mouseMessage(PointerButton button, bool down, int clicks, bool doubleClicks) {
    const bool secondPress = doubleClicks && clicks > 0 && clicks % 2 == 0;
    switch (button) {
        case PointerButton::None: return WM_MOUSEMOVE;
        case PointerButton::Left:
            if (!down) return WM_LBUTTONUP;
            return secondPress ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN;
        case PointerButton::Right:
            if (!down) return WM_RBUTTONUP;
            return secondPress ? WM_RBUTTONDBLCLK : WM_RBUTTONDOWN;
        case PointerButton::Middle: return std::nullopt;
    }
    return std::nullopt;
}

LPARAM mousePosition(int x, int y) {
    const auto half = [](int value) {
        return static_cast<std::uint16_t>(static_cast<std::int16_t>(std::clamp(value, -32768, 32767)));
    };
    return static_cast<LPARAM>(std::uint32_t{half(y)} << 16U | half(x));
}

}  // namespace platform

UINT MapVirtualKeyA(UINT code, UINT kind) {
    if (kind != MAPVK_VK_TO_CHAR) return 0;
    const bool isItsCharacter = (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') || code == VK_SPACE ||
                                code == VK_RETURN || code == VK_ESCAPE || code == 0x08 || code == 0x09;
    if (isItsCharacter) return code;
    if (code >= 0x60 && code <= 0x6F) return platform::padCharacter(code);
    const auto* key = std::ranges::find(platform::kPunctuation, code, &platform::PunctuationKey::virtualKey);
    return key == platform::kPunctuation.end() ? 0 : static_cast<unsigned char>(key->character);
}
