#include "screen_transition.h"

#include <gtest/gtest.h>

#include "memory_source.h"
#include "named_pictures.h"

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

TEST(ScreenTransition, CoversTheScreenFromItsEdgesOrInTiles) {
    FakeRenderer renderer;
    MemorySource source;
    putPictures(source);
    ScreenTransition transition(source);
    for (const FakeTexture* texture : renderer.textures)
        EXPECT_EQ(texture->keys, letterOf(*texture) == 's' ? std::vector<Colour>{} : std::vector{kBlue});
    transition.start(ShutterClose);
    for (int step = 0; step < 2; ++step) transition.step();
    renderer.drawn.clear();
    transition.step();
    EXPECT_EQ(takeDrawn(renderer), "s0,0 s0,550 s0,50 s0,500");
    transition.start(TileOut);
    transition.step();
    EXPECT_TRUE(takeDrawn(renderer).starts_with("x0,0 x64,0 x128,0 "));
    transition.step();
    EXPECT_TRUE(takeDrawn(renderer).ends_with(" y704,576 y768,576"));
}

}  // namespace
}  // namespace grub
