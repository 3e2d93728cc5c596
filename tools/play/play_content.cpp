#include "play_content.h"

#include <filesystem>

#include "block_table.h"
#include "files/files.h"
#include "game_text.h"
#include "image_decoder.h"
#include "level_compiler.h"
#include "level_list.h"
#include "loading_list.h"
#include "text_lines.h"
#include "whole_file.h"

namespace grub {

namespace {

constexpr const char* kPictures = "data64.pak";
constexpr const char* kLevels = "levels.pak";

bool isThere(const std::string& package) {
    return std::filesystem::exists(package) || std::filesystem::exists(platform::dataDirectory() + "/" + package);
}

/// The frame counts that the game has once it has loaded these pictures.
AnimationFrameCounts frameCountsOf(ResourceSource& pictures) {
    AnimationFrameCounts counts;
    for (const LoadEntry& entry : loadingList()) {
        const EngineString file(entry.path().c_str());
        if (!pictures.exists(file)) continue;
        const auto picture = createImageDecoder(pictures.load(file));
        const int height = picture == nullptr ? 0 : picture->height();
        counts.set(entry.id, height / (entry.kind == LoadEntry::Kind::Block ? kCellSize : entry.frameHeight));
    }
    return counts;
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

PlayContent::PlayContent() : pictures_(kPictures), levels_(kLevels), counts_(frameCountsOf(pictures_)) {}

std::optional<LevelMap> PlayContent::mapOf(const RecordedGame& game, const std::string& gamePath, std::string& error) {
    const auto file = levelFileOf(game, gamePath);
    if (file) return mapOfFile(*file, error);
    const EngineString name(game.level.c_str());
    std::string reason = "there is no such file";
    auto map = levels_.exists(name) ? levelMapOf(levels_.load(name).bytes(), levels_, reason) : std::nullopt;
    if (!map) error = game.level + ": " + reason;
    return map;
}

std::optional<LevelMap> PlayContent::mapOfFile(const std::string& path, std::string& error) {
    const auto bytes = isLevelSource(path) ? compile(path, error) : readWholeFile(path);
    if (!bytes && isLevelSource(path)) return std::nullopt;
    std::string reason = "cannot be read";
    auto map = bytes ? levelMapOf(*bytes, levels_, reason) : std::nullopt;
    if (!map) error = path + ": " + reason;
    return map;
}

std::optional<std::vector<std::uint8_t>> PlayContent::compile(const std::string& sourcePath, std::string& error) {
    const auto text = readWholeText(sourcePath);
    TextError fault{.message = "cannot be read"};
    const BlockPalette palette(levels_.load(EngineString(kBlockTableName)));
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

std::optional<AnimationFrameCounts> readFrameCounts(std::string_view text, TextError& error) {
    auto counts = AnimationFrameCounts::all(kUsualFrames);
    for (const TextLine& line : textLines(text)) {
        WordReader words(line);
        const int id = words.number("an animation from 0 to 399", 0, kAnimationIds - 1);
        const auto count = words.number<std::uint16_t>("a frame count from 0 to 65535");
        words.finish();
        if (!words.ok()) {
            error = words.error();
            return std::nullopt;
        }
        counts.set(id, count);
    }
    return counts;
}

}  // namespace grub
