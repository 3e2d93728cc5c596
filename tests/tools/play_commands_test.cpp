// grubtool play and trace on games of a few frames; every number is worked out from the rules by hand.

#include <gmock/gmock.h>

#include "grubtool_run.h"
#include "level_writer.h"
#include "package_writer.h"
#include "scratch_directory.h"

namespace grub {
namespace {

const std::string kDraft = "# a key, and out\nlevel small.txt\nindex 0\nseed 1\n\n1 down Right\n20 down Left\n";

/// A game and its level, Grub between a key and the door.
class PlayCommand : public testing::Test {
protected:
    PlayCommand() {
        scratch_.write("small.txt", bytesOf("world turma\nfield\nE@kX\nXXXX\nend\n"));
        write(kDraft);
    }
    void write(const std::string& game) const { scratch_.write("a.game", bytesOf(game)); }
    [[nodiscard]] std::string text() const {
        const auto bytes = scratch_.read("a.game");
        return {bytes.begin(), bytes.end()};
    }
    [[nodiscard]] GrubtoolRun play(std::vector<std::string> options = {}) const {
        options.insert(options.begin(), {"play", scratch_.file("a.game"), "--data", GRUB_DATA_DIR});
        return grubtool(options);
    }
    [[nodiscard]] GrubtoolRun update() const { return play({"--update"}); }
    ScratchDirectory scratch_;
};

// He turns for three frames and takes the key half-way, after four more. In 20 he stands in the cell of the key, turns
// again for three and is two cells further left sixteen frames later.
TEST_F(PlayCommand, CompletesADraftAndThenAgrees) {
    ASSERT_EQ(update().exitCode, 0);
    const std::string first = text();
    EXPECT_THAT(first, testing::StartsWith("# a key, and out\nlevel small.txt\nindex 0\nseed 1\n\n0 hash "));
    EXPECT_THAT(first, testing::EndsWith("\n38 end Won score 1050 keys 0\n"));
    EXPECT_THAT(play().out, testing::EndsWith("Won in frame 38, score 1050\n"));
    write(kDraft + "50 up Left\n");
    ASSERT_EQ(update().exitCode, 0);
    EXPECT_EQ(text(), first) << "it keeps keys behind the end";
}

TEST_F(PlayCommand, TellsTheFirstFrameThatDiffersAndDrawsBothFields) {
    ASSERT_EQ(update().exitCode, 0);  // in 25 he is 24 pixels on his way back
    const std::string whole = text();
    const std::string event = "20 down Left\n";
    write(whole.substr(0, whole.find(event)) + whole.substr(whole.find(event) + event.size()));
    const GrubtoolRun run = play();
    EXPECT_TRUE(run.failed(1, "a.game: frame 25: the hash of the state differs"));
    EXPECT_EQ(run.out,
              "recorded, frame 25   played, frame 25\n"
              "E@.#                 E.@#\n"
              "####                 ####\n");
}

TEST_F(PlayCommand, EndsWithTwoAndALineWhenItCannotPlay) {
    const std::string outcome = "\nindex 0\nseed 1\n0 hash 0000000000000000\n0 end Quit score 0 keys 0";
    const std::pair<std::string, const char*> rows[] = {
        {kDraft, "a.game: wanted hashes and an end, found a draft"},
        {kDraft + "30 jump\n", "a.game:8: wanted 'down', 'up'"},
        {"level none.txt" + outcome, "none.txt: cannot be read"},
    };
    for (const auto& [game, reason] : rows) {
        write(game);
        EXPECT_TRUE(play().failed(2, reason));
    }
}

TEST_F(PlayCommand, KeysThatReachNoEndAreNotWrittenDown) {
    const std::string endless = "level small.txt\nindex 0\nseed 1\n1 down Right\n";
    write(endless);
    EXPECT_TRUE(update().failed(2, "the game has no end within 90000 game frames"));
    EXPECT_EQ(text(), endless);
}

/// The command trace on files of its own.
class Trace : public testing::Test {
protected:
    Trace() {
        scratch_.write("blocks", bytesOf(drawnBlockTable()));
        files({"@ .", "# #"}, "", "");
    }
    void files(const Drawing& drawing, const std::string& keys, const std::string& counts) const {
        scratch_.write("level", writeLevelFile(drawnLevel(drawing)));
        scratch_.write("keys", bytesOf(keys));
        scratch_.write("counts", bytesOf(counts));
    }
    [[nodiscard]] GrubtoolRun run(const char* index, const char* seed, const char* frames) const {
        std::vector<std::string> words{"trace", "--index", index, "--seed", seed, "--frames", frames};
        for (const char* file : {"level", "blocks", "keys", "counts"})
            words.insert(words.end(), {std::string("--") + file, scratch_.file(file)});
        return grubtool(words);
    }
    ScratchDirectory scratch_;
};

// The dog, five cells to the right, starts to hunt in frame 0 and goes 4 pixels in each frame. Grub digs in frame 1;
// the dig of 3 frames ends with the third. The breaking floor of 1 frame, which stays for 3 game frames, is done in the
// second of them and waits from the third on. The floor's timer counts in the frame of the dig too.
TEST_F(Trace, OfADigAndADogThatHunts) {
    files({"@ . k . . d", "# = # # # #"}, "1 down X\n2 up X\n", "81 3\n83 1\n");
    const std::pair<const char*, const char*> frames[] = {
        {"f=1 hero=0,0 v=0,0 cmd=None face=2 anim=81:0 dig=1", "312,0:0:1:-4,0 holes=1,1:0:249"},
        {"f=2 hero=0,0 v=0,0 cmd=None face=2 anim=81:1 dig=1", "308,0:0:1:-4,0 holes=1,1:0:248"},
        {"f=3 hero=0,0 v=0,0 cmd=None face=2 anim=81:2 dig=0", "304,0:0:1:-4,0 holes=1,1:2:247"},
        {"f=4 hero=0,0 v=0,0 cmd=None face=2 anim=334:0 dig=0", "300,0:0:1:-4,0 holes=1,1:2:246"},
    };
    std::string lines;
    for (const auto& [hero, enemies] : frames)
        lines += std::string(hero) +
                 " shield=0 inv=0 anchor=0 keys=1 score=0 lives=3 rng=00000007 enemies=9:" + enemies +
                 " bonuses=- end=-\n";
    EXPECT_EQ(run("0", "7", "4").out, lines);
}

}  // namespace
}  // namespace grub
