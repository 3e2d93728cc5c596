#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "block_table.h"
#include "level_compiler.h"
#include "level_file.h"
#include "level_list.h"
#include "level_loader.h"
#include "level_text.h"
#include "loading_list.h"
#include "memory_source.h"
#include "package_builder.h"
#include "run_grubtool.h"
#include "scratch_directory.h"
#include "whole_file.h"

namespace grub {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

const fs::path kLevels = fs::path(GRUB_CONTENT_DIR) / "levels";

std::string textOf(const fs::path& path) {
    const auto text = readWholeText(path);
    EXPECT_TRUE(text) << path;
    return text.value_or("");
}

/// Every level source of the game, under its name in the package.
std::vector<std::pair<std::string, fs::path>> levelSources() {
    std::vector<std::pair<std::string, fs::path>> sources;
    for (const auto& entry : fs::recursive_directory_iterator(kLevels))
        if (entry.path().extension() == ".txt")
            sources.emplace_back("levels\\" + entry.path().parent_path().filename().string() + "\\" +
                                     entry.path().stem().string() + ".lvl",
                                 entry.path());
    std::sort(sources.begin(), sources.end());
    return sources;
}

class LevelContent : public testing::Test {
protected:
    LevelContent() {
        TextError error;
        const auto packed = packBlockTable(textOf(kLevels / "typeblok.ini"), error);
        EXPECT_TRUE(packed) << "typeblok.ini:" << error.line << ": " << error.message;
        source_.put(std::string(kBlockTableName), packed.value_or(""));
        for (const LoadEntry& entry : loadingList())
            if (entry.spriteNumber != kNoSpriteNumber)
                loader_.spriteNumbers().addSpriteNumber(entry.spriteNumber, static_cast<std::int16_t>(entry.id));
        EXPECT_TRUE(loader_.loadBlockTypes());
    }

    BlockPalette palette() { return BlockPalette(IniTable(source_.load(EngineString(kBlockTableName)), 3000)); }

    Bytes compiled(const fs::path& path) {
        TextError error;
        const auto bytes = compileLevel(textOf(path), palette(), error);
        EXPECT_TRUE(bytes) << path << ":" << error.line << ": " << error.message;
        return bytes.value_or(Bytes());
    }

