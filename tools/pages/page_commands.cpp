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

/// All faults but the last go to standard error; the last one ends the command.
void failWhen(const std::vector<std::string>& faults) {
    for (const std::string& fault : faults) std::fprintf(stderr, "%s\n", fault.c_str());
    if (!faults.empty()) throw CommandEnd{};
}

/// The folder that a command writes to; makes it when there is none.
std::filesystem::path folderOf(const Arguments& arguments) {
    const std::filesystem::path folder = arguments.text("DIR");
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    return folder;
}

void describe(const Arguments& arguments) {
    const PageSource source = sourceOf(arguments);
    std::vector<std::string> faults = pageFaults(source);
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
    if (!writePng(arguments.text("OUT"), ground)) failWith(kFailed, arguments.text("OUT") + ": cannot be written");
    failWhen(faults);
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
         {kInterface, word("OUT", "file to write"),
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
        {"layout fonts",
         "Draw the fonts of an interface, with their tables",
         {kInterface, word("DIR", "folder to write to")},
         fonts},
    };
}

}  // namespace grub
