#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "ini_table.h"

/// Every entry that the lines hold is in the table, with a value that is not empty.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const grub::IniTable table(grub::SharedBuffer::view(data, static_cast<std::uint32_t>(size)), 11);
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::string_view section;
    grub::forEachIniLine(text, [&](std::string_view line) {
        const grub::IniLine parts = grub::parseIniLine(line);
        if (parts.kind == grub::IniLine::Kind::Section) section = parts.name;
        if (parts.kind != grub::IniLine::Kind::Entry) return;
        const grub::EngineString key(parts.name);
        if (!table.has(grub::EngineString(section), key)) std::abort();
        if (table.getString(grub::EngineString(section), key).length() == 0) std::abort();
    });
    return 0;
}
