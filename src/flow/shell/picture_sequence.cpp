#include "picture_sequence.h"

#include <algorithm>
#include <array>

namespace grub {
namespace {

struct PictureOfMode {
    ShellMode mode;
    const char* layout;
};

constexpr std::array kPictures{
    PictureOfMode{ShellMode::Opening, "zast"},        PictureOfMode{ShellMode::OpeningEnd, "zast"},
    PictureOfMode{ShellMode::FirstComic, "komiks1"},  PictureOfMode{ShellMode::SecondComic, "komiks2"},
    PictureOfMode{ShellMode::MiddleComic, "komiks3"}, PictureOfMode{ShellMode::FinalComic, "komiksfin"},
};

const char* layoutOf(ShellMode mode) { return std::ranges::find(kPictures, mode, &PictureOfMode::mode)->layout; }

}  // namespace

void PictureSequence::open(ShellMode mode) {
    pressed_ = false;
    game_.openLayout(layoutOf(mode));
    transition_.start(TransitionMode::TileIn);
}

bool PictureSequence::draw(ShellMode mode) {
    game_.selectLayout(layoutOf(mode));
    game_.drawItem("fon", 0, 0, KestInterface::kAllElements, 0);
    if (transition_.isFinished()) return true;
    transition_.step();
    return false;
}

void PictureSequence::press(ShellMode mode) {
    if (pressed_ || mode == ShellMode::OpeningEnd) return;
    pressed_ = true;
    if (mode != ShellMode::Opening) transition_.start(TransitionMode::TileOut);
}

}  // namespace grub
