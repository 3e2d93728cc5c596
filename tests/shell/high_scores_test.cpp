#include "high_scores.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "bytes.h"
#include "control/call_controls.h"
#include "score_file.h"
#include "scratch_directory.h"

namespace grub {
namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;

// Each row as "NAME score level;" with the level's index.
std::string drawn(const HighScoreTable& table) {
    std::string rows;
    for (const auto& [name, score, level] : table.rows())
        rows += std::string(name.view()) + " " + std::to_string(score) + " " + std::to_string(level) + ";";
    return rows;
}

TEST(HighScoreTables, PutARowBelowItsEqualsAndPushTheLowestOut) {
    HighScoreTable table;
    EXPECT_FALSE(table.qualifies(0));
    for (const int score : {7, 5, 9, 6, 6, 8, 7, 7, 8}) table.add({"OLD", score, 1});
    EXPECT_TRUE(table.qualifies(1)) << "a row is free";
    table.add({"OLD", 9, 1});
    EXPECT_FALSE(table.qualifies(5));
    EXPECT_TRUE(table.qualifies(6));
    table.add({"NEW", 7, 49});
    EXPECT_EQ(drawn(table), "OLD 9 1;OLD 9 1;OLD 8 1;OLD 8 1;OLD 7 1;OLD 7 1;OLD 7 1;NEW 7 49;OLD 6 1;OLD 6 1;");
}

struct ScoreFiles : testing::Test {
    ScoreFiles() {
        good_ = bytesOf("\2\0\0\0GRUB\0\0\0\0\0\0\0\0\xD0\1\1\0\7\0\0\0ZX 9  \0\0\0\0\0\0\x96\0\0\0\x31\0\0\0"sv);
        good_.resize(204);
    }
    // What the next start of the program reads.
    [[nodiscard]] std::string stored() const {
        HighScores scores(path_.c_str());
        scores.load();
        return drawn(scores.table());
    }

    ScratchDirectory scratch_;
    std::string path_ = scratch_.file("scores");
    Bytes good_;
};

TEST_F(ScoreFiles, LoseOnlyTheRowsThatAreDamaged) {
    const std::string first = "GRUB 66000 7;";
    const std::string second = "ZX 9   150 49;";
    EXPECT_EQ(scoreBytes(tableFrom(good_)), good_);
    using Rows = std::vector<std::tuple<const char*, void (*)(Bytes&), std::string>>;
    for (const auto& [what, damage, expected] :
         Rows{{"none", [](Bytes&) {}, first + second},
              {"cut in the second row", [](Bytes& b) { b.resize(43); }, first},
              {"count 11", [](Bytes& b) { b[0] = 11; }, first + second},
              {"count -1", [](Bytes& b) { put(b, 0, 0xFFFFFFFF, 4); }, first + second},
              {"a name without an end", [](Bytes& b) { std::fill_n(&b[4], 12, 'W'); }, "WWWWWW 66000 7;" + second},
              {"no score", [](Bytes& b) { put(b, 16, 0, 4); }, second},
              {"a score that no game has", [](Bytes& b) { put(b, 16, 1'000'000'001, 4); }, second},
              {"out of order", [](Bytes& b) { put(b, 16, 100, 4); }, second + "GRUB 100 7;"},
              {"level 50", [](Bytes& b) { put(b, 20, 50, 4); }, "GRUB 66000 49;" + second},
              {"level -1", [](Bytes& b) { put(b, 20, 0xFFFFFFFF, 4); }, "GRUB 66000 0;" + second}}) {
        SCOPED_TRACE(what);
        Bytes bytes = good_;
        damage(bytes);
        scratch_.write("scores", bytes);
        EXPECT_EQ(stored(), expected);
    }
}

TEST_F(ScoreFiles, AreNotLostWhileTheyCannotBeReadOrWritten) {
    scratch_.write("scores", good_);
    HighScores scores(path_.c_str());
    scores.add({"NEW", 200, 3});
    {
        const platform::testing::FailingCall full(platform::Call::FlushFile);
        scores.save();
    }
    scores.load();
    for (int time = 0; time < 2; ++time) scores.save();
    EXPECT_EQ(stored(), "GRUB 66000 7;NEW 200 3;ZX 9   150 49;");
    const auto makeUnreadable = [&] {
        fs::remove(path_);
        fs::create_symlink("/no/such/disk", path_);
        scores.save();
        EXPECT_TRUE(fs::is_symlink(path_)) << "nothing is new";
        scores.add({"NEWER", 100, 3});
        scores.save();
    };
    makeUnreadable();
    EXPECT_EQ(stored(), "GRUB 66000 7;NEW 200 3;ZX 9   150 49;NEWER 100 3;");
    makeUnreadable();
    EXPECT_TRUE(fs::is_symlink(path_) && fs::is_symlink(path_ + ".old")) << "the second found no place";

    HighScoreTable ofAnotherGame;
    for (std::size_t row = 0; row < kHighScoreRows; ++row) ofAnotherGame.add({"BEST", 1000, 3});
    scratch_.write("full", scoreBytes(ofAnotherGame));
    HighScores low(scratch_.file("full").c_str());
    low.add({"LOW", 999, 3});
    low.save();
    EXPECT_EQ(low.table(), ofAnotherGame);
}

}  // namespace
}  // namespace grub
