#include "files/registry_store.h"

#include <fcntl.h>
#include <strings.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <set>
#include <string_view>

#include "kernel/calls.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

/// Far above what the game keeps; a larger file does not come from the game.
constexpr std::uintmax_t kLargestFile = 1 << 20;

std::vector<std::string_view> fieldsOf(std::string_view line) {
    std::vector<std::string_view> fields;
    for (;;) {
        const auto tab = line.find('\t');
        fields.push_back(line.substr(0, tab));
        if (tab == std::string_view::npos) return fields;
        line.remove_prefix(tab + 1);
    }
}

template <class Number>
bool parseNumber(std::string_view text, int base, Number& number) {
    const auto* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number, base);
    return result.ec == std::errc() && result.ptr == end && !text.empty();
}

std::optional<std::vector<BYTE>> parseBytes(std::string_view hex) {
    if (hex.size() % 2 != 0) return std::nullopt;
    std::vector<BYTE> bytes(hex.size() / 2);
    for (auto& byte : bytes) {
        if (!parseNumber(hex.substr(0, 2), 16, byte)) return std::nullopt;
        hex.remove_prefix(2);
    }
    return bytes;
}

/// False when the line is not understood; then nothing has changed.
bool takeLine(std::string_view line, RegistryKeys& keys) {
    const auto fields = fieldsOf(line);
    if (fields[0].empty() || (fields.size() != 1 && fields.size() != 4)) return false;
    if (fields.size() == 1) {
        keys[std::string(fields[0])];
        return true;
    }
    RegistryValue value;
    auto bytes = parseBytes(fields[3]);
    if (!bytes || !parseNumber(fields[2], 10, value.type)) return false;
    value.bytes = std::move(*bytes);
    keys[std::string(fields[0])][std::string(fields[1])] = std::move(value);
    return true;
}

std::string hexOf(const std::vector<BYTE>& bytes) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string hex;
    for (const BYTE byte : bytes) {
        hex += kDigits[byte >> 4U];
        hex += kDigits[byte & 0xFU];
    }
    return hex;
}

std::string textOf(const RegistryContents& contents) {
    std::string text;
    for (const auto& [path, values] : contents.keys) {
        if (values.empty()) text += path + "\n";
        for (const auto& [name, value] : values) {
            text.append(path).append("\t").append(name).append("\t");
            text.append(std::to_string(value.type)).append("\t").append(hexOf(value.bytes)).append("\n");
        }
    }
    for (const std::string& line : contents.foreignLines) text.append(line).append("\n");
    return text;
}

/// The file is read at each call of the game; the player needs to hear of a fault once only.
void reportOnce(const std::string& line) {
    static auto* reported = new std::set<std::string>;
    if (reported->insert(line).second) std::fprintf(stderr, "%s\n", line.c_str());
}

/// Writes a new file down to the disk. False leaves at most a rest of it.
bool writeThrough(const fs::path& file, std::string_view text) {
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0) return false;
    const bool whole = !isRefused(Call::RegistryWrite) &&
                       ::write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size()) &&
                       ::fsync(descriptor) == 0;
    return ::close(descriptor) == 0 && whole;
}

std::optional<fs::path>& testsFile() {
    static auto* file = new std::optional<fs::path>;
    return *file;
}

}  // namespace

bool LessIgnoringCase::operator()(const std::string& a, const std::string& b) const {
    return ::strcasecmp(a.c_str(), b.c_str()) < 0;
}

RegistryContents loadRegistry(const fs::path& file) {
    RegistryContents contents;
    std::error_code failure;
    const auto size = fs::file_size(file, failure);
    if (failure == std::errc::no_such_file_or_directory) return contents;
    std::ifstream stream(file);
    contents.complete = !failure && size <= kLargestFile && stream;
    if (!contents.complete) {
        reportOnce(file.string() + ": is no registry file or cannot be read; settings are not stored");
        return contents;
    }
    int number = 0;
    for (std::string line; std::getline(stream, line);) {
        ++number;
        if (takeLine(line, contents.keys)) continue;
        contents.foreignLines.push_back(line);
        reportOnce(file.string() + ":" + std::to_string(number) + ": is not \"key, name, type, hex bytes\"; ignored");
    }
    contents.complete = !stream.bad();
    return contents;
}

bool saveRegistry(const fs::path& file, const RegistryContents& contents) {
    if (!contents.complete) return false;
    std::error_code failure;
    fs::create_directories(file.parent_path(), failure);
    auto beside = file;
    beside += ".new";
    if (!writeThrough(beside, textOf(contents))) {
        fs::remove(beside, failure);
        return false;
    }
    fs::rename(beside, file, failure);
    return !failure;
}

fs::path registryFile() {
    if (testsFile()) return *testsFile();
    const auto directory = [](const char* variable) {
        const char* value = std::getenv(variable);
        return fs::path(value == nullptr ? "" : value);
    };
    fs::path configuration = directory("XDG_CONFIG_HOME");
    if (!configuration.is_absolute()) configuration = directory("HOME") / ".config";
    return configuration / "grubaway" / "registry.txt";
}

void useRegistryFile(std::optional<fs::path> file) { testsFile() = std::move(file); }

}  // namespace platform
