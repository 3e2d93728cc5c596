#include "pack_commands.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <string>

#include "command.h"
#include "package_builder.h"
#include "package_contents.h"
#include "package_extractor.h"
#include "package_verifier.h"

namespace grub {
namespace {

struct Arguments {
    std::string package;
    std::string directory;
};

PackageContents open(const std::string& path) {
    std::string fault;
    auto contents = readPackageContents(path, fault);
    if (!contents) failWith(kFailed, path + ": " + fault);
    return std::move(*contents);
}

void pack(const Arguments& arguments) {
    std::string fault;
    auto items = collectPackItems(arguments.directory, fault);
    if (!items) failWith(kFailed, arguments.package + ": " + fault);
    const auto bytes = buildPackage(std::move(*items), fault);
    if (!bytes) failWith(kFailed, arguments.package + ": " + fault);
    outputBytes(arguments.package, *bytes);
}

void list(const Arguments& arguments) {
    const PackageContents contents = open(arguments.package);
    for (const PackageEntry& entry : contents.entries) {
        std::printf("%u %.*s\n", entry.extent.size, static_cast<int>(entry.name.size()), entry.name.data());
    }
}

void extract(const Arguments& arguments) {
    std::string fault;
    if (!extractPackage(open(arguments.package), arguments.directory, fault))
        failWith(kFailed, arguments.package + ": " + fault);
}

void verify(const Arguments& arguments) {
    bool isSound = true;
    for (const PackageFinding& finding : verifyPackage(open(arguments.package))) {
        std::fprintf(stderr, "%s: %s%s%s\n", arguments.package.c_str(), finding.isWarning ? "warning: " : "",
                     finding.entry.empty() ? "" : (finding.entry + ": ").c_str(), finding.text.c_str());
        isSound = isSound && finding.isWarning;
    }
    if (!isSound) throw CLI::RuntimeError(kFailed);
}

}  // namespace

void addPackCommands(CLI::App& app) {
    const auto add = [&](const char* name, const char* purpose, void (*command)(const Arguments&)) {
        const auto arguments = std::make_shared<Arguments>();
        CLI::App* const sub = app.add_subcommand(name, purpose);
        sub->callback([=] { command(*arguments); });
        return std::pair(sub, arguments);
    };
    const auto wantPackage = [](const auto& command) {
        command.first->add_option("PAK", command.second->package, "package file")->required();
    };
    const auto wantDirectory = [](const auto& command) {
        command.first->add_option("DIR", command.second->directory, "directory of resources")->required();
    };

    const auto packing = add("pack", "Pack the files of DIR into PAK", pack);
    wantDirectory(packing);
    wantPackage(packing);
    wantPackage(add("list", "Print size and name of each resource", list));
    const auto extracting = add("extract", "Write the resources of PAK to files below DIR", extract);
    wantPackage(extracting);
    wantDirectory(extracting);
    wantPackage(add("verify", "Check structure, pictures and tables; exit code 1 and a line for each fault", verify));
}

}  // namespace grub
