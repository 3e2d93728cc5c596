#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "draw_forecast.h"
#include "soak_coverage.h"
#include "soak_game.h"
#include "soak_levels.h"
#include "world_faults.h"

namespace grub {
namespace {

constexpr int kSuiteFrames = 200000;
/// How often a copy is taken, and how long it plays beside its original.
constexpr int kCopyEvery = 200;
constexpr int kCopyPlays = 60;
/// How often the state is noted for the replay.
constexpr int kHashEvery = 100;

int fromEnvironment(const char* name, int usual) {
    const char* const text = std::getenv(name);
    return text == nullptr ? usual : std::atoi(text);
}

/// Plays one game and looks at every frame from all sides.
class Watch {
public:
    Watch(const SoakLevel& level, int number, SoakCoverage& coverage)
        : level_(level), number_(number), coverage_(coverage), game_(level, number), before_(game_.world()) {}

    /// What is wrong, with the frame; empty when the game came to its end.
    std::string play() {
        std::string fault = faultOf(game_.world());
        while (fault.empty() && !game_.isOver()) fault = playFrame();
        if (fault.empty()) fault = faultOfReplay();
        return fault.empty() ? fault : "frame " + std::to_string(frame()) + ": " + fault;
    }
    [[nodiscard]] int frame() const { return game_.world().frame(); }
    [[nodiscard]] std::uint64_t endHash() const { return game_.world().stateHash(); }

private:
    std::string playFrame() {
        before_ = game_.world();
        game_.playFrame();
        coverage_.add(before_, game_.world());
        if (frame() % kHashEvery == 0) hashes_.push_back(game_.world().stateHash());
        for (auto look : {&Watch::faultOfState, &Watch::faultOfDraws, &Watch::faultOfShowing, &Watch::faultOfCopy})
            if (std::string fault = (this->*look)(); !fault.empty()) return fault;
        return {};
    }

    std::string faultOfState() {
        std::string fault = faultOf(game_.world());
        return fault.empty() ? faultOfStep(before_, game_.world()) : fault;
    }

    std::string faultOfDraws() {
        const auto states = forecastDraws(before_, game_.world());
        if (states.size() > 1) ++coverage_.unsureForecasts;
        const bool isForeseen = std::ranges::find(states, game_.world().randomState()) != states.end();
        return isForeseen ? "" : "the generator was drawn where nobody draws, or not where somebody does";
    }

    std::string faultOfShowing() {
        if (frame() % kHashEvery != 0) return {};
        game_.showFrame();
        return game_.world().stateHash() == hashes_.back() ? "" : "showing the level changed the play";
    }

    std::string faultOfCopy() {
        if (frame() % kCopyEvery == 0) copy_ = game_;
        if (!copy_ || frame() % kCopyEvery == 0) return {};
        copy_->playFrame();
        if (frame() % kCopyEvery < kCopyPlays) return {};
        const bool isEqual = copy_->world().stateHash() == game_.world().stateHash();
        copy_.reset();
        return isEqual ? "" : "a copy played otherwise";
    }

    [[nodiscard]] std::string faultOfReplay() const {
        SoakGame again(level_, number_);
        auto hash = hashes_.begin();
        while (!again.isOver()) {
            again.playFrame();
            if (again.world().frame() % kHashEvery != 0) continue;
            if (hash == hashes_.end() || *hash != again.world().stateHash()) return "the replay went another way";
            ++hash;
        }
        return again.world().stateHash() == game_.world().stateHash() ? "" : "the replay ended otherwise";
    }

    const SoakLevel& level_;
    int number_;
    SoakCoverage& coverage_;
    SoakGame game_;
    World before_;
    std::optional<SoakGame> copy_;
    std::vector<std::uint64_t> hashes_;
};

void expectEverythingHappened(const SoakCoverage& coverage, bool isLong) {
    for (const int ends : coverage.ends) EXPECT_GT(ends, 0);
    for (const int taken : coverage.bonuses) EXPECT_GT(taken, 0);
    for (const int count : {coverage.digs, coverage.regrown, coverage.trapped, coverage.killed, coverage.drawingFrames})
        EXPECT_GT(count, 0);
    if (isLong) {
        EXPECT_GT(coverage.escaped, 0);
        EXPECT_GT(coverage.returned, 0);
    }
    EXPECT_LE(coverage.unsureForecasts, coverage.drawingFrames / 1000) << "the forecast forbids too little";
}

TEST(Soak, RandomGamesBreakNoRule) {
    const int frames = fromEnvironment("GRUB_SOAK_FRAMES", kSuiteFrames);
    const std::vector<SoakLevel> packaged = packagedLevels();
    SoakCoverage coverage;
    const int first = fromEnvironment("GRUB_SOAK_FIRST", 0);
    int number = first;
    int played = 0;
    std::uint64_t digest = 0;  // of all games: the same from every build
    for (; played < frames; ++number) {
        const auto turn = static_cast<std::size_t>(number);
        const SoakLevel level = turn % 3 == 0 ? packaged[turn / 3 % packaged.size()] : levelByChance(number);
        Watch watch(level, number, coverage);
        ASSERT_EQ(watch.play(), "") << "in game " << number << ", " << level.name;
        played += watch.frame();
        digest = digest * 31 + watch.endHash();
    }
    std::cout << played << " frames in " << number - first << " games, digest " << std::hex << digest << std::dec
              << "; " << coverage.summary() << '\n';
    if (frames >= kSuiteFrames) expectEverythingHappened(coverage, frames >= 10 * kSuiteFrames);
}

}  // namespace
}  // namespace grub
