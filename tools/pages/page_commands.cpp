#include <filesystem>
#include <string>
#include <vector>

#include "command.h"
#include "command_lists.h"
#include "font_files.h"
#include "layout_text.h"
#include "page_checks.h"
#include "page_folder.h"
#include "page_picture.h"
#include "page_source.h"
#include "page_states.h"
#include "state_picture.h"
#include "whole_file.h"

namespace grub {

namespace {

std::optional<std::string> textOf(const std::string& file) {
    const auto bytes = readWholeFile(file);
    if (!bytes) return std::nullopt;
    return std::string(bytes->begin(), bytes->end());
}

PageSource sourceOf(const Arguments& arguments) {
    std::string error;
    auto source = readPageSource(arguments.text("INTERFACE"), textOf, error);
    if (!source) failWith(kFailed, error);
    return std::move(*source);
}

std::vector<PageState> statesOf(const std::string& file) {
    std::string error;
    auto states = readPageStates(file, textOf, error);
    if (!states) failWith(kFailed, error);
    return std::move(*states);
}

/// Faults go to standard error and end the command.
void failWhen(const std::vector<std::string>& faults) {
    for (const std::string& fault : faults) std::fprintf(stderr, "%s\n", fault.c_str());
    if (!faults.empty()) throw CommandEnd{};
}

/// The folder that a command writes to; makes it when there is none.
std::filesystem::path folderOf(const Arguments& arguments) {
    std::filesystem::path folder = arguments.text("DIR");
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    return folder;
}

void describe(const Arguments& arguments) {
    const PageSource source = sourceOf(arguments);
    std::vector<std::string> faults = pageFaults(source);
    if (arguments.has("--states")) checkStates(source, statesOf(arguments.text("--states")), faults);
    if (arguments.has("--pictures")) tidyPictures(source, arguments.text("--pictures"), faults);
    failWhen(faults);
    outputText(arguments.text("OUT"), layoutText(source));
}

/// Writes all pictures even when there are faults, so that they can be looked at.
void draw(const Arguments& arguments) {
    const PageSource source = sourceOf(arguments);
    const std::filesystem::path folder = folderOf(arguments);
    const std::string page = arguments.text("PAGE");
    std::vector<std::string> faults;
    for (const PagePicture& picture : source.pictures) {
        if (picture.element.place.page() != page) continue;
        const auto bytes = pictureFile(picture, drawPicture(picture, faults), faults);
        outputBytes((folder / picture.element.file).string(), bytes);
    }
    failWhen(faults);
}

void writePicture(const std::string& file, const PixelImage& image) {
    if (!writePng(file, image)) failWith(kFailed, file + ": cannot be written");
}

/// Over the colour of the menu's wall.
void drawOne(const Arguments& arguments) {
    const PageSource source = sourceOf(arguments);
    const std::string file = arguments.text("FILE");
    const PagePicture* picture = source.picture(file);
    if (picture == nullptr) failWith(kFailed, file + ": no page shows it");
    std::vector<std::string> faults;
    PixelImage drawn = drawPicture(*picture, faults);
    PixelImage ground(drawn.width, drawn.height);
    ground.pixels.assign(ground.pixels.size(), Pixel{45, 54, 90, 255});
    layOver(ground, drawn, 0, 0);
    writePicture(arguments.text("OUT"), ground);
    failWhen(faults);
}

/// One state, or all of them.
void show(const Arguments& arguments) {
    std::string error;
    StateArtist artist(arguments.text("--data"), error);
    if (!error.empty()) failWith(kFailed, error);
    const std::string wanted = arguments.text("NAME");
    const bool all = arguments.has("--states");
    if (all == arguments.has("OUT")) failWith(kFailed, "give NAME and OUT, or --states DIR");
    const std::filesystem::path folder = arguments.text("--states");
    std::error_code ignored;
    if (all) std::filesystem::create_directories(folder, ignored);
    bool found = all;
    for (const PageState& state : statesOf(arguments.text("STATES"))) {
        if (all) writePicture((folder / (state.name + ".png")).string(), artist.draw(state));
        if (all || state.name != wanted) continue;
        writePicture(arguments.text("OUT"), artist.draw(state));
        found = true;
    }
    if (!found) failWith(kFailed, wanted + ": there is no such state");
}

void fonts(const Arguments& arguments) {
    const std::filesystem::path folder = folderOf(arguments);
    for (const FontKey& key : sourceOf(arguments).fonts()) {
        if (!isKnownFont(key)) failWith(kFailed, key.text() + ": there is no such font");
        const FontFiles files = drawFont(key);
        outputBytes((folder / (key.text() + ".bmp")).string(), bmpBytes(files.picture));
        outputBytes((folder / (key.text() + ".bmp.dat")).string(), files.table);
    }
}

}  // namespace

std::vector<Command> pageCommands() {
    constexpr Parameter kInterface = word("INTERFACE", "text of the interface, such as content/pages/make_m64.txt");
    return {
        {"layout", "Make the menus, dialogs and comics from their texts", {}, nullptr},
        {"layout describe",
         "Check the pages, and write the description that the game reads",
         {kInterface, word("OUT", "file to write"), option("--states", "text of the states, which are checked too"),
          option("--pictures", "folder of the pictures: each must be there, and others are removed")},
         describe},
        {"layout draw",
         "Draw the pictures of one page, and say which words do not fit",
         {kInterface, word("PAGE", "page, such as start_menu"), word("DIR", "folder to write to")},
         draw},
        {"layout picture",
         "Draw one picture as a PNG file to look at",
         {kInterface, word("FILE", "picture, such as title.bmp"), word("OUT", "PNG file to write")},
         drawOne},
        {"layout show",
         "Draw what the player sees, as the game draws it from its packages",
         {word("STATES", "text of the states, such as content/pages/states.txt"),
          {.name = "NAME", .help = "state", .isRequired = false},
          {.name = "OUT", .help = "PNG file to write", .isRequired = false},
          option("--states", "draw all states into this folder"),
          option("--data", "folder of the packages", true)},
         show},
        {"layout fonts",
         "Draw the fonts of an interface, with their tables",
         {kInterface, word("DIR", "folder to write to")},
         fonts},
    };
}

}  // namespace grub
