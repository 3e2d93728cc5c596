#pragma once

#include <windows.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// Names in the registry differ in more than case.
struct LessIgnoringCase {
    using is_transparent = void;
    bool operator()(const std::string& a, const std::string& b) const;
};

/// A value as it was stored, whatever its type says.
struct RegistryValue {
    DWORD type = REG_BINARY;
    std::vector<BYTE> bytes;
};
/// A key: its values by name.
using RegistryKey = std::map<std::string, RegistryValue, LessIgnoringCase>;
/// Keys by their whole path.
using RegistryKeys = std::map<std::string, RegistryKey, LessIgnoringCase>;

/// What the registry file holds.
struct RegistryContents {
    RegistryKeys keys;
    std::vector<std::string> foreignLines;  // lines that are not understood; they stay in the file
    bool complete = true;                   // false: the file could not be read, so nothing may take its place
};

/// Reads the registry file: a line for each value, with tabs between key path, value name, type number and bytes in
/// hex; a key without values is a line with its path alone. A file that does not exist is empty. Reports a line that is
/// not understood, and a file that is not complete, once on standard error.
[[nodiscard]] RegistryContents loadRegistry(const std::filesystem::path& file);
/// Writes the file anew beside the old one and puts it in its place. False, and the old one stays as it was, when the
/// contents are not complete or the system refuses.
bool saveRegistry(const std::filesystem::path& file, const RegistryContents& contents);
/// $XDG_CONFIG_HOME/grubaway/registry.txt, by default below ~/.config.
[[nodiscard]] std::filesystem::path registryFile();
/// Lets `registryFile` name another file; nothing ends that. For tests and scripts.
void useRegistryFile(std::optional<std::filesystem::path> file);

}  // namespace platform
