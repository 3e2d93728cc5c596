#pragma once

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <system_error>
#include <vector>

namespace grub {

/// A new empty directory. The destructor removes it with all its files.
class ScratchDirectory {
public:
    ScratchDirectory() {
        std::string pattern = (std::filesystem::temp_directory_path() / "grub-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;
    ~ScratchDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    /// No other scratch directory, of this or another program, has the same path.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// The path of a file in this directory, whether the file exists or not.
    [[nodiscard]] std::string file(const std::string& name) const { return (path_ / name).string(); }
    /// Writes a file, with the folders on its way; returns its path.
    std::string write(const std::string& name, std::span<const std::uint8_t> bytes) const {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return file(name);
    }
    /// The bytes of a file; none when it does not exist.
    [[nodiscard]] std::vector<std::uint8_t> read(const std::string& name) const {
        std::ifstream source(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(source), std::istreambuf_iterator<char>()};
    }

private:
    std::filesystem::path path_;
};

}  // namespace grub
