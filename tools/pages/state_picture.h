#pragma once

#include <memory>
#include <string>

#include "page_states.h"
#include "pixel_image.h"

namespace grub {

/// Draws states as the game does, from its packages.
class StateArtist {
public:
    /// `data` is the folder of the packages. When there are none, `error` says so and nothing must be drawn.
    StateArtist(const std::string& data, std::string& error);
    ~StateArtist();
    StateArtist(const StateArtist&) = delete;
    StateArtist& operator=(const StateArtist&) = delete;

    /// What the player sees, 800 x 600 and opaque.
    PixelImage draw(const PageState& state);

private:
    struct Game;
    std::unique_ptr<Game> game_;
};

}  // namespace grub
