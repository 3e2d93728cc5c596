#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "sound_id.h"

namespace grub {

/// The music tracks by their numbers.
enum class MusicId : std::uint8_t { Menu = 0, Game1 = 1, Game2 = 2 };
inline constexpr int kMusicCount = 3;

/// The keys of section "music" of the sound table, by `MusicId`.
inline constexpr std::array<const char*, kMusicCount> kMusicKeys{"menu", "game1", "game2"};

/// The keys of section "sound", by `SoundId`.
inline constexpr std::array<const char*, kSoundCount> kEffectKeys{
    "break",   "getkey",   "rat",       "winlevel",  "opendoor", "water",      // hero, level end, door, drops
    "lov",     "menumove", "menulist2", "menulist1",                           // traps, menus
    "lovrat",  "padenie",  "landing",   "steps",     "trub",     "menuclick",  // traps, hero, menus
    "upsteps",                                                                 // hero
    "shield",  "anchor",   "loose",     "inv",       "bomb",     "getbonus",   // bonuses, level end
    "heart",   "skull",
};

/// The first phase of loading loads the effects below this one, the second phase the others.
inline constexpr std::size_t kFirstOfSecondPhase = static_cast<std::size_t>(SoundId::Shield);

}  // namespace grub
