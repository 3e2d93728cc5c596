#include <cstdio>
#include <string>

#include "command.h"
#include "command_lists.h"
#include "package_files.h"
#include "package_verifier.h"

namespace grub {
namespace {

PackageContents open(const std::string& path) {
    std::string fault;
    auto contents = readPackageContents(path, fault);
    if (!contents) failWith(kFailed, path + ": " + fault);
    return std::move(*contents);
}

void pack(const Arguments& arguments) {
    std::string fault;
    auto items = collectPackItems(arguments.text("DIR"), fault);
    if (!items) failWith(kFailed, arguments.text("PAK") + ": " + fault);
    const auto bytes = buildPackage(std::move(*items), fault);
    if (!bytes) failWith(kFailed, arguments.text("PAK") + ": " + fault);
    outputBytes(arguments.text("PAK"), *bytes);
}

void list(const Arguments& arguments) {
    const PackageContents contents = open(arguments.text("PAK"));
    for (const PackageEntry& entry : contents.entries) {
        std::printf("%u %.*s\n", entry.extent.size, static_cast<int>(entry.name.size()), entry.name.data());
    }
}

void extract(const Arguments& arguments) {
    std::string fault;
    if (!extractPackage(open(arguments.text("PAK")), arguments.text("DIR"), fault))
        failWith(kFailed, arguments.text("PAK") + ": " + fault);
}

void verify(const Arguments& arguments) {
    const std::string package = arguments.text("PAK");
    bool isSound = true;
    const std::filesystem::path directory = std::filesystem::path(package).parent_path();
    for (const PackageFinding& finding : verifyPackage(open(package), directory)) {
        std::fprintf(stderr, "%s: %s%s%s\n", package.c_str(), finding.isWarning ? "warning: " : "",
                     finding.entry.empty() ? "" : (finding.entry + ": ").c_str(), finding.text.c_str());
        isSound = isSound && finding.isWarning;
    }
    if (!isSound) throw CommandEnd{};
}

}  // namespace

std::vector<Command> packCommands() {
    return {
        {"pack",
         "Pack the files of DIR into PAK",
         {word("DIR", "directory of resources"), word("PAK", "package file to write")},
         pack},
        {"list", "Print size and name of each resource", {word("PAK", "package file")}, list},
        {"extract",
         "Write the resources of PAK to files below DIR",
         {word("PAK", "package file"), word("DIR", "directory to write to; it is made if need be")},
         extract},
        {"verify",
         "Check structure and contents; exit code 1 and a line for each fault",
         {word("PAK", "package file")},
         verify},
    };
}

}  // namespace grub
