#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "block_folder.h"
#include "block_table.h"
#include "command.h"
#include "command_lists.h"
#include "level_compiler.h"
#include "level_file.h"
#include "level_map.h"
#include "level_picture.h"
#include "loading_list.h"
#include "resource_source.h"
#include "whole_file.h"

namespace grub {
namespace {

using Bytes = std::vector<std::uint8_t>;

[[noreturn]] void failAt(const std::string& file, const TextError& error) { failWith(kFailed, error.in(file)); }

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

/// Picture files of a folder that is laid out as `data\gif` of the picture package, under the names of that package.
class PictureFolder final : public ResourceSource {
public:
    explicit PictureFolder(std::filesystem::path folder) : folder_(std::move(folder)) {}

    [[nodiscard]] bool exists(const EngineString& name) override { return std::filesystem::exists(fileOf(name)); }
    [[nodiscard]] SharedBuffer load(const EngineString& name) override {
        const auto bytes = readWholeFile(fileOf(name));
        if (!bytes) return {};
        SharedBuffer buffer = SharedBuffer::create(static_cast<std::uint32_t>(bytes->size()));
        if (!buffer.empty()) std::copy(bytes->begin(), bytes->end(), buffer.writableData());
        return buffer;
    }

private:
    [[nodiscard]] std::filesystem::path fileOf(const EngineString& name) const {
        std::string path(name.view().substr(kPictureFolder.size()));
        std::replace(path.begin(), path.end(), '\\', '/');
        return folder_ / path;
    }

    std::filesystem::path folder_;
};

void picture(const Arguments& arguments) {
    const std::string file = arguments.text("FILE");
    TableSource table(inputBytes(blocksFor(arguments, file)));
    const Bytes level = file.ends_with(".txt") ? compiled(file, table) : inputBytes(file);
    const LevelMap map = mapOf(file, level, table);
    const std::string art = arguments.text("--art");
    PictureFolder pictures(art);
    const LevelPicture drawn = drawLevelPicture(map, pictures);
    if (!drawn.missing.empty())
        std::fprintf(stderr, "%s: warning: lacks %zu pictures, the first is %s\n", art.c_str(), drawn.missing.size(),
                     drawn.missing.front().c_str());
    const std::string out = arguments.text("OUT");
    if (!writePng(out, drawn.image)) failWith(kFailed, out + ": cannot be written");
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
         "Draw a level as the game first shows it",
         {word("FILE", "level source (.txt) or .lvl file"), word("OUT", "PNG file to write"), kBlocks,
          option("--art", "folder of rendered pictures, as build/PRESET/content/data64/data/gif", true)},
         picture},
        {"level blocks",
         "Check a block table and make the one of the package",
         {word("SOURCE", "block table"), word("OUT", "block table to write")},
         blocks},
    };
}

}  // namespace grub
