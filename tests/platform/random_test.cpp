#include <crt.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "game_thread.h"

namespace {

std::vector<int> draw(int count) {
    std::vector<int> numbers(static_cast<std::size_t>(count));
    std::ranges::generate(numbers, crt::rand);
    return numbers;
}

TEST(Random, IsTheClassicSequence) {
    crt::srand(1);
    EXPECT_EQ(draw(5), (std::vector{41, 18467, 6334, 26500, 19169}));
    crt::srand(0);
    EXPECT_EQ(draw(3), (std::vector{38, 7719, 21238}));
}

TEST(Random, HandsEachNumberOutOnceWhoeverAsks) {
    crt::srand(1);
    auto expected = draw(2000);
    crt::srand(1);
    std::vector<int> mine;
    std::vector<int> theirs;
    {
        const GameThread other([&] { theirs = draw(1000); });
        mine = draw(1000);
    }
    mine.insert(mine.end(), theirs.begin(), theirs.end());
    std::ranges::sort(mine);
    std::ranges::sort(expected);
    EXPECT_EQ(mine, expected);
}

}  // namespace
