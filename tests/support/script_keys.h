#pragma once

#include <map>
#include <string>

#include "input_messages.h"

namespace grub {

/// The keys that scripts of walks press.
inline const std::map<std::string, KeyCode> kKeysOfScripts{
    {"Up", KeyUp},           {"Down", KeyDown},         {"Left", KeyLeft},     {"Right", KeyRight}, {"A", KeyA},
    {"Space", KeySpace},     {"Enter", KeyEnter},       {"Escape", KeyEscape}, {"B", KeyB},         {"Tab", KeyCode{9}},
    {"PageUp", KeyCode{33}}, {"PageDown", KeyCode{34}}, {"C", KeyC},           {"X", KeyX}};

}  // namespace grub
