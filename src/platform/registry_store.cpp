#include "registry_store.h"

#include <fcntl.h>
#include <strings.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>

#include "faults.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

/// Far above what the game keeps; a larger file is somebody else's.
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

std::string textOf(const RegistryKeys& keys) {
    std::string text;
    for (const auto& [path, values] : keys) {
        if (values.empty()) text += path + "\n";
        for (const auto& [name, value] : values) {
            text.append(path).append("\t").append(name).append("\t");
            text.append(std::to_string(value.type)).append("\t").append(hexOf(value.bytes)).append("\n");
        }
    }
    return text;
}

/// Writes a new file down to the disk. False leaves at most a rest of it.
bool writeThrough(const fs::path& file, std::string_view text) {
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0) return false;
    const bool whole = !callFails(testing::Call::RegistryWrite) &&
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

RegistryKeys loadRegistry(const fs::path& file) {
    RegistryKeys keys;
    std::error_code failure;
    const auto size = fs::file_size(file, failure);
    if (failure) return keys;
    if (size > kLargestFile) {
        std::fprintf(stderr, "%s: %ju bytes are no registry of ours, ignored\n", file.c_str(), size);
        return keys;
    }
    std::ifstream stream(file);
    int number = 0;
    for (std::string line; std::getline(stream, line);) {
        ++number;
        if (takeLine(line, keys)) continue;
        std::fprintf(stderr, "%s:%d: no \"key, name, type, hex bytes\", skipped\n", file.c_str(), number);
    }
    return keys;
}

bool saveRegistry(const fs::path& file, const RegistryKeys& keys) {
    std::error_code failure;
    fs::create_directories(file.parent_path(), failure);
    auto beside = file;
    beside += ".new";
    if (!writeThrough(beside, textOf(keys))) {
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

testing::RegistryFile::RegistryFile(fs::path path) { testsFile() = std::move(path); }

testing::RegistryFile::~RegistryFile() { testsFile().reset(); }

}  // namespace platform
