#include "play_content.h"

#include <filesystem>

#include "block_palette.h"
#include "frame_counts.h"
#include "game_file.h"
#include "host.h"
#include "level_compiler.h"
#include "level_file.h"
#include "level_list.h"
#include "table_source.h"
#include "whole_file.h"

namespace grub {

namespace {

constexpr const char* kPictures = "data64.pak";
constexpr const char* kLevels = "levels.pak";

/// About one bucket for each key of the block table.
constexpr std::uint32_t kTableBuckets = 3000;

bool isThere(const std::string& package) {
    return std::filesystem::exists(package) || std::filesystem::exists(platform::dataDirectory() + "/" + package);
}

}  // namespace

bool isLevelSource(const std::string& path) { return path.ends_with(".txt"); }

std::unique_ptr<PlayContent> PlayContent::open(const std::string& dataDirectory, std::string& error) {
    if (!dataDirectory.empty()) platform::setDataDirectory(dataDirectory);
    for (const char* package : {kPictures, kLevels}) {
        if (isThere(package)) continue;
        error = platform::dataDirectory() + "/" + package + ": there is no such file";
        return nullptr;
    }
    return std::unique_ptr<PlayContent>(new PlayContent);
}

PlayContent::PlayContent()
    : pictures_(kPictures), levels_(kLevels), loader_(levels_), counts_(frameCountsOf(pictures_)) {
    loader_.loadBlockTypes();
    addListedSpriteNumbers(loader_.spriteNumbers());
}

std::optional<LevelMap> PlayContent::mapOf(const RecordedGame& game, const std::string& gamePath, std::string& error) {
    const auto file = levelFileOf(game, gamePath);
    return file ? mapOfFile(*file, error) : loader_.load(game.level, error);
}

std::optional<LevelMap> PlayContent::mapOfFile(const std::string& path, std::string& error) {
    std::optional<std::vector<std::uint8_t>> bytes;
    if (isLevelSource(path)) {
        bytes = compile(path, error);
        if (!bytes) return std::nullopt;
    } else {
        bytes = readWholeFile(path);
    }
    std::string reason = "cannot be read";
    const auto level = bytes ? readLevelFile(*bytes, reason) : std::nullopt;
    auto map = level ? loader_.build(*level, reason) : std::nullopt;
    if (!map) error = path + ": " + reason;
    return map;
}

std::optional<std::vector<std::uint8_t>> PlayContent::compile(const std::string& sourcePath, std::string& error) {
    const auto text = readWholeText(sourcePath);
    TextError fault{.message = "cannot be read"};
    const BlockPalette palette(IniTable(levels_.load(EngineString(kBlockTableName)), kTableBuckets));
    auto level = text ? compileLevel(*text, palette, fault) : std::nullopt;
    if (!level) error = fault.in(sourcePath);
    return level;
}

std::optional<World> PlayContent::worldOf(const RecordedGame& game, const std::string& gamePath, std::string& error) {
    auto map = mapOf(game, gamePath, error);
    if (!map) return std::nullopt;
    World world(std::move(*map), game.start, counts_);
    world.step();
    return world;
}

}  // namespace grub
