#include "ini_lines.h"

#include <algorithm>

namespace grub {
namespace {

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

}  // namespace

IniLine parseIniLine(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (line.empty() || line.starts_with(';')) return {};
    return line.starts_with('[') ? sectionIn(line) : entryIn(line);
}

}  // namespace grub
