#include "game_file.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "game_text.h"
#include "level_list.h"

namespace grub {

namespace fs = std::filesystem;

std::optional<std::string> readTextFile(const std::string& path) {
    std::error_code ignored;
    std::ifstream file(path, std::ios::binary);
    if (!file || fs::is_directory(path, ignored)) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

bool replaceTextFile(const std::string& path, const std::string& text) {
    const std::string fresh = path + ".new";
    std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    std::error_code failure;
    if (file) fs::rename(fresh, path, failure);
    if (file && !failure) return true;
    fs::remove(fresh, failure);
    return false;
}

std::optional<RecordedGame> loadGame(const std::string& path, std::string& error) {
    const auto text = readTextFile(path);
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
