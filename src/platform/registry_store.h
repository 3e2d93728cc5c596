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

/// Reads the registry file: a line for each value, with tabs between key path, value name, type number and bytes in
/// hex; a key without values is a line with its path alone. A file that is not there is empty; a line that is not
/// understood is skipped with one line on standard error.
[[nodiscard]] RegistryKeys loadRegistry(const std::filesystem::path& file);
/// Writes the file anew beside the old one and puts it in its place. False when the old one is left as it was.
bool saveRegistry(const std::filesystem::path& file, const RegistryKeys& keys);
/// $XDG_CONFIG_HOME/grubaway/registry.txt, by default below ~/.config; or what a test wants.
[[nodiscard]] std::filesystem::path registryFile();

}  // namespace platform
