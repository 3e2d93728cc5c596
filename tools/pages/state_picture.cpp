#include "state_picture.h"

#include <filesystem>
#include <map>

#include "files/files.h"
#include "image_renderer.h"
#include "kest_interface.h"
#include "resource_package.h"

namespace grub {

namespace {

/// The font of the table of the best.
constexpr std::size_t kRowFont = 1;

/// What shows where a state draws nothing: behind a dialog is the level.
constexpr Colour kBehind{45, 54, 90};

void writeRows(const KestInterface& interface, ImageRenderer& renderer) {
    const BitmapFont* font = interface.font(kRowFont);
    if (font == nullptr) return;
    int y = kScoreRowsTop;
    const auto write = [&](const char* text, int x) {
        font->drawText(renderer, text, {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)}, 1);
    };
    for (const ScoreRow& row : kScoreRows) {
        write(row.name, kNameColumn);
        write(row.level, kLevelColumn);
        write(row.score, kScoreColumn);
        y += kScoreRowsPitch;
    }
}

}  // namespace

struct StateArtist::Game {
    ImageRenderer renderer;
    ResourcePackage data{"data64.pak"};
    std::map<std::string, KestInterface> interfaces;

    KestInterface& interface(const std::string& name) {
        return interfaces.try_emplace(name, data, EngineString(name)).first->second;
    }
};

StateArtist::StateArtist(const std::string& data, std::string& error) {
    for (const char* package : {"data64.pak", "make_m64.pak", "make_z64.pak"}) {
        const auto file = std::filesystem::path(data) / package;
        if (!std::filesystem::exists(file)) error = file.string() + ": there is no such file";
    }
    if (!error.empty()) return;
    platform::setDataDirectory(data);
    game_ = std::make_unique<Game>();
}

StateArtist::~StateArtist() = default;

PixelImage StateArtist::draw(const PageState& state) {
    KestInterface& interface = game_->interface(state.interface);
    interface.openLayout(EngineString(state.layout));
    game_->renderer.beginFrame();
    game_->renderer.clear(kBehind);
    for (const StateDraw& draw : state.draws) {
        const EngineString item(draw.item);
        if (draw.text) {
            interface.drawText(item, EngineString(*draw.text), draw.dx, 0, draw.element);
        } else {
            interface.drawItem(item, draw.dx, 0, draw.element, static_cast<std::uint16_t>(draw.frame));
        }
    }
    if (state.rows) writeRows(interface, game_->renderer);
    game_->renderer.endFrame();
    return game_->renderer.screen();
}

}  // namespace grub
