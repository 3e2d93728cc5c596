#include "key_events.h"

#include <algorithm>
#include <array>

namespace grub {

namespace {

/// In the order of PlayKey.
constexpr std::array<std::string_view, 10> kKeyNames{"Up",    "Down", "Left", "Right", "Space",
                                                     "Enter", "Z",    "X",    "A",     "B"};

PlayKey readKeyName(WordReader& words) {
    constexpr std::string_view kWanted = "a key (Up Down Left Right Space Enter Z X A B)";
    const std::string_view name = words.word(kWanted);
    const auto found = std::ranges::find(kKeyNames, name);
    if (found == kKeyNames.end()) {
        words.fail(kWanted, name);
        return PlayKey::Up;
    }
    return static_cast<PlayKey>(found - kKeyNames.begin());
}

}  // namespace

std::string_view nameOf(PlayKey key) { return kKeyNames[static_cast<std::size_t>(key)]; }

std::string textOf(const KeyEvent& event) {
    switch (event.action) {
        case KeyAction::Down: return "down " + std::string(nameOf(event.key));
        case KeyAction::Up: return "up " + std::string(nameOf(event.key));
        case KeyAction::Other: break;
    }
    return "other";
}

KeyEvent readKeyEvent(int frame, WordReader& words) {
    const std::string_view action = words.word("'down' or 'up'");
    if (action != "down" && action != "up") words.fail("'down' or 'up'", action);
    return {frame, action == "down" ? KeyAction::Down : KeyAction::Up, readKeyName(words)};
}

std::optional<std::vector<KeyEvent>> readKeyFile(std::string_view text, TextError& error) {
    std::vector<KeyEvent> events;
    for (const TextLine& line : textLines(text)) {
        WordReader words(line);
        const int frame = words.number("a game frame from 1", 1);
        events.push_back(readKeyEvent(frame, words));
        words.finish();
        if (!words.ok()) {
            error = words.error();
            return std::nullopt;
        }
    }
    std::ranges::stable_sort(events, {}, &KeyEvent::frame);
    return events;
}

void KeyFeed::feed(World& world) {
    for (; next_ < events_.size() && events_[next_].frame <= world.frame() + 1; ++next_) tell(world, events_[next_]);
}

void tell(World& world, const KeyEvent& event) {
    switch (event.action) {
        case KeyAction::Down: return world.keyDown(event.key);
        case KeyAction::Up: return world.keyUp(event.key);
        case KeyAction::Other: return world.restartIdleTimer();
    }
}

void playFrame(World& world, KeyFeed& keys) {
    keys.feed(world);
    world.step();
    world.finishFrame(true);
}

}  // namespace grub
