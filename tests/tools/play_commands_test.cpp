// grubtool play on games of a few frames.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "run_grubtool.h"
#include "scratch_directory.h"

namespace grub {
namespace {

/// Grub between a key and the door.
const std::string kLevel = "world turma\nfield\nE@kX\nXXXX\nend\n";
const std::string kDraft = "# a key, and out\nlevel small.txt\nindex 0\nseed 1\n\n1 down Right\n20 down Left\n";

std::span<const std::uint8_t> bytesOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// A game and its level in a folder of their own.
class PlayCommand : public testing::Test {
protected:
    void SetUp() override {
        scratch_.write("small.txt", bytesOf(kLevel));
        write(kDraft);
    }
    void write(const std::string& game) { scratch_.write("a.game", bytesOf(game)); }
    [[nodiscard]] std::string text() const {
        const auto bytes = scratch_.read("a.game");
        return {bytes.begin(), bytes.end()};
    }
    /// Plays the game; what it says goes to `out` and `errors`.
    int play(std::vector<std::string> options = {}) {
        std::vector<std::string> words{"play", scratch_.file("a.game"), "--data", GRUB_DATA_DIR};
        words.insert(words.end(), options.begin(), options.end());
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int exitCode = runGrubtool(words);
        out = testing::internal::GetCapturedStdout();
        errors = testing::internal::GetCapturedStderr();
        return exitCode;
    }

    ScratchDirectory scratch_;
    std::string out;
    std::string errors;
};

// He turns for three frames and takes the key half-way, after four more. In 20 he stands in the cell of the key, turns
// again for three and is two cells further left sixteen frames later.
TEST_F(PlayCommand, CompletesADraftAndThenAgrees) {
    ASSERT_EQ(play({"--update"}), 0) << errors;
    EXPECT_THAT(text(), testing::StartsWith("# a key, and out\nlevel small.txt\nindex 0\nseed 1\n\n0 hash "));
    EXPECT_THAT(text(), testing::EndsWith("\n38 end Won score 1050 keys 0\n"));
    EXPECT_EQ(play(), 0) << errors;
    EXPECT_THAT(out, testing::EndsWith("Won in frame 38, score 1050\n"));
    const std::string first = text();
    ASSERT_EQ(play({"--update"}), 0);
    EXPECT_EQ(text(), first);
}

TEST_F(PlayCommand, TellsTheFirstFrameThatDiffersAndDrawsBothFields) {
    ASSERT_EQ(play({"--update"}), 0) << errors;  // in 25 he is 24 pixels on his way back
    const std::string whole = text();
    const auto key = whole.find("20 down Left");
    write(whole.substr(0, key) + whole.substr(key + std::string("20 down Left\n").size()));
    EXPECT_EQ(play(), 1);
    EXPECT_THAT(errors, testing::EndsWith("a.game: frame 25: the hash of the state differs\n"));
    EXPECT_EQ(out,
              "recorded, frame 25   played, frame 25\n"
              "E@.#                 E.@#\n"
              "####                 ####\n");
}

struct Unplayable {
    const char* what;
    std::string game;
    const char* reason;
};

TEST_F(PlayCommand, WhatCannotBePlayedEndsWithTwoAndALine) {
    const Unplayable rows[] = {
        {"a draft", kDraft, "found a draft; --update writes them"},
        {"a bad line", kDraft + "30 jump\n", "a.game:8: wanted 'down', 'up'"},
        {"a level that is not there",
         "level none.txt\nindex 0\nseed 1\n0 hash 0000000000000000\n0 end Quit score 0 keys 0",
         "none.txt: cannot be read"},
        {"a level that is none", "level a.game\nindex 0\nseed 1\n0 hash 0000000000000000\n0 end Quit score 0 keys 0",
         "a.game: "},
        {"a name of the list without a level",
         "level levels\\podval\\level13.lvl\nindex 0\nseed 1\n0 hash 0000000000000000\n0 end Quit score 0 keys 0",
         "levels\\podval\\level13.lvl: there is no such file"},
    };
    for (const Unplayable& row : rows) {
        SCOPED_TRACE(row.what);
        write(row.game);
        EXPECT_EQ(play(), 2);
        EXPECT_THAT(errors, testing::HasSubstr(row.reason));
        EXPECT_EQ(std::ranges::count(errors, '\n'), 1) << errors;
    }
}

TEST_F(PlayCommand, KeysThatReachNoEndAreNotWrittenDown) {
    const std::string endless = "level small.txt\nindex 0\nseed 1\n1 down Right\n";
    write(endless);
    EXPECT_EQ(play({"--update"}), 2);
    EXPECT_THAT(errors, testing::HasSubstr("the keys reach no end"));
    EXPECT_EQ(text(), endless);
    write(endless + "30 end Quit score 0 keys 0\n");
    EXPECT_EQ(play({"--update"}), 0) << errors;
    EXPECT_THAT(text(), testing::EndsWith("\n30 end Quit score 50 keys 0\n"));
    EXPECT_EQ(play(), 0) << errors;
}

}  // namespace
}  // namespace grub
