#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hero.h"
#include "text_lines.h"
#include "world.h"

namespace grub {

/// What happened to a key. `Other` is a key or a mouse button that steers nothing; it shows that the player is there.
enum class KeyAction : std::uint8_t { Down, Up, Other };

/// A key event of a recorded game. The events of a game frame come before its step.
struct KeyEvent {
    int frame = 1;  // the first frame of play is 1
    KeyAction action = KeyAction::Other;
    PlayKey key = PlayKey::Up;  // has no meaning with `Other`

    friend bool operator==(const KeyEvent&, const KeyEvent&) = default;
};

/// The name of a key in files: Up Down Left Right Space Enter Z X A B.
[[nodiscard]] std::string_view nameOf(PlayKey key);
/// "down NAME", "up NAME" or "other".
[[nodiscard]] std::string textOf(const KeyEvent& event);

/// Takes "down NAME" or "up NAME" off a line.
[[nodiscard]] KeyEvent readKeyEvent(int frame, WordReader& words);
/// Reads a key file: `FRAME down|up NAME`, an event a line, in any order. Returns the events ordered by frame; events
/// of one frame keep their order. Returns nothing, and fills `error`, when a line is wrong.
[[nodiscard]] std::optional<std::vector<KeyEvent>> readKeyFile(std::string_view text, TextError& error);

/// Hands key events to a world as their frames come. The events must outlive it, in the order of frames.
class KeyFeed {
public:
    explicit KeyFeed(std::span<const KeyEvent> events) : events_(events) {}

    /// Hands the events of the next frame to the world.
    void feed(World& world);

private:
    std::span<const KeyEvent> events_;
    std::size_t next_ = 0;
};

/// Hands one event to a world.
void tell(World& world, const KeyEvent& event);
/// One game frame of play: its keys, its step and what drawing advances.
void playFrame(World& world, KeyFeed& keys);

}  // namespace grub
