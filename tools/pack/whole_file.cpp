#include "whole_file.h"

#include <fstream>
#include <iterator>

namespace grub {

std::optional<std::vector<std::uint8_t>> readWholeFile(const std::filesystem::path& path) {
    std::error_code problem;
    const auto size = std::filesystem::file_size(path, problem);
    std::ifstream file(path, std::ios::binary);
    if (problem || !file) return std::nullopt;
    std::vector<std::uint8_t> bytes(size);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
    if (!file) return std::nullopt;
    return bytes;
}

bool writeWholeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (file) return true;
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    return false;
}

}  // namespace grub
