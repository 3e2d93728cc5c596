#include <benchmark/benchmark.h>
#include <pixman.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include "control/testing.h"
#include "d3d_renderer.h"
#include "desktop/video.h"

// The rectangles of a busy frame: through renderer and device, straight through pixman, and as plain copies.
namespace grub {
namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;
constexpr std::size_t kPixels = std::size_t{kWidth} * kHeight;
constexpr int kCell = 64;
constexpr int kLayers = 5;
constexpr int kSprites = 30;

// A disc with a soft edge on a transparent ground, or an opaque tile.
struct PictureSource {
    int width;
    int height;
    std::vector<std::uint8_t> rgb;
    std::vector<std::uint8_t> alpha;
};

PictureSource makePicture(int width, int height, bool opaque, int seed) {
    PictureSource picture{width, height, {}, {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto shade = static_cast<std::uint8_t>(x * 3 + y * 5 + seed * 40);
            picture.rgb.insert(picture.rgb.end(), {shade, static_cast<std::uint8_t>(255 - shade), 90});
            const int across = 2 * x - width;
            const int down = 2 * y - height;
            const int inside = 255 - 255 * across * across / (width * width) - 255 * down * down / (height * height);
            picture.alpha.push_back(static_cast<std::uint8_t>(opaque ? 255 : std::clamp(inside * 4, 0, 255)));
        }
    }
    return picture;
}

// A rectangle of the frame: which picture, where.
struct Placed {
    std::size_t picture;
    int x;
    int y;
};

struct BusyFrame {
    std::vector<PictureSource> pictures;
    std::vector<Placed> placed;
};

const BusyFrame& busyFrame() {
    static const BusyFrame frame = [] {
        BusyFrame f;
        for (int layer = 0; layer < kLayers; ++layer)
            f.pictures.push_back(makePicture(kCell, kCell, layer == 0, layer));
        f.pictures.push_back(makePicture(kCell, kCell, false, kLayers));
        f.pictures.push_back(makePicture(kWidth, 100, true, kLayers + 1));
        for (std::size_t layer = 0; layer < kLayers; ++layer) {
            for (int cell = 0; cell < 14 * 10; ++cell) {
                f.placed.push_back({layer, cell % 14 * kCell - 30, cell / 14 * kCell - 20});
            }
        }
        for (int i = 0; i < kSprites; ++i) f.placed.push_back({kLayers, i * 97 % kWidth - 20, i * 61 % kHeight - 20});
        f.placed.push_back({kLayers + 1, 0, kHeight - 100});
        return f;
    }();
    return frame;
}

// Renderer and device, on a window without a display.
class Device {
public:
    Device() {
        platform::useDummyDrivers();
        WNDCLASSEXA windowClass{};
        windowClass.lpfnWndProc = DefWindowProcA;
        windowClass.lpszClassName = "Bench";
        RegisterClassExA(&windowClass);
        window_ = CreateWindowExA(0, "Bench", "Bench", 0, 0, 0, kWidth, kHeight, nullptr, nullptr, nullptr, nullptr);
        renderer_ = std::make_unique<D3DRenderer>(window_, kWidth, kHeight, false);
        if (!renderer_->init()) return;
        for (const PictureSource& picture : busyFrame().pictures) {
            textures_.emplace_back(renderer_->createTexture(static_cast<std::uint16_t>(picture.width),
                                                            static_cast<std::uint16_t>(picture.height)));
            textures_.back()->upload(picture.rgb.data(), TextureTransform::Identity, picture.alpha.data());
        }
    }
    ~Device() {
        textures_.clear();
        renderer_.reset();
        DestroyWindow(window_);
    }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    void draw() {
        renderer_->clear(kBlack);
        for (const Placed& at : busyFrame().placed) {
            renderer_->draw(static_cast<std::int16_t>(at.x), static_cast<std::int16_t>(at.y), *textures_[at.picture],
                            1.0F);
        }
    }
    D3DRenderer& renderer() { return *renderer_; }
    HWND window() const { return window_; }

private:
    HWND window_;
    std::unique_ptr<D3DRenderer> renderer_;
    std::vector<std::unique_ptr<Texture>> textures_;
};

// The same with nothing between: pictures multiplied beforehand, opaque ones copied.
class Pixman {
public:
    Pixman() : pixels_(kPixels), target_(imageOf(PIXMAN_x8r8g8b8, kWidth, kHeight, pixels_)) {
        for (const PictureSource& picture : busyFrame().pictures) {
            bits_.push_back(multiplied(picture));
            images_.push_back(imageOf(PIXMAN_a8r8g8b8, picture.width, picture.height, bits_.back()));
            opaque_.push_back(std::ranges::all_of(picture.alpha, [](std::uint8_t a) { return a == 255; }));
        }
    }
    ~Pixman() {
        for (pixman_image_t* image : images_) pixman_image_unref(image);
        pixman_image_unref(target_);
    }
    Pixman(const Pixman&) = delete;
    Pixman& operator=(const Pixman&) = delete;

