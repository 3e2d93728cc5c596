// What a full frame costs through the level's drawing, the renderer and the device, beside the same rectangles given
// straight to pixman and beside a plain copy of them. All three end with the finished picture handed over as a copy.

#include <benchmark/benchmark.h>
#include <pixman.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "bmp_writer.h"
#include "control/call_controls.h"
#include "fake_renderer.h"
#include "game_screen.h"
#include "level_loader.h"
#include "level_view.h"
#include "memory_source.h"

namespace grub {
namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;
constexpr std::size_t kPixels = std::size_t{kWidth} * kHeight;

// Where a pixel lies in rows of `width` pixels.
constexpr std::size_t offsetOf(int column, int row, int width) {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(width) + static_cast<std::size_t>(column);
}

// A block for every cell: background and floor are opaque, the three layers have soft edges and holes.
constexpr const char* kBlockTable =
    "[1]\r\ntype=1\r\nspriteFon=1\r\nsprite=2\r\n[2]\r\nsprite=3\r\n[3]\r\nsprite=4\r\n[4]\r\nsprite=5\r\n";
// With the hero here the view is scrolled by 40 pixels, so that 14 of the 15 columns can be seen.
constexpr int kHeroX = 584;
constexpr int kColumns = 15;
constexpr int kRows = 10;
constexpr int kPictures = 7;  // animation ids 1 to 5 for cells, 6 for sprites and 7 for digits

Bytes picture(unsigned width, unsigned height, bool opaque) {
    Bytes rgb;
    Bytes alpha;
    for (unsigned i = 0; i < width * height; ++i) {
        for (unsigned c = 0; c < 3; ++c) rgb.push_back(static_cast<std::uint8_t>(i * 7 + c * 50));
        const unsigned edge = i % width;
        alpha.push_back(opaque ? 255 : edge < width / 4 ? 0 : edge < width / 3 ? 128 : 255);
    }
    return writeBmp(width, height, rgb, alpha);
}

/// A level that shows 14 x 10 cells with five pictures each, 30 sprites, a panel and 12 digits, on the renderer that is
/// installed while it is made.
class FullFrame {
public:
    FullFrame() {
        source_.put("levels\\typeblok.ini", std::string(kBlockTable));
        for (int id = 1; id <= kPictures; ++id) {
            source_.put("picture", picture(64, id == kPictures ? 200 : 64, id <= 2));
            animations_.addAnimationFile("picture", id, id == kPictures ? 20 : 64, TextureTransform::Identity, kBlue);
            loader_.spriteNumbers().addSpriteNumber(id, static_cast<std::int16_t>(id));
        }
        source_.put("panel", picture(kWidth, 64, true));
        panel_.emplace(source_.load("panel"));
        panel_->acquire();
        loader_.loadBlockTypes();
        std::string reason;
        auto map = loader_.build(level(), reason);
        if (!map) std::abort();
        world_.emplace(std::move(*map), WorldStart{}, animations_.frameCounts());
        camera_.follow(kHeroX, 0, kColumns, kRows);
    }

    void draw(Renderer& renderer) {
        drawLevel(*world_, camera_, animations_, renderer);
        for (int i = 0; i < 30; ++i) drawStrip(renderer, 6, i * 37 % 780 - 20, i * 53 % 560 - 20);
        panel_->draw(renderer, {0, 536}, 1.0F);
        for (int i = 0; i < 12; ++i) drawStrip(renderer, 7, 100 + i * 10, 560);
    }

private:
    static LevelFile level() {
        LevelFile file;
        file.width = kColumns;
        file.height = kRows;
        file.records.assign(std::size_t{kColumns} * kRows,
                            CellRecord{.base = 1, .layer2 = 2, .layer3 = 3, .layer4 = 4});
        file.records[0].code = 8;
        return file;
    }

    void drawStrip(Renderer& renderer, int id, int x, int y) {
        animations_.strip(id)->draw(renderer, {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)}, 1.0F);
    }

    MemorySource source_;
    LevelLoader loader_{source_};
    AnimationTable animations_{source_, loader_.spriteNumbers()};
    std::optional<Picture> panel_;
    std::optional<World> world_;
    Camera camera_;
};

struct Rectangle {
    int x;
    int y;
    int picture;
};

struct Pixels {
    int width;
    int height;
    bool opaque;
    std::vector<std::uint32_t> premultiplied;
};

/// The rectangles of a full frame and their pixels, recorded from what the renderer was asked to draw.
struct Recording {
    std::vector<Rectangle> rectangles;
    std::vector<Pixels> pictures;

