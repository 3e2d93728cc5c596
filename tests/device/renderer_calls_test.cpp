#include <gmock/gmock.h>

#include "ready_renderer.h"

namespace grub {
namespace {

using platform::DeviceFunction;
using testing::ElementsAre;

class RendererCalls : public ReadyRenderer {
protected:
    void SetUp() override {
        ReadyRenderer::SetUp();
        texture = plainTexture(100, 50, kWhite);
        other = plainTexture(8, 8, kBlue);
        ASSERT_TRUE(renderer.beginFrame());
        device.forgetCalls();
    }

    // The texture factors sent since the calls were last forgotten.
    std::vector<DWORD> factors() const {
        std::vector<DWORD> sent;
        for (const auto& call : device.calls()) {
            if (call.function == DeviceFunction::SetRenderState && call.first == D3DRS_TEXTUREFACTOR) {
                sent.push_back(call.second);
            }
        }
        return sent;
    }

    std::unique_ptr<Texture> texture;
    std::unique_ptr<Texture> other;
};

TEST_F(RendererCalls, OffTheScreenByThePicturesSizeNothingIsAskedOfTheDevice) {
    constexpr std::pair<int, int> kOutside[] = {{-100, 0}, {800, 0}, {0, -50}, {0, 600}, {-32768, 32767}};
    for (const auto& [x, y] : kOutside) {
        EXPECT_FALSE(renderer.draw(static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), *texture, 1.0F));
    }
    EXPECT_FALSE(renderer.drawPart(-10, 0, *texture, 0, 0, 10, 50, 1.0F));
    EXPECT_FALSE(renderer.drawPart(0, -5, *texture, 0, 0, 10, 5, 1.0F));
    EXPECT_TRUE(device.calls().empty());

    constexpr std::pair<int, int> kInside[] = {{-99, 0}, {799, 0}, {0, -49}, {0, 599}};
    for (const auto& [x, y] : kInside) {
        EXPECT_TRUE(renderer.draw(static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), *texture, 1.0F));
    }
    EXPECT_EQ(device.count(DeviceFunction::DrawPrimitive), 4u);
}

TEST_F(RendererCalls, OffTheScreenIsFalseEvenWhenInvisible) {
    EXPECT_FALSE(renderer.draw(800, 0, *texture, 0.0F));
    EXPECT_TRUE(renderer.draw(0, 0, *texture, 0.04F));
    EXPECT_TRUE(renderer.drawPart(0, 0, *texture, 0, 0, 8, 8, 0.04F));
    EXPECT_TRUE(device.calls().empty());
}

TEST_F(RendererCalls, ABoundTextureIsNotBoundAgain) {
    for (int i = 0; i < 3; ++i) renderer.draw(0, 0, *texture, 1.0F);
    EXPECT_EQ(device.count(DeviceFunction::SetTexture), 1u);
    renderer.draw(0, 0, *other, 1.0F);
    renderer.drawPart(0, 0, *other, 0, 0, 4, 4, 1.0F);
    renderer.draw(0, 0, *texture, 1.0F);
    EXPECT_EQ(device.count(DeviceFunction::SetTexture), 3u);
    EXPECT_TRUE(factors().empty());
}

TEST_F(RendererCalls, ARectangleIsOneLockOneUnlockOneDraw) {
    renderer.draw(0, 0, *texture, 1.0F);
    device.forgetCalls();
    renderer.draw(5, 5, *texture, 1.0F);
    std::vector<DeviceFunction> functions;
    for (const auto& call : device.calls()) functions.push_back(call.function);
    EXPECT_THAT(functions, ElementsAre(DeviceFunction::LockVertices, DeviceFunction::UnlockVertices,
                                       DeviceFunction::DrawPrimitive));
}

TEST_F(RendererCalls, OpacityIsSentWhenItMovedFarEnoughFromTheOneSent) {
    for (const float alpha : {1.0F, 0.96F, 0.92F, 0.9F, 0.5F, 0.52F}) renderer.draw(0, 0, *texture, alpha);
    EXPECT_THAT(factors(), ElementsAre(0xEBFFFFFF, 0x80FFFFFF));
}

TEST_F(RendererCalls, TheStepIsComparedInSinglePrecision) {
    renderer.draw(0, 0, *texture, 0.95F);  // 1 - 0.95 is a little more than the step
    EXPECT_THAT(factors(), ElementsAre(0xF2FFFFFF));
    renderer.draw(0, 0, *texture, 0.9F);
    renderer.draw(0, 0, *texture, 0.85F);  // 0.9 - 0.85 is a little less
    EXPECT_THAT(factors(), ElementsAre(0xF2FFFFFF, 0xE6FFFFFF));
}

TEST_F(RendererCalls, OpacityAboveOneIsOpaque) {
    renderer.draw(0, 0, *texture, 3.0F);
    EXPECT_THAT(factors(), ElementsAre(0xFFFFFFFF));
}

TEST_F(RendererCalls, ARefusedCallMakesTheDrawFalseAndIsTriedAgain) {
    for (const DeviceFunction function : {DeviceFunction::SetTexture, DeviceFunction::LockVertices,
                                          DeviceFunction::UnlockVertices, DeviceFunction::DrawPrimitive}) {
        device.fail(function, D3DERR_INVALIDCALL);
        EXPECT_FALSE(renderer.draw(0, 0, *other, 1.0F)) << static_cast<int>(function);
        device.fail(function, D3D_OK);
        // A buffer that could not be unlocked is still locked.
        if (function == DeviceFunction::UnlockVertices) break;
        EXPECT_TRUE(renderer.draw(0, 0, *other, 1.0F)) << static_cast<int>(function);
    }
}

TEST_F(RendererCalls, ARefusedOpacityIsSentAgain) {
    device.fail(DeviceFunction::SetRenderState, D3DERR_INVALIDCALL);
    EXPECT_FALSE(renderer.draw(0, 0, *texture, 0.5F));
    device.fail(DeviceFunction::SetRenderState, D3D_OK);
    EXPECT_TRUE(renderer.draw(0, 0, *texture, 0.5F));
    EXPECT_THAT(factors(), ElementsAre(0x80FFFFFF, 0x80FFFFFF));
}

TEST_F(RendererCalls, AFrameNeedsItsClearItsSceneAndItsPresent) {
    EXPECT_TRUE(renderer.endFrame());
    for (const DeviceFunction function : {DeviceFunction::Clear, DeviceFunction::BeginScene}) {
        device.fail(function, D3DERR_INVALIDCALL);
        EXPECT_FALSE(renderer.beginFrame());
        device.fail(function, D3D_OK);
    }
    ASSERT_TRUE(renderer.beginFrame());
    device.fail(DeviceFunction::EndScene, D3DERR_INVALIDCALL);
    device.forgetCalls();
    EXPECT_FALSE(renderer.endFrame());
    EXPECT_EQ(device.count(DeviceFunction::Present), 0u);
    device.fail(DeviceFunction::EndScene, D3D_OK);
    device.fail(DeviceFunction::Present, D3DERR_DRIVERINTERNALERROR);
    EXPECT_FALSE(renderer.endFrame());
    EXPECT_EQ(device.count(DeviceFunction::TestCooperativeLevel), 0u);
}

}  // namespace
}  // namespace grub
