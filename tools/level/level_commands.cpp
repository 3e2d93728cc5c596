#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "block_table.h"
#include "command.h"
#include "command_lists.h"
#include "level_compiler.h"
#include "level_file.h"
#include "level_map.h"
#include "level_picture.h"

namespace grub {
namespace {

using Bytes = std::vector<std::uint8_t>;

[[noreturn]] void failAt(const std::string& file, const TextError& error) { failWith(kFailed, error.in(file)); }

/// The block table of a level: the one given, else the nearest typeblok.ini in the level's folder or above.
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

Bytes compiled(const std::string& source, const TableSource& table) {
    TextError error;
    auto level = compileLevel(inputText(source), BlockPalette(table.buffer()), error);
    if (!level) failAt(source, error);
    return std::move(*level);
}

void compile(const Arguments& arguments) {
    const std::string source = arguments.text("SOURCE");
    const std::string out = arguments.text("OUT");
    const TableSource table(inputBytes(blocksFor(arguments, source)));
    const Bytes level = compiled(source, table);
    std::string reason;
    for (const std::string& warning : levelWarnings(*readLevelFile(level, reason), BlockPalette(table.buffer())))
        std::fprintf(stderr, "%s: warning: %s\n", source.c_str(), warning.c_str());
    outputBytes(out, level);
}

/// The map of a level file; the command fails when the game would refuse the file.
LevelMap mapOf(const std::string& name, const Bytes& level, TableSource& table) {
    std::string reason;
    auto map = levelMapOf(level, table, reason);
    if (!map) failWith(kFailed, name + ": " + reason);
    return std::move(*map);
}

void show(const Arguments& arguments) {
    const std::string file = arguments.text("FILE");
    const Bytes level = inputBytes(file);
    TableSource table(inputBytes(blocksFor(arguments, file)));
    (void)mapOf(file, level, table);
    std::string reason;
    std::fputs(showLevel(*readLevelFile(level, reason), BlockPalette(table.buffer())).c_str(), stdout);
}

void picture(const Arguments& arguments) {
    const std::string file = arguments.text("FILE");
    TableSource table(inputBytes(blocksFor(arguments, file)));
    const Bytes level = file.ends_with(".txt") ? compiled(file, table) : inputBytes(file);
    const LevelMap map = mapOf(file, level, table);
    PictureBook book(arguments.text("--art"));
    const std::string out = arguments.text("OUT");
    if (!writePng(out, drawLevel(map, book))) failWith(kFailed, out + ": cannot be written");
}

void blocks(const Arguments& arguments) {
    const std::string source = arguments.text("SOURCE");
    TextError error;
    const auto packed = packBlockTable(inputText(source), error);
    if (!packed) failAt(source, error);
    outputText(arguments.text("OUT"), *packed);
}

}  // namespace

std::vector<Command> levelCommands() {
    constexpr Parameter kBlocks = option("--blocks", "block table; without it the typeblok.ini nearest to the level");
    return {
        {"level", "Compile, show and draw levels", {}, nullptr},
        {"level compile",
         "Make the .lvl file of a level source",
         {word("SOURCE", "level source"), word("OUT", ".lvl file to write"), kBlocks},
         compile},
        {"level show",
         "Print a .lvl file of any version as a level source",
         {word("FILE", ".lvl file"), kBlocks},
         show},
        {"level picture",
         "Draw a level as the game draws it at rest",
         {word("FILE", "level source (.txt) or .lvl file"), word("OUT", "PNG file to write"), kBlocks,
          option("--art", "folder of rendered pictures; without it cells are plain colours")},
         picture},
        {"level blocks",
         "Check a block table and give its lines the ends that the game wants",
         {word("SOURCE", "block table"), word("OUT", "block table to write")},
         blocks},
    };
}

}  // namespace grub
