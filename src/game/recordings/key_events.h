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

/// What happened to a key. `Other` is a key or a mouse button that steers nothing: a sign of life.
enum class KeyAction : std::uint8_t { Down, Up, Other };

/// A key event of a recorded game. The events of a game frame come before its step.
struct KeyEvent {
    int frame = 1;  // the first frame of play is 1
    KeyAction action = KeyAction::Other;
    PlayKey key = PlayKey::Up;  // means nothing beside `Other`

    friend bool operator==(const KeyEvent&, const KeyEvent&) = default;
};

/// The name of a key in files: Up Down Left Right Space Enter Z X A B.
[[nodiscard]] std::string_view nameOf(PlayKey key);
/// "down NAME", "up NAME" or "other".
[[nodiscard]] std::string textOf(const KeyEvent& event);

/// Takes "down NAME" or "up NAME" off a line.
[[nodiscard]] KeyEvent readKeyEvent(int frame, WordReader& words);
/// Reads a key file: `FRAME down|up NAME`, an event a line, in any order; they come back ordered by frame, events of
/// one frame as written. Nothing, and `error` filled, at the first line that is none.
[[nodiscard]] std::optional<std::vector<KeyEvent>> readKeyFile(std::string_view text, TextError& error);

/// Hands key events to a world as their frames come. The events must outlive it, in the order of frames.
class KeyFeed {
public:
    explicit KeyFeed(std::span<const KeyEvent> events) : events_(events) {}

    /// Tells the world the events of its next frame.
    void feed(World& world);

private:
    std::span<const KeyEvent> events_;
    std::size_t next_ = 0;
};

/// Tells a world of one event.
void tell(World& world, const KeyEvent& event);
/// One game frame of play: its keys, its step and what drawing advances.
void playFrame(World& world, KeyFeed& keys);

}  // namespace grub
