#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "block_palette.h"
#include "block_table.h"
#include "command.h"
#include "command_lists.h"
#include "level_checks.h"
#include "level_compiler.h"
#include "level_file.h"
#include "level_loader.h"
#include "level_picture.h"
#include "level_text.h"
#include "picture_book.h"
#include "table_source.h"

namespace grub {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// About one bucket for each key of the block table.
constexpr std::uint32_t kTableBuckets = 3000;

[[noreturn]] void failAt(const std::string& file, const TextError& error) { failWith(kFailed, error.in(file)); }

/// The block table that belongs to a level: the one given, else the nearest typeblok.ini in the level's folder or
/// above.
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

BlockPalette paletteOf(const TableSource& table) { return BlockPalette(IniTable(table.buffer(), kTableBuckets)); }

Bytes compiled(const std::string& source, const TableSource& table) {
    TextError error;
    auto level = compileLevel(inputText(source), paletteOf(table), error);
    if (!level) failAt(source, error);
    return std::move(*level);
}

LevelFile parsed(const std::string& name, const Bytes& bytes) {
    std::string reason;
    auto level = readLevelFile(bytes, reason);
    if (!level) failWith(kFailed, name + ": " + reason);
    return std::move(*level);
}

void compile(const Arguments& arguments) {
    const std::string source = arguments.text("SOURCE");
    const std::string out = arguments.text("OUT");
    const TableSource table(inputBytes(blocksFor(arguments, source)));
    const Bytes level = compiled(source, table);
    for (const std::string& warning : levelWarnings(parsed(out, level), paletteOf(table)))
        std::fprintf(stderr, "%s: warning: %s\n", source.c_str(), warning.c_str());
    outputBytes(out, level);
}

void show(const Arguments& arguments) {
    const std::string file = arguments.text("FILE");
    const LevelFile level = parsed(file, inputBytes(file));
    std::fputs(showLevel(level, paletteOf(TableSource(inputBytes(blocksFor(arguments, file))))).c_str(), stdout);
}

void picture(const Arguments& arguments) {
    const std::string file = arguments.text("FILE");
    TableSource table(inputBytes(blocksFor(arguments, file)));
    const bool isSource = std::filesystem::path(file).extension() == ".txt";
    const Bytes bytes = isSource ? compiled(file, table) : inputBytes(file);
    LevelLoader loader(table);
    loader.loadBlockTypes();
    addListedSpriteNumbers(loader.spriteNumbers());
    std::string reason;
    const auto map = loader.build(parsed(file, bytes), reason);
    if (!map) failWith(kFailed, file + ": " + reason);
    PictureBook book(arguments.text("--art"));
    const std::string out = arguments.text("OUT");
    if (!writePng(out, drawLevel(*map, book))) failWith(kFailed, out + ": cannot be written");
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
