#include "data_files.h"

#include <filesystem>
#include <system_error>

#include "host.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

/// The directory the user asked for; empty when there is none.
std::string& askedFor() {
    static auto* directory = new std::string;
    return *directory;
}

/// Beside the program's bin/ in a build tree, else where an installation puts the packages.
std::string comesWithProgram() {
    std::error_code failure;
    const fs::path program = fs::read_symlink("/proc/self/exe", failure);
    if (failure) return "data";
    const fs::path prefix = program.parent_path().parent_path();
    const fs::path beside = prefix / "data";
    return (fs::is_directory(beside, failure) ? beside : prefix / "share" / "grubaway").string();
}

const std::string& ownDataDirectory() {
    static const auto* directory = new std::string(comesWithProgram());
    return *directory;
}

bool isPackage(const fs::path& path) { return path.is_relative() && path.extension() == ".pak"; }

}  // namespace

void setDataDirectory(std::string directory) {
    while (directory.size() > 1 && directory.back() == '/') directory.pop_back();
    askedFor() = std::move(directory);
}

const std::string& dataDirectory() { return askedFor().empty() ? ownDataDirectory() : askedFor(); }

std::vector<std::string> placesToReadFrom(const std::string& path) {
    if (!isPackage(path)) return {path};
    if (askedFor().empty()) return {path, ownDataDirectory() + "/" + path};
    return {askedFor() + "/" + path, path, ownDataDirectory() + "/" + path};
}

}  // namespace platform
