#include "screen_transition.h"

#include <gtest/gtest.h>

#include <map>

#include "memory_source.h"
#include "named_pictures.h"
#include "ready_renderer.h"

namespace grub {
namespace {

using enum TransitionMode;

void putPictures(MemorySource& source) {
    source.put("data\\gif\\polosa.bmp", pictureOf("s", 50));
    source.put("data\\gif\\open.bmp", pictureOf("abc", 64));
    source.put("data\\gif\\close.bmp", pictureOf("xy", 64));
}

/// The steps of an effect up to its end, each as the letter of its picture and the count of draws.
std::string stepsOf(ScreenTransition& transition, TransitionMode mode, FakeRenderer& renderer) {
    std::string steps;
    transition.start(mode);
    for (int step = 0; step < 20 && !transition.isFinished(); ++step) {
        renderer.drawn.clear();
        transition.step();
        steps += step == 0 ? "" : " ";
        if (!renderer.drawn.empty()) steps += letterOf(*renderer.drawn.back().texture);
        steps += std::to_string(renderer.drawn.size());
    }
    return steps;
}

TEST(ScreenTransition, DrawsItsModeStepByStepUntilItIsFinished) {
    const struct {
        TransitionMode mode;
        std::string steps;
        std::string stepsWithoutPictures;
    } kRows[] = {
        {ShutterOpen, "s24 s22 s20 s18 s16 s14 s12 s10 s8 s6 s4 s2 0 0", "0 0 0 0 0 0 0 0 0 0 0 0 0 0"},
        {ShutterClose, "0 s2 s4 s6 s8 s10 s12 s14 s16 s18 s20 s22 s24 s26", "0 0 0 0 0 0 0 0 0 0 0 0 0 0"},
        {TileIn, "a130 b130 c130", "0"},
        {TileOut, "x130 y130", "0"},
    };
    FakeRenderer renderer;
    MemorySource source;
    putPictures(source);
    MemorySource nothing;
    ScreenTransition transition(source);
    ScreenTransition without(nothing);
    for (const auto& row : kRows) {
        EXPECT_EQ(stepsOf(transition, row.mode, renderer), row.steps);
        EXPECT_EQ(stepsOf(transition, row.mode, renderer), row.steps) << "again";
        EXPECT_EQ(stepsOf(without, row.mode, renderer), row.stepsWithoutPictures);
    }
    transition.start(TileIn);
    transition.step();
    EXPECT_EQ(stepsOf(transition, TileIn, renderer), kRows[2].steps)
        << "from the first frame, after a run that was left";
}

/// A white stripe and two tiles, whose frames are red and blue, on the game's renderer.
class TransitionOnScreen : public ReadyRenderer {
protected:
    void SetUp() override {
        ReadyRenderer::SetUp();
        EngineServices::installRenderer(&renderer);
        Bytes tiles(std::size_t{64} * 64 * 3 * 2);
        for (std::size_t i = 0; i < tiles.size(); i += 3) tiles[i < tiles.size() / 2 ? i : i + 2] = 255;
        source_.put("data\\gif\\polosa.bmp", writeBmp(800, 50, Bytes(std::size_t{800} * 50 * 3, 255)));
        source_.put("data\\gif\\open.bmp", writeBmp(64, 128, tiles));
    }
    void TearDown() override { EngineServices::installRenderer(nullptr); }

    /// The middles of the twelve rows of 50 pixels after a step over a green screen, from the left and the right edge:
    /// W white, R red, G green, or ? where the two differ.
    std::string step(ScreenTransition& transition) {
        const ScreenPixels screen = frameOver({0, 255, 0}, [&] { transition.step(); });
        const std::map<std::uint32_t, char> letters{{0xFFFFFF, 'W'}, {0xFF0000, 'R'}, {0xFF00, 'G'}};
        std::string rows;
        for (int y = 25; y < kScreenHeight; y += 50)
            rows += screen.at(0, y) == screen.at(kScreenWidth - 1, y) ? letters.at(screen.at(0, y)) : '?';
        return rows;
    }

    MemorySource source_;
};

TEST_F(TransitionOnScreen, CoversItFromItsEdgesOrInTiles) {
    const std::string all(12, 'W');
    const std::string none(12, 'G');
    const std::vector<std::string> closing{
        none, "WGGGGGGGGGGW", "WWGGGGGGGGWW", "WWWGGGGGGWWW", "WWWWGGGGWWWW", "WWWWWGGWWWWW", all, all};
    ScreenTransition transition(source_);
    transition.start(ShutterClose);
    for (const std::string& rows : closing) EXPECT_EQ(step(transition), rows);
    transition.start(ShutterOpen);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(step(transition), all);
    for (std::size_t i = closing.size(); i-- > 0;) EXPECT_EQ(step(transition), closing[i]);
    EXPECT_EQ(step(transition), none);
    EXPECT_TRUE(transition.isFinished());
    transition.start(TileIn);
    EXPECT_EQ(step(transition), std::string(12, 'R'));
    EXPECT_EQ(step(transition), none) << "blue is transparent";
    EXPECT_TRUE(transition.isFinished());
}

}  // namespace
}  // namespace grub
