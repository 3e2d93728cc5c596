#pragma once

#include <array>
#include <cstddef>

#include "music_id.h"
#include "sound_id.h"

namespace grub {

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

/// From this effect on they are loaded by the second phase.
inline constexpr std::size_t kFirstOfSecondPhase = static_cast<std::size_t>(SoundId::Shield);

}  // namespace grub
