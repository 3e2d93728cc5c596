#include "ready_renderer.h"

namespace grub {
namespace {

using platform::DeviceFunction;

class LostDevice : public ReadyRenderer {
protected:
    // Draws at half opacity over black; whether the frame was presented.
    bool drawFrame(Texture& texture) {
        EXPECT_TRUE(renderer.beginFrame());
        EXPECT_TRUE(renderer.draw(0, 0, texture, 0.5F));
        return renderer.endFrame();
    }
};

TEST_F(LostDevice, IsTestedEachFrameAndResetOnceThatHelps) {
    const auto texture = plainTexture(8, 8, kWhite);
    EXPECT_TRUE(drawFrame(*texture));
    device.loseDevice(1);
    device.forgetCalls();

    EXPECT_FALSE(drawFrame(*texture));
    EXPECT_EQ(device.count(DeviceFunction::TestCooperativeLevel), 1u);
    EXPECT_EQ(device.count(DeviceFunction::Reset), 0u);

    EXPECT_FALSE(drawFrame(*texture));
    EXPECT_EQ(device.count(DeviceFunction::TestCooperativeLevel), 2u);
    EXPECT_EQ(device.count(DeviceFunction::Reset), 1u);

    EXPECT_TRUE(drawFrame(*texture));
    EXPECT_EQ(device.count(DeviceFunction::Reset), 1u);
}

TEST_F(LostDevice, AfterTheResetStatesTextureAndOpacityAreSentAgain) {
    const auto texture = plainTexture(8, 8, kWhite);
    EXPECT_TRUE(drawFrame(*texture));
    device.loseDevice(0);
    EXPECT_FALSE(drawFrame(*texture));
    device.forgetCalls();

    EXPECT_TRUE(drawFrame(*texture));
    EXPECT_EQ(device.count(DeviceFunction::SetTexture), 1u);
    EXPECT_EQ(device.count(DeviceFunction::SetRenderState), 1u);
    EXPECT_EQ(ScreenPixels(device.frame()).at(0, 0), 0x808080u) << "the texture survives the reset";
}

TEST_F(LostDevice, ARefusedResetIsTriedAgainInTheNextFrame) {
    const auto texture = plainTexture(8, 8, kWhite);
    device.loseDevice(0);
    device.fail(DeviceFunction::Reset, D3DERR_DEVICELOST);
    EXPECT_FALSE(drawFrame(*texture));
    EXPECT_FALSE(drawFrame(*texture));
    EXPECT_EQ(device.count(DeviceFunction::Reset), 2u);
    device.fail(DeviceFunction::Reset, D3D_OK);
    EXPECT_FALSE(drawFrame(*texture));
    EXPECT_TRUE(drawFrame(*texture));
}

TEST_F(LostDevice, AnyOtherAnswerIsLeftAlone) {
    const auto texture = plainTexture(8, 8, kWhite);
    device.loseDevice(0);
    device.fail(DeviceFunction::TestCooperativeLevel, D3DERR_DRIVERINTERNALERROR);
    EXPECT_FALSE(drawFrame(*texture));
    EXPECT_EQ(device.count(DeviceFunction::Reset), 0u);
}

TEST_F(LostDevice, ChangingTheScreenModeResetsOnlyWhenItChanges) {
    device.forgetCalls();
    EXPECT_TRUE(renderer.setFullScreen(false));
    EXPECT_EQ(device.count(DeviceFunction::Reset), 0u);

    EXPECT_TRUE(renderer.setFullScreen(true));
    EXPECT_TRUE(renderer.isFullScreen());
    ASSERT_EQ(device.count(DeviceFunction::Reset), 1u);
    EXPECT_EQ(device.calls().front().first, 0u) << "not windowed";
    const auto texture = plainTexture(8, 8, kWhite);
    EXPECT_TRUE(drawFrame(*texture)) << "the states were applied again";

    device.fail(DeviceFunction::Reset, D3DERR_DEVICELOST);
    EXPECT_FALSE(renderer.setFullScreen(false));
}

}  // namespace
}  // namespace grub
