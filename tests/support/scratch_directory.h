#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace grub {

/// A fresh empty directory that goes away, with all it holds, at the end of the scope.
class ScratchDirectory {
public:
    ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;
    ~ScratchDirectory();

    /// Where it lies; no other one, of this program or another, has the same path.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// Path of a file in here, whether it exists or not.
    [[nodiscard]] std::string file(const std::string& name) const { return (path_ / name).string(); }
    /// Writes a file, making the folders it lies in; returns its path.
    std::string write(const std::string& name, std::span<const std::uint8_t> bytes) const;
    /// The bytes of a file; none when it is not there.
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