    void draw() {
        pixman_fill(pixels_.data(), kWidth, 32, 0, 0, kWidth, kHeight, 0);
        for (const Placed& at : busyFrame().placed) {
            const PictureSource& picture = busyFrame().pictures[at.picture];
            pixman_image_composite32(opaque_[at.picture] ? PIXMAN_OP_SRC : PIXMAN_OP_OVER, images_[at.picture], nullptr,
                                     target_, 0, 0, 0, 0, at.x, at.y, picture.width, picture.height);
        }
    }
    const std::vector<std::uint32_t>& pixels() const { return pixels_; }

private:
    static pixman_image_t* imageOf(pixman_format_code_t format, int width, int height,
                                   std::vector<std::uint32_t>& bits) {
        return pixman_image_create_bits(format, width, height, bits.data(), width * 4);
    }
    static std::vector<std::uint32_t> multiplied(const PictureSource& picture) {
        std::vector<std::uint32_t> bits;
        for (std::size_t i = 0; i < picture.alpha.size(); ++i) {
            const std::uint32_t alpha = picture.alpha[i];
            const auto channel = [&](std::size_t c) { return (picture.rgb[3 * i + c] * alpha * 2 + 255) / 510; };
            bits.push_back(alpha << 24 | channel(0) << 16 | channel(1) << 8 | channel(2));
        }
        return bits;
    }

    std::vector<std::uint32_t> pixels_;
    pixman_image_t* target_;
    std::vector<std::vector<std::uint32_t>> bits_;
    std::vector<pixman_image_t*> images_;
    std::vector<bool> opaque_;
};

bool sameFrame(Device& device, const Pixman& pixman) {
    device.renderer().beginFrame();
    device.draw();
    device.renderer().endFrame();
    const auto shown = platform::testing::lastPicture(device.window()).pixels;
    return std::ranges::equal(shown, pixman.pixels(),
                              [](std::uint32_t a, std::uint32_t b) { return (a & 0xFFFFFF) == (b & 0xFFFFFF); });
}

void quadsOurs(benchmark::State& state) {
    Device device;
    Pixman pixman;
    pixman.draw();
    if (!sameFrame(device, pixman)) return state.SkipWithError("the pictures differ");
    device.renderer().beginFrame();
    for (auto _ : state) device.draw();
    device.renderer().endFrame();
}
BENCHMARK(quadsOurs)->Name("quads/ours")->Unit(benchmark::kMicrosecond);

void quadsPixman(benchmark::State& state) {
    Pixman pixman;
    for (auto _ : state) pixman.draw();
    benchmark::DoNotOptimize(pixman.pixels().data());
}
BENCHMARK(quadsPixman)->Name("quads/pixman")->Unit(benchmark::kMicrosecond);

// The same rectangles, copied whatever their alpha: what memory alone costs.
void quadsLimit(benchmark::State& state) {
    std::vector<std::uint32_t> target(kPixels);
    std::vector<std::uint32_t> source(kPixels, 0x123456);
    for (auto _ : state) {
        std::memset(target.data(), 0, target.size() * 4);
        for (const Placed& at : busyFrame().placed) {
            const PictureSource& picture = busyFrame().pictures[at.picture];
            const int left = std::max(at.x, 0);
            const int width = std::min(at.x + picture.width, kWidth) - left;
            for (int y = std::max(at.y, 0); width > 0 && y < std::min(at.y + picture.height, kHeight); ++y) {
                const auto from = static_cast<std::size_t>(y - at.y) * static_cast<std::size_t>(picture.width);
                const auto to = static_cast<std::size_t>(y) * kWidth + static_cast<std::size_t>(left);
                std::memcpy(&target[to], &source[from], static_cast<std::size_t>(width) * 4);
            }
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(quadsLimit)->Name("quads/limit")->Unit(benchmark::kMicrosecond);

void presented(benchmark::State& state) {
    Device device;
    for (auto _ : state) {
        device.renderer().beginFrame();
        device.renderer().endFrame();
    }
}
BENCHMARK(presented)->Name("present/ours")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace grub
