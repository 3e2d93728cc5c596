#include "game_file.h"

#include <algorithm>
#include <filesystem>

#include "game_text.h"
#include "level_list.h"
#include "whole_file.h"

namespace grub {

namespace fs = std::filesystem;

std::optional<RecordedGame> loadGame(const std::string& path, std::string& error) {
    const auto text = readWholeText(path);
    TextError fault{.message = "cannot be read"};
    auto game = text ? readGame(*text, fault) : std::nullopt;
    if (!game) error = fault.in(path);
    return game;
}

std::optional<std::string> levelFileOf(const RecordedGame& game, const std::string& gamePath) {
    if (std::ranges::find(kLevelNames, game.level) != kLevelNames.end()) return std::nullopt;
    return (fs::path(gamePath).parent_path() / game.level).string();
}

}  // namespace grub
