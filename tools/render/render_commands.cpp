#include <algorithm>
#include <atomic>
#include <filesystem>
#include <iostream>
#include <thread>

#include "board_sheet.h"
#include "command.h"
#include "command_lists.h"
#include "contact_sheet.h"
#include "figure_sheet.h"
#include "rooms.h"
#include "sample_page.h"
#include "sets_room.h"
#include "whole_file.h"

namespace grub {

namespace {

/// Samples a side of a page's pixel.
constexpr int kPageSamples = 2;

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

/// Where the game expects the strip below its folder of pictures.
std::filesystem::path fileOf(const StripDrawing& strip) {
    std::string file(strip.name);
    std::replace(file.begin(), file.end(), '\\', '/');
    return file + ".bmp";
}

/// Each thread draws one strip after another; the files do not depend on which thread drew them.
void renderInto(const std::filesystem::path& directory, std::span<const StripDrawing> strips) {
    std::atomic<std::size_t> next{0};
    std::atomic<bool> good{true};
    const auto work = [&] {
        for (std::size_t i = next++; i < strips.size(); i = next++) {
            if (!renderFile(strips[i], directory / fileOf(strips[i]))) good = false;
        }
    };
    {
        std::vector<std::jthread> threads;
        for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i) threads.emplace_back(work);
    }
    if (!good) failWith(kFailed, directory.string() + ": cannot be written below");
}

void renderAll(const Arguments& arguments) { renderInto(arguments.text("DIR"), allStrips()); }

/// A picture whose strip has gone would stay in the package.
void removeUnknown(const std::filesystem::path& directory) {
    std::vector<std::filesystem::path> known;
    for (const StripDrawing& strip : allStrips()) known.push_back(directory / fileOf(strip));
    std::ranges::sort(known);
    std::error_code ignored;
    std::vector<std::filesystem::path> unknown;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(directory, ignored)) {
        if (entry.path().extension() == ".bmp" && !std::ranges::binary_search(known, entry.path()))
            unknown.push_back(entry.path());
    }
    for (const auto& path : unknown) std::filesystem::remove(path, ignored);
}

void renderGroup(const Arguments& arguments) {
    const std::string name = arguments.text("NAME");
    const Room* room = findRoom(name);
    if (room == nullptr) failWith(kFailed, name + ": there is no such room");
    const std::filesystem::path directory = arguments.text("DIR");
    renderInto(directory, room->strips());
    removeUnknown(directory);
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

void renderFigure(const Arguments& arguments) {
    const std::string name = arguments.text("NAME");
    const FigureDrawing* figure = findFigure(name);
    if (figure == nullptr) failWith(kFailed, name + ": there is no such figure");
    const std::string file = arguments.text("FILE");
    if (!writePng(file, figureSheet(*figure, arguments.number("--percent", 100) / 100.0)))
        failWith(kFailed, file + ": cannot be written");
}

void renderSet(const Arguments& arguments) {
    const std::string name = arguments.text("NAME");
    const SetDrawing* set = findSet(name);
    if (set == nullptr) failWith(kFailed, name + ": there is no such set");
    Canvas canvas(set->width, set->height, kPageSamples);
    drawSet(canvas, *set, {0, 0, 1.0 * set->width, 1.0 * set->height});
    const std::string file = arguments.text("FILE");
    if (!writePng(file, canvas.picture())) failWith(kFailed, file + ": cannot be written");
}

/// Also says which words do not fit.
void renderBoards(const Arguments& arguments) {
    std::vector<std::string> faults;
    const std::string file = arguments.text("FILE");
    if (!writePng(file, boardSheet(arguments.number("--zoom", 1), faults)))
        failWith(kFailed, file + ": cannot be written");
    for (const std::string& fault : faults) std::cout << fault << '\n';
}

void renderSample(const Arguments& arguments) {
    const std::string file = arguments.text("FILE");
    bool wordsFit = false;
    if (!writePng(file, samplePage(wordsFit))) failWith(kFailed, file + ": cannot be written");
    if (!wordsFit) failWith(kFailed, file + ": words do not fit");
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
        {"render group",
         "Draw the strips of one room into a directory, and remove from it the pictures that no room has",
         {word("NAME", "room, such as enemies"), word("DIR", "directory to write to")},
         renderGroup},
        {"render sheet",
         "Lay strips out on a sheet, frame by frame",
         {word("FILE", "PNG file to write"), words("NAMES", "strips; without a name, all of them", false),
          number("--zoom", "how many times as large, 2 if not given", 1, 8)},
         renderSheet},
        {"render figure",
         "Draw a figure in all of its poses and expressions",
         {word("NAME", "figure, such as grub"), word("FILE", "PNG file to write"),
          number("--percent", "size, 100 if not given: as large as in play", 50, 1000)},
         renderFigure},
        {"render set",
         "Draw a place that pages show behind their figures",
         {word("NAME", "set, such as menu-wall"), word("FILE", "PNG file to write")},
         renderSet},
        {"render sample",
         "Draw a page with all figures and boards, to look at and to measure",
         {word("FILE", "PNG file to write")},
         renderSample},
        {"render boards",
         "Lay every kind of board out on a sheet, with words on it",
         {word("FILE", "PNG file to write"), number("--zoom", "how many times as large, 1 if not given", 1, 8)},
         renderBoards},
    };
}

}  // namespace grub
