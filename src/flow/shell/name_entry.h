#pragma once

#include <cstddef>
#include <string>

#include "engine_string.h"
#include "high_scores.h"
#include "input_messages.h"

namespace grub {

/// A name while the player types it: spaces at first, with a cursor that moves on with each character.
class NameEntry {
public:
    /// A key press, repeats included. Digits and letters write themselves; A, B, C, Space and Right write a space; Left
    /// and Backspace take the last character back; Enter finishes. A complete name ignores every key.
    void keyDown(KeyCode code);
    /// Makes the name complete as it stands.
    void finish() { cursor_ = kNameLength; }

    /// Stays true once the cursor is behind the last place.
    [[nodiscard]] bool isComplete() const { return cursor_ == kNameLength; }
    /// All `kNameLength` characters, also those not typed yet.
    [[nodiscard]] EngineString name() const { return EngineString(name_); }

private:
    void type(char character) { name_[cursor_++] = character; }
    void takeBack();

    std::string name_ = std::string(kNameLength, ' ');
    std::size_t cursor_ = 0;  // the place that the next character takes
};

}  // namespace grub
