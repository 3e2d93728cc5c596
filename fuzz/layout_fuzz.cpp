#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "bmp_writer.h"
#include "engine_services.h"
#include "kest_interface.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

/// Draws nothing and keeps nothing.
class NoTexture final : public grub::Texture {
public:
    [[nodiscard]] Texture* clone() const override { return nullptr; }
    [[nodiscard]] bool isValid() const override { return true; }
    bool upload(const std::uint8_t*, grub::TextureTransform, const std::uint8_t*) override { return true; }
    void setColourKey(grub::Colour) override {}
    [[nodiscard]] std::uint16_t width() const override { return 2; }
    [[nodiscard]] std::uint16_t height() const override { return 2; }
};

class NoRenderer final : public grub::Renderer {
public:
    bool init() override { return true; }
    bool shutdown() override { return true; }
    [[nodiscard]] bool isReady() const override { return true; }
    [[nodiscard]] grub::Texture* createTexture(std::uint16_t, std::uint16_t) override { return new NoTexture; }
    bool beginFrame() override { return true; }
    bool endFrame() override { return true; }
    bool clearRect(std::uint16_t, std::uint16_t, std::uint16_t, std::uint16_t, grub::Colour) override { return true; }
    bool clear(grub::Colour) override { return true; }
    bool drawPart(std::int16_t, std::int16_t, const grub::Texture&, std::int16_t, std::int16_t, std::uint16_t,
                  std::uint16_t, float) override {
        return true;
    }
    bool draw(std::int16_t x, std::int16_t y, const grub::Texture&, float) override {
        require(x > -2 && x < grub::kScreenWidth && y > -2 && y < grub::kScreenHeight);
        return true;
    }
};

/// Has every name: glyph tables and descriptions are the input, all else is a picture of 2 x 2 pixels.
class InputSource final : public grub::ResourceSource {
public:
    explicit InputSource(grub::SharedBuffer input) : input_(std::move(input)) {}
    bool exists(const grub::EngineString& /*name*/) override { return true; }
    grub::SharedBuffer load(const grub::EngineString& name) override {
        if (name.view().ends_with("._i_2") || name.view().ends_with(".dat")) return input_;
        static const grub::Bytes picture = grub::writeBmp(2, 2, grub::Bytes(12, 1));
        return grub::SharedBuffer::view(picture.data(), static_cast<std::uint32_t>(picture.size()));
    }

private:
    grub::SharedBuffer input_;
};

void checkLimits(const grub::LayoutDescription& description) {
    require(description.layouts.size() <= grub::kMostLayouts && description.fontKeys.size() <= grub::kMostFonts);
    for (const grub::Layout& layout : description.layouts) {
        require(layout.items.size() <= grub::kMostItems);
        for (const grub::LayoutItem& item : layout.items) {
            require(item.pictures.size() <= grub::kMostElements && item.texts.size() <= grub::kMostElements);
            for (const grub::TextElement& text : item.texts) require(text.font < description.fontKeys.size());
        }
    }
}

void useAll(grub::KestInterface& pages) {
    for (const grub::Layout& layout : pages.description().layouts) {
        pages.openLayout(grub::EngineString(layout.name));
        for (const grub::LayoutItem& item : layout.items) {
            const grub::EngineString name(item.name);
            for (const int element : {-2, -1, 0, 1, 50}) pages.drawItem(name, 3, -3, element, 1);
            pages.drawText(name, "text\n", 1, 1, -1);
            for (const grub::PictureElement& picture : item.pictures) {
                const grub::EngineString hit(picture.name);
                const auto [x, y] = pages.relativePosition(hit, {100, 100});
                if (pages.hitTest(hit, {100, 100})) require(x > 0 && y > 0);
            }
        }
    }
}

}  // namespace

// Whatever is read of a description or of a glyph table keeps the limits, and can be loaded, drawn and asked.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static NoRenderer renderer;
    grub::EngineServices::installRenderer(&renderer);
    const auto input = grub::bufferOf({data, size});
    const grub::GlyphTable table = grub::readGlyphTable(input.bytes());
    for (int code = -128; code < 128; ++code)
        require((table.find(static_cast<char>(code)) != nullptr) == (code >= table.first && code <= table.last));

    InputSource source(input);
    grub::KestInterface pages(source, "ui", std::make_unique<InputSource>(input));
    checkLimits(pages.description());
    useAll(pages);
    return 0;
}
