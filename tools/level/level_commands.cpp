#include "level_commands.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "block_palette.h"
#include "block_table.h"
#include "command.h"
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

struct Arguments {
    std::string input;
    std::string output;
    std::string blocks;
    std::string art;
};

[[noreturn]] void failAt(const std::string& file, const TextError& error) { failWith(kFailed, error.in(file)); }

/// The block table that belongs to a level: the one given, else the nearest typeblok.ini in the level's folder or
/// above.
std::string blocksFor(const Arguments& arguments) {
    if (!arguments.blocks.empty()) return arguments.blocks;
    std::filesystem::path folder = std::filesystem::absolute(arguments.input).parent_path();
    while (!std::filesystem::exists(folder / "typeblok.ini")) {
        if (folder == folder.root_path())
            failWith(kFailed, arguments.input + ": no typeblok.ini in its folder or above; give --blocks FILE");
        folder = folder.parent_path();
    }
    return (folder / "typeblok.ini").string();
}

BlockPalette paletteOf(const TableSource& table) { return BlockPalette(IniTable(table.buffer(), kTableBuckets)); }

Bytes compiled(const Arguments& arguments, const TableSource& table) {
    TextError error;
    auto level = compileLevel(inputText(arguments.input), paletteOf(table), error);
    if (!level) failAt(arguments.input, error);
    return std::move(*level);
}

LevelFile parsed(const std::string& name, const Bytes& bytes) {
    std::string reason;
    auto level = readLevelFile(bytes, reason);
    if (!level) failWith(kFailed, name + ": " + reason);
    return std::move(*level);
}

void compile(const Arguments& arguments) {
    const TableSource table(inputBytes(blocksFor(arguments)));
    const Bytes level = compiled(arguments, table);
    for (const std::string& warning : levelWarnings(parsed(arguments.output, level), paletteOf(table)))
        std::fprintf(stderr, "%s: warning: %s\n", arguments.input.c_str(), warning.c_str());
    outputBytes(arguments.output, level);
}

void show(const Arguments& arguments) {
    const LevelFile level = parsed(arguments.input, inputBytes(arguments.input));
    std::fputs(showLevel(level, paletteOf(TableSource(inputBytes(blocksFor(arguments))))).c_str(), stdout);
}

void picture(const Arguments& arguments) {
    TableSource table(inputBytes(blocksFor(arguments)));
    const bool isSource = std::filesystem::path(arguments.input).extension() == ".txt";
    const Bytes bytes = isSource ? compiled(arguments, table) : inputBytes(arguments.input);
    LevelLoader loader(table);
    loader.loadBlockTypes();
    addListedSpriteNumbers(loader.spriteNumbers());
    std::string reason;
    const auto map = loader.build(parsed(arguments.input, bytes), reason);
    if (!map) failWith(kFailed, arguments.input + ": " + reason);
    PictureBook book(arguments.art);
    if (!writePng(arguments.output, drawLevel(*map, book))) failWith(kFailed, arguments.output + ": cannot be written");
}

void blocks(const Arguments& arguments) {
    TextError error;
    const auto packed = packBlockTable(inputText(arguments.input), error);
    if (!packed) failAt(arguments.input, error);
    outputText(arguments.output, *packed);
}

}  // namespace

void addLevelCommands(CLI::App& app) {
    CLI::App* const level = app.add_subcommand("level", "Compile, show and draw levels");
    level->require_subcommand(1);
    const auto add = [level](const char* name, const char* purpose, const char* input,
                             void (*command)(const Arguments&)) {
        const auto arguments = std::make_shared<Arguments>();
        CLI::App* const sub = level->add_subcommand(name, purpose);
        sub->add_option(input, arguments->input, "file to read")->required();
        sub->callback([=] { command(*arguments); });
        return std::pair(sub, arguments);
    };
    const auto wantOutput = [](const auto& command, const char* name) {
        command.first->add_option(name, command.second->output, "file to write")->required();
    };
    const auto takeBlocks = [](const auto& command) {
        command.first->add_option("--blocks", command.second->blocks, "block table; else typeblok.ini near the level");
    };

    const auto compiling = add("compile", "Make the .lvl file of a level source", "SOURCE", compile);
    wantOutput(compiling, "OUT.lvl");
    takeBlocks(compiling);
    takeBlocks(add("show", "Print a .lvl file of any version as a level source", "FILE.lvl", show));
    const auto drawing = add("picture", "Draw a .lvl file or a level source (.txt)", "FILE", picture);
    wantOutput(drawing, "OUT.png");
    takeBlocks(drawing);
    drawing.first->add_option("--art", drawing.second->art, "folder of rendered pictures; without it plain colours");
    wantOutput(add("blocks", "Check a block table and give its lines the ends the game wants", "SOURCE.ini", blocks),
               "OUT.ini");
}

}  // namespace grub
