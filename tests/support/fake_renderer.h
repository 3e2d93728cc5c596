#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <vector>

#include "bytes.h"
#include "engine_services.h"
#include "renderer.h"

namespace grub {

class FakeTexture;

/// A renderer that draws nothing and records everything. While it lives it is the program's renderer.
class FakeRenderer : public Renderer {
public:
    struct Drawn {
        std::int16_t x;
        std::int16_t y;
        const Texture* texture;
        float opacity;

        friend bool operator==(const Drawn&, const Drawn&) = default;
    };

    /// What `drawPart` drew of a texture.
    struct Part {
        std::int16_t x;
        std::int16_t y;
        std::int16_t srcX;
        std::int16_t srcY;
        std::uint16_t w;
        std::uint16_t h;

        friend bool operator==(const Part&, const Part&) = default;
    };

    /// One at a time: the end of one leaves the program without a renderer.
    FakeRenderer() { EngineServices::installRenderer(this); }
    FakeRenderer(const FakeRenderer&) = delete;
    FakeRenderer& operator=(const FakeRenderer&) = delete;
    ~FakeRenderer() override { EngineServices::installRenderer(nullptr); }

    bool init() override { return true; }
    bool shutdown() override { return true; }
    [[nodiscard]] bool isReady() const override { return ready; }
    [[nodiscard]] Texture* createTexture(std::uint16_t width, std::uint16_t height) override;
    bool beginFrame() override { return ready; }
    bool endFrame() override { return onEndFrame ? onEndFrame(), true : true; }
    bool clearRect(std::uint16_t, std::uint16_t, std::uint16_t, std::uint16_t, Colour) override { return true; }
    bool clear(Colour) override { return true; }
    bool drawPart(std::int16_t x, std::int16_t y, const Texture& texture, std::int16_t srcX, std::int16_t srcY,
                  std::uint16_t w, std::uint16_t h, float alpha) override {
        parts.push_back({x, y, srcX, srcY, w, h});
        return draw(x, y, texture, alpha);
    }
    bool draw(std::int16_t x, std::int16_t y, const Texture& texture, float alpha) override {
        drawn.push_back({x, y, &texture, alpha});
        return true;
    }

    bool ready = true;                       ///< false: no texture is made and no frame begins
    std::atomic<int> uploadsLeft = 1000000;  ///< the uploads after these fail
    std::mutex texturesLock;                 ///< held while a texture is made or goes, on any thread
    std::vector<FakeTexture*> textures;      ///< that exist, oldest first
    std::vector<Drawn> drawn;                ///< everything drawn so far
    std::vector<Part> parts;                 ///< those of `drawn` that are parts of a texture
    /// Called in the middle of `endFrame`, on the thread that draws; may be empty.
    std::function<void()> onEndFrame;
};

/// A texture that remembers what it was given.
class FakeTexture final : public Texture {
public:
    FakeTexture(FakeRenderer& renderer, std::uint16_t width, std::uint16_t height)
        : renderer_(renderer), width_(width), height_(height) {
        const std::lock_guard lock(renderer_.texturesLock);
        renderer_.textures.push_back(this);
    }
    ~FakeTexture() override {
        const std::lock_guard lock(renderer_.texturesLock);
        std::erase(renderer_.textures, this);
    }

    [[nodiscard]] Texture* clone() const override { return nullptr; }
    [[nodiscard]] bool isValid() const override { return true; }
    bool upload(const std::uint8_t* rgb, TextureTransform transform, const std::uint8_t* alpha) override {
        if (renderer_.uploadsLeft-- <= 0) return false;
        const std::size_t pixels = std::size_t{width_} * height_;
        uploadedRgb.assign(rgb, rgb + pixels * 3);
        if (alpha != nullptr) uploadedAlpha.assign(alpha, alpha + pixels);
        uploadedTransform = transform;
        keysBeforeUpload = keys.size();
        return true;
    }
    void setColourKey(Colour key) override { keys.push_back(key); }
    [[nodiscard]] std::uint16_t width() const override { return width_; }
    [[nodiscard]] std::uint16_t height() const override { return height_; }

    Bytes uploadedRgb;
    Bytes uploadedAlpha;
    TextureTransform uploadedTransform = TextureTransform::Identity;
    std::size_t keysBeforeUpload = 0;
    std::vector<Colour> keys;  ///< in the order in which they were set

private:
    FakeRenderer& renderer_;
    const std::uint16_t width_;
    const std::uint16_t height_;
};

inline Texture* FakeRenderer::createTexture(std::uint16_t width, std::uint16_t height) {
    return ready ? new FakeTexture(*this, width, height) : nullptr;
}

}  // namespace grub
