#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "block_palette.h"

namespace grub {

/// A small block table for tests of the level compiler: every type, every shape, one family with variants.
inline constexpr std::string_view kTestTable =
    "[0]\r\nname=t.wall\r\n[1]\r\nname=t.wall~2\r\n[2]\r\nname=t.wall~3\r\n"
    "[10]\r\nname=t.floor\r\ntype=1\r\n[11]\r\nname=t.floor.left\r\ntype=1\r\n[12]\r\nname=t.floor.right\r\ntype=1\r\n"
    "[13]\r\nname=t.floor.single\r\ntype=1\r\n[14]\r\nname=t.floor.under\r\ntype=1\r\n"
    "[20]\r\nname=t.solid\r\ntype=5\r\n[21]\r\nname=t.marble\r\ntype=5\r\n"
    "[30]\r\nname=t.ladder\r\ntype=2\r\n[31]\r\nname=t.ladder.top\r\ntype=2\r\n[32]\r\nname=t.ladder.foot\r\ntype=2\r\n"
    "[40]\r\nname=t.pipe\r\ntype=3\r\n[41]\r\nname=t.pipe.left\r\ntype=3\r\n[42]\r\nname=t.pipe.right\r\ntype=3\r\n"
    "[43]\r\nname=t.pipe.single\r\ntype=3\r\n[44]\r\nname=t.pipe.joint\r\ntype=3\r\n"
    "[50]\r\nname=t.hidden\r\ntype=6\r\n[60]\r\nname=t.door\r\ntype=8\r\n[70]\r\nname=t.spawn\r\ntype=9\r\n"
    "[80]\r\nname=shade\r\n[81]\r\nname=t.lamp\r\n[82]\r\nname=lamp\r\n"
    "[91]\r\nname=sun.11\r\n[92]\r\nname=sun.12\r\n[93]\r\nname=sun.21\r\n[94]\r\nname=sun.22\r\n";

/// `kTestTable` read; the palette keeps copies of its names.
inline BlockPalette testPalette() {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(kTestTable.data());
    return BlockPalette(IniTable(SharedBuffer::view(bytes, static_cast<std::uint32_t>(kTestTable.size())), 100));
}

/// A source of world "t" with this playing field, rows separated by line ends, and these lines below it.
inline std::string sourceOf(const std::string& field, const std::string& below = "") {
    return "world t\nfield\n" + field + "\nend\n" + below;
}

}  // namespace grub
