#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace grub {

/// A new empty directory. The destructor removes it with all its files.
class ScratchDirectory {
public:
    ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;
    ~ScratchDirectory();

    /// No other scratch directory, of this or another program, has the same path.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// The path of a file in this directory, whether the file exists or not.
    [[nodiscard]] std::string file(const std::string& name) const { return (path_ / name).string(); }
    /// Writes a file, with the folders on its way; returns its path.
    std::string write(const std::string& name, std::span<const std::uint8_t> bytes) const;
    /// The bytes of a file; none when it does not exist.
    [[nodiscard]] std::vector<std::uint8_t> read(const std::string& name) const;

private:
    std::filesystem::path path_;
};

/// While it lives, relative paths start in `directory`.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const std::filesystem::path& directory);
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;
    ~WorkingDirectory();

private:
    std::filesystem::path before_;
};

}  // namespace grub