    MemorySource source_;
    LevelLoader loader_{source_};
};

TEST_F(LevelContent, FirstLevelsOfTheGameAreThere) {
    const auto sources = levelSources();
    for (const std::size_t index : {0, 1, 19})
        EXPECT_TRUE(std::any_of(sources.begin(), sources.end(), [&](const auto& source) {
            return source.first == kLevelNames[index];
        })) << kLevelNames[index];
}

TEST_F(LevelContent, EveryLevelHasAPlaceInTheGame) {
    for (const auto& [name, path] : levelSources())
        EXPECT_NE(std::find(kLevelNames.begin(), kLevelNames.end(), name), kLevelNames.end()) << name;
}

TEST_F(LevelContent, EveryLevelLoadsWithHeroKeysAndDoorAndAPictureForEveryCell) {
    for (const auto& [name, path] : levelSources()) {
        source_.put(name, compiled(path));
        std::string reason;
        const auto map = loader_.load(name, reason);
        ASSERT_TRUE(map) << reason;
        EXPECT_GE(map->keysRemaining(), 1) << name;
        int doors = 0;
        for (int y = 0; y < map->height(); ++y) {
            for (int x = 0; x < map->width(); ++x) {
                const MapCell& cell = map->cellAt(x, y);
                doors += cell.isExit ? 1 : 0;
                EXPECT_GE(cell.sprite, 0) << name << " " << x << " " << y;
                EXPECT_GE(std::min({cell.layer2Sprite, cell.layer3Sprite, cell.layer4Sprite, cell.layer5Sprite}), 0);
                if (cell.baseType == BlockType::Floor) {
                    EXPECT_GE(std::min(cell.fireSprite, cell.rostSprite), 0) << name << " " << x << " " << y;
                }
            }
        }
        EXPECT_GE(doors, 1) << name;
        EXPECT_EQ(map->cellAt(map->heroStart().x, map->heroStart().y).code, 8) << name;
    }
}

TEST_F(LevelContent, EveryLevelComesBackFromItsText) {
    for (const auto& [name, path] : levelSources()) {
        const Bytes bytes = compiled(path);
        std::string reason;
        const auto level = readLevelFile(bytes, reason);
        ASSERT_TRUE(level) << name << ": " << reason;
        TextError error;
        EXPECT_EQ(compileLevel(showLevel(*level, palette()), palette(), error), bytes) << name << ": " << error.message;
    }
}

TEST_F(LevelContent, TheLargestLevelScrollsBothWays) {
    std::string reason;
    const auto level = readLevelFile(compiled(kLevels / "turma" / "level22.txt"), reason);
    ASSERT_TRUE(level) << reason;
    EXPECT_GT(level->width, 13);
    EXPECT_GT(level->height, 9);
}

TEST(LevelCommands, MakeTheSamePackageTwice) {
    Bytes packages[2];
    for (Bytes& package : packages) {
        const ScratchDirectory scratch;
        fs::create_directories(scratch.path() / "levels" / "turma");
        for (const char* level : {"level22", "level01"})
            ASSERT_EQ(runGrubtool({"level", "compile", (kLevels / "turma" / level).string() + ".txt",
                                   scratch.file("levels/turma/") + level + ".lvl"}),
                      0);
        ASSERT_EQ(
            runGrubtool({"level", "blocks", (kLevels / "typeblok.ini").string(), scratch.file("levels/typeblok.ini")}),
            0);
        std::string fault;
        auto items = collectPackItems(scratch.path(), fault);
        ASSERT_TRUE(items) << fault;
        EXPECT_EQ(items->size(), 3U);
        package = buildPackage(std::move(*items), fault).value_or(Bytes());
    }
    EXPECT_FALSE(packages[0].empty());
    EXPECT_EQ(packages[0], packages[1]);
}

TEST(LevelCommands, DrawALevelSourceWith64PixelsACell) {
    const ScratchDirectory scratch;
    ASSERT_EQ(
        runGrubtool({"level", "picture", (kLevels / "turma" / "level01.txt").string(), scratch.file("level.png")}), 0);
    const Bytes png = scratch.read("level.png");
    ASSERT_GT(png.size(), 24U);
    const auto big = [&](std::size_t at) { return png[at] << 24 | png[at + 1] << 16 | png[at + 2] << 8 | png[at + 3]; };
    EXPECT_EQ(big(16), 13 * 64);
    EXPECT_EQ(big(20), 9 * 64);
}

TEST(LevelCommands, FailWithALineThatNamesTheFile) {
    const ScratchDirectory scratch;
    const std::string bad = scratch.write("bad.txt", Bytes{'x', '\n'});
    const std::string table = (kLevels / "typeblok.ini").string();
    const std::vector<std::vector<std::string>> commands = {
        {"level", "compile", bad, scratch.file("out.lvl"), "--blocks", table},
        {"level", "compile", bad, scratch.file("out.lvl"), "--blocks", scratch.file("none.ini")},
        {"level", "compile", scratch.file("none.txt"), scratch.file("out.lvl"), "--blocks", table},
        {"level", "show", bad, "--blocks", table},
        {"level", "picture", bad, scratch.file("out.png"), "--blocks", table},
        {"level", "blocks", bad, scratch.file("out.ini")},
    };
    for (const auto& command : commands) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(runGrubtool(command), 1) << command[1];
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
        EXPECT_TRUE(said.starts_with(scratch.path().string())) << said;
    }
    EXPECT_FALSE(fs::exists(scratch.file("out.lvl")));
}

}  // namespace
}  // namespace grub
