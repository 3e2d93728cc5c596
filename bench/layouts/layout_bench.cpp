// The pages of this build: opening all of them beside the decoding of their pictures, and drawing one beside the same
// rectangles given straight to pixman.

#include <benchmark/benchmark.h>
#include <pixman.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "control/call_controls.h"
#include "fake_renderer.h"
#include "files/files.h"
#include "game_screen.h"
#include "image_decoder.h"
#include "kest_interface.h"
#include "resource_package.h"

namespace grub {
namespace {

constexpr std::array kInterfaces{"make_m64", "make_z64"};
constexpr const char* kDrawnInterface = "make_m64";
constexpr const char* kDrawnLayout = "options_menu";
constexpr const char* kNoPages = "the packages of this build have no pages";

/// The data package of this build; the interfaces find theirs beside it.
ResourcePackage& data() {
    platform::setDataDirectory(GRUB_DATA_DIR);
    static ResourcePackage package("data64.pak");
    return package;
}

bool hasPages() {
    return std::ranges::all_of(kInterfaces,
                               [](const char* name) { return data().exists(EngineString("data\\") + name + "._i_2"); });
}

/// Textures that only count their pixels, so that opening costs what the interface itself does.
class CountingRenderer final : public FakeRenderer {
public:
    class CountedTexture final : public Texture {
    public:
        CountedTexture(std::uint16_t width, std::uint16_t height) : width_(width), height_(height) {}
        [[nodiscard]] Texture* clone() const override { return nullptr; }
        [[nodiscard]] bool isValid() const override { return true; }
        bool upload(const std::uint8_t* /*rgb*/, TextureTransform /*transform*/, const std::uint8_t*) override {
            return true;
        }
        void setColourKey(Colour /*key*/) override {}
        [[nodiscard]] std::uint16_t width() const override { return width_; }
        [[nodiscard]] std::uint16_t height() const override { return height_; }

    private:
        std::uint16_t width_;
        std::uint16_t height_;
    };

    [[nodiscard]] Texture* createTexture(std::uint16_t width, std::uint16_t height) override {
        pixels += std::size_t{width} * height;
        return new CountedTexture(width, height);
    }