    Recording() {
        FakeRenderer fake;
        FullFrame frame;
        frame.draw(fake);
        std::map<const Texture*, int> known;
        for (const auto& drawn : fake.drawn) {
            const auto [place, isNew] = known.try_emplace(drawn.texture, static_cast<int>(pictures.size()));
            if (isNew) pictures.push_back(pixelsOf(static_cast<const FakeTexture&>(*drawn.texture)));
            rectangles.push_back({drawn.x, drawn.y, place->second});
        }
    }

    static Pixels pixelsOf(const FakeTexture& texture) {
        Pixels pixels{texture.width(), texture.height(), true, {}};
        for (std::size_t i = 0; i < texture.uploadedAlpha.size(); ++i) {
            const std::uint32_t alpha = texture.uploadedAlpha[i];
            const auto times = [&](std::size_t c) { return (texture.uploadedRgb[i * 3 + c] * alpha + 127) / 255; };
            pixels.premultiplied.push_back(alpha << 24 | times(0) << 16 | times(1) << 8 | times(2));
            pixels.opaque = pixels.opaque && alpha == 255;
        }
        return pixels;
    }
};

/// The peer: pixman alone.
class PixmanScreen {
public:
    explicit PixmanScreen(const Recording& recording) : recording_(recording), screen_(kPixels), handedOver_(kPixels) {
        target_ = pixman_image_create_bits(PIXMAN_x8r8g8b8, kWidth, kHeight, screen_.data(), kWidth * 4);
        for (const Pixels& p : recording.pictures)
            images_.push_back(pixman_image_create_bits(
                PIXMAN_a8r8g8b8, p.width, p.height, const_cast<std::uint32_t*>(p.premultiplied.data()), p.width * 4));
    }
    PixmanScreen(const PixmanScreen&) = delete;
    PixmanScreen& operator=(const PixmanScreen&) = delete;
    ~PixmanScreen() {
        for (pixman_image_t* image : images_) pixman_image_unref(image);
        pixman_image_unref(target_);
    }

    const std::vector<std::uint32_t>& draw() {
        pixman_fill(screen_.data(), kWidth, 32, 0, 0, kWidth, kHeight, 0xFF000000);
        for (const Rectangle& r : recording_.rectangles) {
            const Pixels& p = recording_.pictures[static_cast<std::size_t>(r.picture)];
            pixman_image_composite32(p.opaque ? PIXMAN_OP_SRC : PIXMAN_OP_OVER,
                                     images_[static_cast<std::size_t>(r.picture)], nullptr, target_, 0, 0, 0, 0, r.x,
                                     r.y, p.width, p.height);
        }
        std::memcpy(handedOver_.data(), screen_.data(), kPixels * 4);
        return handedOver_;
    }

private:
    const Recording& recording_;
    std::vector<std::uint32_t> screen_;
    std::vector<std::uint32_t> handedOver_;
    pixman_image_t* target_;
    std::vector<pixman_image_t*> images_;
};

const Recording& recording() {
    static const Recording once;
    return once;
}

bool samePicture(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if ((a[i] ^ b[i]) & 0xFFFFFF) return false;
    return true;
}

void frameOurs(benchmark::State& state) {
    GameScreen<FullFrame> screen;
    {
        const platform::testing::DeviceControls device;
        screen.draw();
        PixmanScreen peer(recording());
        if (!samePicture(device.frame(), peer.draw())) return state.SkipWithError("the pictures differ");
    }
    for (auto _ : state) screen.draw();
    state.counters["rectangles"] = static_cast<double>(recording().rectangles.size());
}

void framePixman(benchmark::State& state) {
    PixmanScreen screen(recording());
    for (auto _ : state) benchmark::DoNotOptimize(screen.draw().data());
}

void frameLimit(benchmark::State& state) {
    std::vector<std::uint32_t> screen(kPixels);
    std::vector<std::uint32_t> handedOver(kPixels);
    for (auto _ : state) {
        std::ranges::fill(screen, 0xFF000000);
        for (const Rectangle& r : recording().rectangles) {
            const Pixels& p = recording().pictures[static_cast<std::size_t>(r.picture)];
            const int left = std::max(0, -r.x);
            const int width = std::min(p.width, kWidth - r.x) - left;
            for (int row = std::max(0, -r.y); row < std::min(p.height, kHeight - r.y) && width > 0; ++row)
                std::memcpy(&screen[offsetOf(r.x + left, r.y + row, kWidth)],
                            &p.premultiplied[offsetOf(left, row, p.width)], static_cast<std::size_t>(width) * 4);
        }
        std::memcpy(handedOver.data(), screen.data(), kPixels * 4);
        benchmark::DoNotOptimize(handedOver.data());
    }
}

BENCHMARK(frameOurs)->Name("frame/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK(framePixman)->Name("frame/pixman")->Unit(benchmark::kMicrosecond);
BENCHMARK(frameLimit)->Name("frame/limit")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace grub
