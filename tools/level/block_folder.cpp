#include "block_folder.h"

#include <filesystem>

namespace grub {

std::string blocksFor(const Arguments& arguments, const std::string& level) {
    if (arguments.has("--blocks")) return arguments.text("--blocks");
    std::filesystem::path folder = std::filesystem::absolute(level).parent_path();
    while (!std::filesystem::exists(folder / "typeblok.ini")) {
        if (folder == folder.root_path())
            failWith(kFailed, level + ": no typeblok.ini in its folder or above; give --blocks FILE");
        folder = folder.parent_path();
    }
    return (folder / "typeblok.ini").string();
}

}  // namespace grub
