#include <algorithm>
#include <atomic>
#include <filesystem>
#include <iostream>
#include <thread>

#include "bmp_file.h"
#include "command.h"
#include "command_lists.h"
#include "contact_sheet.h"
#include "label_pictures.h"
#include "picture_registry.h"
#include "strip.h"
#include "whole_file.h"

namespace grub {

namespace {

const PictureEntry& wanted(const std::string& name) {
    const PictureEntry* entry = findPicture(name);
    if (entry == nullptr) failWith(kFailed, name + ": there is no such picture");
    return *entry;
}

bool renderFile(const PictureEntry& entry, const std::filesystem::path& path) {
    std::error_code ignored;
    if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path(), ignored);
    return writeWholeFile(path, bmpBytes(renderStrip(entry)));
}

void list(const Arguments& arguments) {
    for (const PictureEntry& entry : allPictures()) {
        if (!arguments.has("--labels") || isLabel(entry)) std::cout << entry.name << '\n';
    }
}

void renderOne(const Arguments& arguments) {
    const std::string file = arguments.text("FILE");
    if (!renderFile(wanted(arguments.text("NAME")), file)) failWith(kFailed, file + ": cannot be written");
}

/// One picture a thread at a time; which thread draws what does not show in the files.
void renderAll(const Arguments& arguments) {
    const std::string directory = arguments.text("DIR");
    const auto& pictures = allPictures();
    std::atomic<std::size_t> next{0};
    std::atomic<bool> good{true};
    const auto work = [&] {
        for (std::size_t i = next++; i < pictures.size(); i = next++) {
            std::string file(pictures[i].name);
            std::replace(file.begin(), file.end(), '\\', '/');
            if (!renderFile(pictures[i], std::filesystem::path(directory) / (file + ".bmp"))) good = false;
        }
    };
    {
        std::vector<std::jthread> threads;
        for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i) threads.emplace_back(work);
    }
    if (!good) failWith(kFailed, directory + ": cannot be written below");
}

void renderSheet(const Arguments& arguments) {
    std::vector<const PictureEntry*> entries;
    for (const std::string& name : arguments.texts("NAMES")) entries.push_back(&wanted(name));
    if (entries.empty()) {
        for (const PictureEntry& entry : allPictures()) entries.push_back(&entry);
    }
    const std::string file = arguments.text("FILE");
    if (!writePng(file, contactSheet(entries, arguments.number("--zoom", 2))))
        failWith(kFailed, file + ": cannot be written");
}

}  // namespace

std::vector<Command> renderCommands() {
    return {
        {"render", "Draw the game's pictures", {}, nullptr},
        {"render list",
         "Print the name of every picture",
         {flag("--labels", "only the pictures that are still labels")},
         list},
        {"render picture",
         "Draw one strip as a BMP file",
         {word("NAME", "picture, such as grub\\ani_01"), word("FILE", "BMP file to write")},
         renderOne},
        {"render all", "Draw every strip into a directory", {word("DIR", "directory to write to")}, renderAll},
        {"render sheet",
         "Draw a contact sheet to look at",
         {word("FILE", "PNG file to write"), words("NAMES", "pictures; all of them if none is named", false),
          number("--zoom", "how many times as large, 2 if not given", 1, 8)},
         renderSheet},
    };
}

}  // namespace grub
