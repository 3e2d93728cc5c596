#include "screen_transition.h"

#include "engine_services.h"

namespace grub {
namespace {

constexpr std::uint16_t kTileSize = 64;
/// Pairs of stripes that cover the screen: the stripe is 50 pixels high, and a pair has one at each edge.
constexpr std::uint32_t kStripePairs = 12;

SharedBuffer loadPresent(ResourceSource& source, const char* name) {
    return source.exists(name) ? source.load(name) : SharedBuffer();
}

/// An empty strip stays unused and shows nothing.
void prepare(FrameStrip& tiles) {
    tiles.setColourKey(kBlue);
    tiles.acquire();
}

}  // namespace

ScreenTransition::ScreenTransition(ResourceSource& source)
    : stripe_(loadPresent(source, "data\\gif\\polosa.bmp")),
      openTiles_(loadPresent(source, "data\\gif\\open.bmp"), kTileSize),
      closeTiles_(loadPresent(source, "data\\gif\\close.bmp"), kTileSize) {
    stripe_.acquire();
    prepare(openTiles_);
    prepare(closeTiles_);
}

void ScreenTransition::start(TransitionMode mode) {
    mode_ = mode;
    finished_ = false;
    stepCount_ = 0;
    openTiles_.setFrame(0);
    closeTiles_.setFrame(0);
}

void ScreenTransition::step() {
    switch (mode_) {
        case TransitionMode::ShutterOpen: openShutter(); break;
        case TransitionMode::ShutterClose: closeShutter(); break;
        case TransitionMode::TileIn: stepTiles(openTiles_); break;
        case TransitionMode::TileOut: stepTiles(closeTiles_); break;
    }
    ++stepCount_;
}

// Each step takes away the pair that is nearest to the middle.
void ScreenTransition::openShutter() {
    const std::uint32_t left = stepCount_ < kStripePairs ? kStripePairs - stepCount_ : 0;
    for (std::uint32_t pair = left; pair-- > 0;) drawStripePair(pair);
    finished_ = stepCount_ > kStripePairs;
}

void ScreenTransition::closeShutter() {
    for (std::uint32_t pair = 0; pair < stepCount_; ++pair) drawStripePair(pair);
    finished_ = stepCount_ > kStripePairs;
}

// `pair` counts from the edges of the screen inwards. Places beyond 16 bits wrap.
void ScreenTransition::drawStripePair(std::uint32_t pair) {
    Renderer* const renderer = EngineServices::renderer();
    if (renderer == nullptr) return;
    const std::uint32_t height = stripe_.height();
    stripe_.draw(*renderer, {0, static_cast<std::int16_t>(pair * height)}, 1.0F);
    stripe_.draw(*renderer, {0, static_cast<std::int16_t>(kScreenHeight - (pair + 1) * height)}, 1.0F);
}

void ScreenTransition::stepTiles(FrameStrip& tiles) {
    Renderer* const renderer = EngineServices::renderer();
    for (int y = 0; renderer != nullptr && y < kScreenHeight; y += kTileSize) {
        for (int x = 0; x < kScreenWidth; x += kTileSize)
            tiles.draw(*renderer, {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)}, 1.0F);
    }
    const int next = tiles.frame() + 1;
    tiles.setFrame(next < tiles.frameCount() ? static_cast<std::uint16_t>(next) : std::uint16_t{0});
    finished_ = tiles.frame() == 0;
}

}  // namespace grub
