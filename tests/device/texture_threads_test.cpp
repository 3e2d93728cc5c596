#include <array>
#include <atomic>
#include <thread>

#include "ready_renderer.h"

namespace grub {
namespace {

TEST_F(ReadyRenderer, ShowsTexturesThatALoaderMakesMeanwhile) {
    std::array<std::unique_ptr<Texture>, 60> textures;
    std::atomic<std::uint32_t> ready{0};
    const std::jthread loader([&] {
        for (auto& texture : textures)
            texture = plainTexture(16, 16, {static_cast<std::uint8_t>(ready), 1, 2}), ++ready;
    });
    for (std::uint32_t shown = 0; shown < textures.size(); ++shown) {
        while (ready <= shown) std::this_thread::yield();
        const auto screen = frameOver(kWhite, [&] { EXPECT_TRUE(drawAt(0, 0, *textures.at(shown))); });
        ASSERT_EQ(screen.at(15, 15), shown << 16 | 0x0102u);
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
