#include <atomic>
#include <thread>

#include "ready_renderer.h"

namespace grub {
namespace {

TEST_F(ReadyRenderer, ShowsTexturesThatALoaderMakesMeanwhile) {
    constexpr int kTextures = 200;
    std::vector<std::unique_ptr<Texture>> textures(kTextures);
    std::atomic<int> ready{0};
    const std::jthread loader([&] {
        for (int i = 0; i < kTextures; ++i) {
            const Colour colour{static_cast<std::uint8_t>(i), 1, 2};
            textures[static_cast<std::size_t>(i)] = plainTexture(16, 16, colour);
            ready.store(i + 1, std::memory_order_release);
        }
    });
    // Each frame shows what has become ready since the one before, in tiles of 16 x 16.
    const auto tileX = [](int i) { return i % 50 * 16; };
    const auto tileY = [](int i) { return i / 50 * 16; };
    for (int shown = 0, newest = 0; shown < kTextures; shown = newest) {
        while ((newest = ready.load(std::memory_order_acquire)) == shown) std::this_thread::yield();
        const auto screen = frameOver(kWhite, [&] {
            for (int i = shown; i < newest; ++i) {
                EXPECT_TRUE(drawAt(tileX(i), tileY(i), *textures[static_cast<std::size_t>(i)]));
            }
        });
        for (int i = shown; i < newest; ++i) {
            ASSERT_EQ(screen.at(tileX(i) + 15, tileY(i) + 15), static_cast<std::uint32_t>(i) << 16 | 0x0102u);
        }
    }
}

TEST_F(ReadyRenderer, ShowsATextureThatIsWrittenWholeOrNotAtAll) {
    const auto texture = plainTexture(64, 64, kBlack);
    const std::jthread loader([&](const std::stop_token& stop) {
        for (unsigned i = 0; !stop.stop_requested(); ++i) {
            const std::vector<std::uint8_t> grey(std::size_t{64} * 64 * 3, static_cast<std::uint8_t>(i));
            EXPECT_TRUE(texture->upload(grey.data(), TextureTransform::Identity, nullptr));
        }
    });
    for (int i = 0; i < 20; ++i) {
        const auto screen = frameOver(kBlue, [&] { EXPECT_TRUE(drawAt(0, 0, *texture)); });
        const std::uint32_t first = screen.at(0, 0);
        for (int pixel = 0; pixel < 64 * 64; ++pixel) ASSERT_EQ(screen.at(pixel % 64, pixel / 64), first);
    }
}

}  // namespace
}  // namespace grub
