#include "whole_file.h"

#include <array>
#include <fstream>

namespace grub {

namespace {

namespace fs = std::filesystem;

template <class Bytes>
std::optional<Bytes> readAll(const fs::path& path) {
    std::error_code ignored;
    std::ifstream file(path, std::ios::binary);
    if (!file || fs::is_directory(path, ignored)) return std::nullopt;
    Bytes bytes;
    std::array<char, 1 << 14> chunk;
    while (file.read(chunk.data(), chunk.size()) || file.gcount() > 0)
        bytes.insert(bytes.end(), chunk.begin(), chunk.begin() + file.gcount());
    if (file.bad()) return std::nullopt;
    return bytes;
}

bool writeAll(const fs::path& path, std::string_view text) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    return file.good();
}

}  // namespace

std::optional<std::vector<std::uint8_t>> readWholeFile(const fs::path& path) {
    return readAll<std::vector<std::uint8_t>>(path);
}

std::optional<std::string> readWholeText(const fs::path& path) { return readAll<std::string>(path); }

bool writeWholeFile(const fs::path& path, std::span<const std::uint8_t> bytes) {
    return writeWholeText(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

bool writeWholeText(const fs::path& path, std::string_view text) {
    std::error_code failure;
    if (fs::exists(path, failure) && !fs::is_regular_file(path, failure))
        return writeAll(path, text);  // a pipe or a device must stay one
    fs::path fresh = path;
    fresh += ".new";
    const bool isWritten = writeAll(fresh, text);
    if (isWritten) fs::rename(fresh, path, failure);
    if (isWritten && !failure) return true;
    fs::remove(fresh, failure);
    return false;
}

}  // namespace grub
