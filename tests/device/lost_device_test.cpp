#include "ready_renderer.h"

namespace grub {
namespace {

using platform::Call;

class LostDevice : public ReadyRenderer {
protected:
    // Draws white at half opacity over black. Returns whether the frame was presented.
    bool drawFrame() {
        EXPECT_TRUE(renderer.beginFrame());
        EXPECT_TRUE(renderer.draw(0, 0, *texture, 0.5F));
        return renderer.endFrame();
    }

    void SetUp() override {
        ReadyRenderer::SetUp();
        texture = plainTexture(8, 8, kWhite);
        EXPECT_TRUE(drawFrame());
    }

    std::unique_ptr<Texture> texture;
};

TEST_F(LostDevice, IsResetInAnyLaterFrameOnceThatHelps) {
    device.loseDevice(1);
    EXPECT_FALSE(drawFrame()) << "a reset would not help yet";
    device.fail(Call::Reset, D3DERR_DEVICELOST);
    EXPECT_FALSE(drawFrame()) << "the reset is refused";
    device.fail(Call::Reset, D3D_OK);
    EXPECT_FALSE(drawFrame()) << "this frame ends with the reset";
    EXPECT_TRUE(drawFrame()) << "states and texture were sent again";
    EXPECT_EQ(ScreenPixels(device.frame()).at(0, 0), 0x808080u) << "so was the opacity, and the pixels survived";
}

TEST_F(LostDevice, FullScreenComesWithAResetAndStaysOffWhenTheResetIsRefused) {
    device.fail(Call::Reset, D3DERR_INVALIDCALL);
    EXPECT_TRUE(renderer.setFullScreen(false)) << "no change, no reset";
    EXPECT_FALSE(renderer.setFullScreen(true));
    EXPECT_FALSE(renderer.isFullScreen());
    device.fail(Call::Reset, D3D_OK);
    EXPECT_TRUE(renderer.setFullScreen(true));
    EXPECT_TRUE(renderer.isFullScreen());
    EXPECT_TRUE(drawFrame()) << "the states were sent again";
}

}  // namespace
}  // namespace grub
