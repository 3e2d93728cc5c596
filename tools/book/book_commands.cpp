#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "book_level.h"
#include "command.h"
#include "command_lists.h"
#include "curve_picture.h"
#include "difficulty.h"
#include "level_list.h"
#include "level_picture.h"
#include "level_table.h"
#include "page.h"
#include "play_content.h"

namespace grub {
namespace {

std::unique_ptr<PlayContent> contentFor(const Arguments& arguments) {
    std::string error;
    auto content = PlayContent::open(arguments.text("--data"), error);
    if (content == nullptr) failWith(kFailed, error);
    return content;
}

std::vector<BookLevel> bookOf(const Arguments& arguments, const PlayContent& content) {
    std::string error;
    auto book = openBook(arguments.text("LEVELS"), content.frameCounts(), error);
    if (!book) failWith(kFailed, error);
    return std::move(*book);
}

void writePicture(const std::filesystem::path& path, const PixelImage& image) {
    if (!writePng(path.string(), image)) failWith(kFailed, path.string() + ": cannot be written");
}

/// "07-turma-level10.png" for the level in place 7; names sort as levels are played.
std::string pageName(std::size_t index) {
    const std::string_view path = kLevelNames[index].substr(kLevelFolder.size());
    std::string name(path.substr(0, path.find('.')));
    std::ranges::replace(name, '\\', '-');
    return (index < 10 ? "0" : "") + std::to_string(index) + "-" + name + ".png";
}

void book(const Arguments& arguments) {
    const auto content = contentFor(arguments);
    const std::filesystem::path out = arguments.text("OUT_DIR");
    std::error_code ignored;  // a folder that is missing shows when the first page is written
    std::filesystem::create_directories(out, ignored);
    std::vector<PixelImage> tiles;
    std::size_t sheets = 0;
    const auto endSheet = [&] {
        if (tiles.empty()) return;
        writePicture(out / ("sheet" + std::to_string(++sheets) + ".png"), drawSheet(tiles));
        tiles.clear();
    };
    for (const BookLevel& entry : bookOf(arguments, *content)) {
        const PixelImage picture = drawLevelPicture(entry.level.map, content->pictures()).image;
        const WinPath path =
            entry.games.empty() ? WinPath{} : pathOfWin(entry.games.front(), entry.level.map, content->frameCounts());
        writePicture(out / pageName(entry.index), drawPage(entry, picture, path));
        tiles.push_back(drawTile(entry, picture, path));
        if (tiles.size() == kHallsOfASheet) endSheet();
    }
    endSheet();
}

/// The points of a world's curve; levels without a win have none.
std::vector<CurvePoint> curveOf(const std::vector<BookLevel>& book, std::string_view world) {
    std::vector<CurvePoint> points;
    for (const BookLevel& entry : book) {
        const auto difficulty = difficultyOf(entry);
        if (difficulty && worldOfLevel(entry.index).name == world) points.push_back({entry.index, *difficulty});
    }
    return points;
}

void table(const Arguments& arguments) {
    const auto content = contentFor(arguments);
    const std::vector<BookLevel> book = bookOf(arguments, *content);
    const std::filesystem::path out = arguments.text("OUT");
    const std::string name = out.stem().string();
    double top = 1;
    for (const BookLevel& entry : book) top = std::max(top, difficultyOf(entry).value_or(0));
    for (const LevelWorld& world : kLevelWorlds) {
        const std::vector<CurvePoint> points = curveOf(book, world.name);
        if (points.empty()) continue;
        writePicture(out.parent_path() / curveFile(name, world.name), drawCurve(worldTitle(world.name), points, top));
    }
    outputText(out.string(), levelTable(book, name));
}

}  // namespace

std::vector<Command> bookCommands() {
    constexpr Parameter kLevels = word("LEVELS", "folder of level sources and wins, as content/levels");
    constexpr Parameter kData = option("--data", "directory of the packages");
    return {{"level book",
             "Draw all levels with the ways of their wins, a page each, and sheets of nine",
             {kLevels, word("OUT_DIR", "folder to write PNG files to"), kData},
             book},
            {"level table",
             "Write the table of all levels' measures, and a picture of each world's difficulty beside it",
             {kLevels, word("OUT", "document to write"), kData},
             table}};
}

}  // namespace grub
