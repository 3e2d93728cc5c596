#include <atomic>
#include <thread>

#include "ready_renderer.h"

namespace grub {
namespace {

class TextureThreads : public ReadyRenderer {};

TEST_F(TextureThreads, ALoaderMakesTexturesWhileTheGameDraws) {
    constexpr int kTextures = 200;
    std::vector<std::unique_ptr<Texture>> textures(kTextures);
    std::atomic<int> ready{0};
    std::thread loader([&] {
        for (int i = 0; i < kTextures; ++i) {
            const Colour colour{static_cast<std::uint8_t>(i), 1, 2};
            textures[static_cast<std::size_t>(i)] = plainTexture(16, 16, colour);
            ready.store(i + 1, std::memory_order_release);
        }
    });
    int drawn = 0;
    while (drawn < kTextures) {
        const int newest = ready.load(std::memory_order_acquire);
        if (newest == drawn) std::this_thread::yield();
        for (; drawn < newest; ++drawn) {
            const auto screen =
                frameOver(kWhite, [&] { renderer.draw(0, 0, *textures[static_cast<std::size_t>(drawn)], 1.0F); });
            EXPECT_EQ(screen.at(15, 15), static_cast<std::uint32_t>(drawn & 0xFF) << 16 | 0x0102u);
        }
    }
    loader.join();
}

TEST_F(TextureThreads, ATextureThatIsWrittenIsShownWholeOrNotAtAll) {
    const auto texture = plainTexture(64, 64, kBlack);
    std::atomic<bool> stop{false};
    std::thread loader([&] {
        for (unsigned i = 0; !stop.load(); ++i) {
            const std::vector<std::uint8_t> grey(64 * 64 * 3, static_cast<std::uint8_t>(i));
            EXPECT_TRUE(texture->upload(grey.data(), TextureTransform::Identity, nullptr));
        }
    });
    for (int i = 0; i < 50; ++i) {
        const auto screen = frameOver(kBlue, [&] { EXPECT_TRUE(renderer.draw(0, 0, *texture, 1.0F)); });
        const std::uint32_t first = screen.at(0, 0);
        for (int pixel = 0; pixel < 64 * 64; ++pixel) ASSERT_EQ(screen.at(pixel % 64, pixel / 64), first);
    }
    stop = true;
    loader.join();
}

}  // namespace
}  // namespace grub
