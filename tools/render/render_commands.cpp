#include <algorithm>
#include <atomic>
#include <filesystem>
#include <iostream>
#include <thread>

#include "all_strips.h"
#include "command.h"
#include "command_lists.h"
#include "whole_file.h"

namespace grub {

namespace {

const StripDrawing& wanted(const std::string& name) {
    const StripDrawing* strip = findStrip(name);
    if (strip == nullptr) failWith(kFailed, name + ": there is no such strip");
    return *strip;
}

bool renderFile(const StripDrawing& strip, const std::filesystem::path& path) {
    std::error_code ignored;
    if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path(), ignored);
    return writeWholeFile(path, bmpBytes(renderStrip(strip)));
}

void list(const Arguments&) {
    for (const StripDrawing& strip : allStrips()) std::cout << strip.name << '\n';
}

void renderOne(const Arguments& arguments) {
    const std::string file = arguments.text("FILE");
    if (!renderFile(wanted(arguments.text("NAME")), file)) failWith(kFailed, file + ": cannot be written");
}

/// Each thread draws one strip after another; the files do not depend on which thread drew them.
void renderAll(const Arguments& arguments) {
    const std::string directory = arguments.text("DIR");
    const auto& strips = allStrips();
    std::atomic<std::size_t> next{0};
    std::atomic<bool> good{true};
    const auto work = [&] {
        for (std::size_t i = next++; i < strips.size(); i = next++) {
            std::string file(strips[i].name);
            std::replace(file.begin(), file.end(), '\\', '/');
            if (!renderFile(strips[i], std::filesystem::path(directory) / (file + ".bmp"))) good = false;
        }
    };
    {
        std::vector<std::jthread> threads;
        for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i) threads.emplace_back(work);
    }
    if (!good) failWith(kFailed, directory + ": cannot be written below");
}

void renderSheet(const Arguments& arguments) {
    std::vector<const StripDrawing*> strips;
    for (const std::string& name : arguments.texts("NAMES")) strips.push_back(&wanted(name));
    if (strips.empty()) {
        for (const StripDrawing& strip : allStrips()) strips.push_back(&strip);
    }
    const std::string file = arguments.text("FILE");
    if (!writePng(file, contactSheet(strips, arguments.number("--zoom", 2))))
        failWith(kFailed, file + ": cannot be written");
}

}  // namespace

std::vector<Command> renderCommands() {
    return {
        {"render", "Draw the game's pictures", {}, nullptr},
        {"render list", "Print the name of every strip", {}, list},
        {"render strip",
         "Draw one strip as a BMP file",
         {word("NAME", "strip, such as grub\\ani_01"), word("FILE", "BMP file to write")},
         renderOne},
        {"render all", "Draw every strip into a directory", {word("DIR", "directory to write to")}, renderAll},
        {"render sheet",
         "Lay strips out on a sheet, frame by frame",
         {word("FILE", "PNG file to write"), words("NAMES", "strips; without a name, all of them", false),
          number("--zoom", "how many times as large, 2 if not given", 1, 8)},
         renderSheet},
    };
}

}  // namespace grub
