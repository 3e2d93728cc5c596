#include "scratch_directory.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace grub {
namespace fs = std::filesystem;

ScratchDirectory::ScratchDirectory() {
    std::string pattern = (fs::temp_directory_path() / "grub-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string ScratchDirectory::write(const std::string& name, std::span<const std::uint8_t> bytes) const {
    const fs::path target = path_ / name;
    fs::create_directories(target.parent_path());
    std::ofstream(target, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return target.string();
}

std::vector<std::uint8_t> ScratchDirectory::read(const std::string& name) const {
    std::ifstream source(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(source), std::istreambuf_iterator<char>()};
}

WorkingDirectory::WorkingDirectory(const fs::path& directory) : before_(fs::current_path()) {
    fs::current_path(directory);
}

WorkingDirectory::~WorkingDirectory() {
    std::error_code ignored;
    fs::current_path(before_, ignored);
}

}  // namespace grub