    std::size_t pixels = 0;  // of all textures so far
};

void openAll() {
    for (const char* name : kInterfaces) KestInterface(data(), name).prepareAll();
}

/// The encoded pictures that the interfaces take into use when all pages are opened, fonts included.
std::vector<SharedBuffer> allPictures() {
    std::vector<SharedBuffer> pictures;
    for (const EngineString name : kInterfaces) {
        const SharedBuffer file = data().load("data\\" + name + "._i_2");
        const auto description = readLayoutDescription({reinterpret_cast<const char*>(file.data()), file.size()});
        std::set<std::string> files;
        for (const Layout& layout : description.layouts)
            for (const LayoutItem& item : layout.items)
                for (const PictureElement& element : item.pictures) files.insert(element.file);
        for (const std::string& key : description.fontKeys) files.insert(key + ".bmp");
        ResourcePackage package(name + ".pak");
        for (const std::string& picture : files) pictures.push_back(package.load(name + "\\" + EngineString(picture)));
    }
    return pictures;
}

std::size_t decodeAll(const std::vector<SharedBuffer>& pictures) {
    std::size_t pixels = 0;
    for (const SharedBuffer& picture : pictures) {
        const auto decoder = createImageDecoder(picture);
        SharedBuffer rgb;
        SharedBuffer alpha;
        if (decoder != nullptr && decoder->decode(rgb, alpha)) pixels += rgb.size() / 3;
    }
    return pixels;
}

void pagesOurs(benchmark::State& state) {
    if (!hasPages()) return state.SkipWithError(kNoPages);
    CountingRenderer renderer;
    openAll();
    if (renderer.pixels != decodeAll(allPictures())) return state.SkipWithError("the pixels differ");
    for (auto _ : state) openAll();
}

void pagesDecoding(benchmark::State& state) {
    if (!hasPages()) return state.SkipWithError(kNoPages);
    const std::vector<SharedBuffer> pictures = allPictures();
    for (auto _ : state) benchmark::DoNotOptimize(decodeAll(pictures));
}

BENCHMARK(pagesOurs)->Name("pages/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(pagesDecoding)->Name("pages/decoding")->Unit(benchmark::kMillisecond);

/// One page with all its items.
class Page {
public:
    Page() { pages_.openLayout(kDrawnLayout); }

    /// The interface draws with the renderer that is installed.
    void draw(const Renderer& /*installed*/) {
        for (const Layout& layout : pages_.description().layouts) {
            if (layout.name != kDrawnLayout) continue;
            for (const LayoutItem& item : layout.items)
                pages_.drawItem(EngineString(item.name), 0, 0, KestInterface::kAllElements, 0);
        }
    }

private:
    KestInterface pages_{data(), kDrawnInterface};
};

/// The rectangles of the page and the pixels of their textures, recorded from what the renderer was asked to draw.
class Recording final : public FakeRenderer {
public:
    struct Pixels {
        int width;
        int height;
        bool isOpaque;
        std::vector<std::uint32_t> premultiplied;
    };
    struct Rectangle {
        const Pixels* pixels;
        Part part;
    };

    Recording() { Page().draw(*EngineServices::renderer()); }

    bool drawPart(std::int16_t x, std::int16_t y, const Texture& texture, std::int16_t srcX, std::int16_t srcY,
                  std::uint16_t w, std::uint16_t h, float /*alpha*/) override {
        const auto [place, isNew] = pixels_.try_emplace(&texture);
        if (isNew) place->second = pixelsOf(static_cast<const FakeTexture&>(texture));
        rectangles.push_back({&place->second, {x, y, srcX, srcY, w, h}});
        return true;
    }
    bool draw(std::int16_t x, std::int16_t y, const Texture& texture, float alpha) override {
        return drawPart(x, y, texture, 0, 0, texture.width(), texture.height(), alpha);
    }

    std::vector<Rectangle> rectangles;

private:
    static Pixels pixelsOf(const FakeTexture& texture) {
        Pixels pixels{texture.width(), texture.height(), true, {}};
        for (std::size_t i = 0; i < texture.uploadedRgb.size() / 3; ++i) {
            const std::uint8_t* const rgb = &texture.uploadedRgb[i * 3];
            const bool isKey = !texture.keys.empty() && texture.keys.back() == Colour{rgb[0], rgb[1], rgb[2]};
            const std::uint32_t alpha = texture.uploadedAlpha.empty() ? (isKey ? 0 : 255) : texture.uploadedAlpha[i];
            const auto times = [&](std::size_t c) { return (rgb[c] * alpha + 127) / 255; };
            pixels.premultiplied.push_back(alpha << 24 | times(0) << 16 | times(1) << 8 | times(2));
            pixels.isOpaque = pixels.isOpaque && alpha == 255;
        }
        return pixels;
    }

    std::map<const Texture*, Pixels> pixels_;
};

const Recording& recording() {
    static const Recording& once = []() -> const Recording& {
        const Recording& made = *new Recording;
        EngineServices::installRenderer(nullptr);
        return made;
    }();
    return once;
}

/// The peer: pixman alone. Like the game's renderer it hands over the finished picture as a copy.
class PixmanScreen {
public:
    PixmanScreen() : screen_(std::size_t{kScreenWidth} * kScreenHeight), handedOver_(screen_.size()) {
        target_ = imageOf(PIXMAN_x8r8g8b8, kScreenWidth, kScreenHeight, screen_.data());
        for (const auto& [pixels, part] : recording().rectangles) {
            auto*& image = images_[pixels];
            if (image == nullptr)
                image = imageOf(PIXMAN_a8r8g8b8, pixels->width, pixels->height,
                                const_cast<std::uint32_t*>(pixels->premultiplied.data()));
        }
    }
    PixmanScreen(const PixmanScreen&) = delete;
    PixmanScreen& operator=(const PixmanScreen&) = delete;
    ~PixmanScreen() {
        for (const auto& [pixels, image] : images_) pixman_image_unref(image);
        pixman_image_unref(target_);
    }

    const std::vector<std::uint32_t>& draw() {
        pixman_fill(screen_.data(), kScreenWidth, 32, 0, 0, kScreenWidth, kScreenHeight, 0xFF000000);
        for (const auto& [pixels, part] : recording().rectangles)
            pixman_image_composite32(pixels->isOpaque ? PIXMAN_OP_SRC : PIXMAN_OP_OVER, images_.at(pixels), nullptr,
                                     target_, part.srcX, part.srcY, 0, 0, part.x, part.y, part.w, part.h);
        std::memcpy(handedOver_.data(), screen_.data(), screen_.size() * 4);
        return handedOver_;
    }

private:
    static pixman_image_t* imageOf(pixman_format_code_t format, int width, int height, std::uint32_t* bits) {
        return pixman_image_create_bits(format, width, height, bits, width * 4);
    }

    std::vector<std::uint32_t> screen_;
    std::vector<std::uint32_t> handedOver_;
    pixman_image_t* target_;
    std::map<const Recording::Pixels*, pixman_image_t*> images_;
};

bool isSamePicture(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b) {
    return std::ranges::equal(
        a, b, [](std::uint32_t left, std::uint32_t right) { return (left & 0xFFFFFF) == (right & 0xFFFFFF); });
}

void pageOurs(benchmark::State& state) {
    if (!hasPages()) return state.SkipWithError(kNoPages);
    PixmanScreen peer;
    GameScreen<Page> screen;
    for (auto _ : state) screen.draw();
    const platform::testing::DeviceControls device;
    screen.draw();
    if (!isSamePicture(device.frame(), peer.draw())) state.SkipWithError("the pictures differ");
    state.counters["rectangles"] = static_cast<double>(recording().rectangles.size());
}

void pagePixman(benchmark::State& state) {
    if (!hasPages()) return state.SkipWithError(kNoPages);
    PixmanScreen screen;
    for (auto _ : state) benchmark::DoNotOptimize(screen.draw().data());
}

BENCHMARK(pageOurs)->Name("page/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK(pagePixman)->Name("page/pixman")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace grub
