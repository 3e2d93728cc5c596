#include "ini_table.h"

#include <algorithm>
#include <optional>

namespace grub {
namespace {

std::string_view textOf(const SharedBuffer& file) {
    if (file.empty()) return {};
    return {reinterpret_cast<const char*>(file.data()), file.size()};
}

IniLine sectionIn(std::string_view line) {
    const auto close = line.rfind(']');
    if (close == std::string_view::npos) return {.kind = IniLine::Kind::Malformed, .name = {}, .value = {}};
    return {.kind = IniLine::Kind::Section, .name = line.substr(1, close - 1), .value = {}};
}

IniLine entryIn(std::string_view line) {
    const auto equals = line.find('=');
    const bool whole = equals != std::string_view::npos && equals != 0 && equals + 1 != line.size();
    if (!whole) return {.kind = IniLine::Kind::Malformed, .name = {}, .value = {}};
    return {.kind = IniLine::Kind::Entry, .name = line.substr(0, equals), .value = line.substr(equals + 1)};
}

/// The number that a value of decimal digits spells, modulo 2^32.
std::optional<std::int32_t> wrappedNumber(std::string_view value) {
    std::uint32_t number = 0;
    for (const char character : value) {
        if (character < '0' || character > '9') return std::nullopt;
        number = number * 10 + static_cast<std::uint32_t>(character - '0');
    }
    return static_cast<std::int32_t>(number);
}

}  // namespace

IniLine parseIniLine(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (line.empty() || line.starts_with(';')) return {};
    return line.starts_with('[') ? sectionIn(line) : entryIn(line);
}

IniTable::IniTable(const SharedBuffer& file, std::uint32_t bucketCount) : strings_(bucketCount), numbers_(bucketCount) {
    std::string_view section;
    forEachIniLine(textOf(file), [&](std::string_view text) {
        const IniLine line = parseIniLine(text);
        if (line.kind == IniLine::Kind::Section) section = line.name;
        if (line.kind == IniLine::Kind::Entry) addEntry(EngineString(section) + EngineString(line.name), line.value);
    });
}

void IniTable::addEntry(const EngineString& fullKey, std::string_view value) {
    strings_.insert(fullKey.view(), EngineString(value));
    if (const auto number = wrappedNumber(value)) numbers_.insert(fullKey.view(), *number);
}

bool IniTable::has(const EngineString& section, const EngineString& key) const {
    return strings_.find((section + key).view()) != nullptr;
}

EngineString IniTable::getString(const EngineString& section, const EngineString& key) const {
    const EngineString* const value = strings_.find((section + key).view());
    return value != nullptr ? *value : EngineString();
}

std::int32_t IniTable::getInt(const EngineString& section, const EngineString& key) const {
    const std::int32_t* const number = numbers_.find((section + key).view());
    return number != nullptr ? *number : -1;
}

}  // namespace grub
