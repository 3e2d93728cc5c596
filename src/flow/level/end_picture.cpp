#include "end_picture.h"

#include <algorithm>
#include <array>

#include "sound_bank.h"

namespace grub {
namespace {

struct End {
    LossCause cause;
    SoundId sound;
    const char* layout;  ///< of the game interface
    const char* item;    ///< the picture in it
};

constexpr std::array kEnds{
    End{LossCause::Dog, SoundId::Lose, "loss_polkan", "screen"},
    End{LossCause::Lady, SoundId::Lose, "loss_lady", "screen"},
    End{LossCause::Rat, SoundId::Rat, "loss_rat", "screen"},
    End{LossCause::Pit, SoundId::Lose, "loss_pit", "screen"},
    End{LossCause::Won, SoundId::WinLevel, "win", "loss"},
};

/// Item of the lost ends: the board.
constexpr const char* kBoard = "over";

const End& endOf(LossCause cause) { return *std::ranges::find(kEnds, cause, &End::cause); }

}  // namespace

void EndPicture::playSound(LossCause cause) { playEffect(endOf(cause).sound); }

void EndPicture::open(LossCause cause, KestInterface& pages) {
    cause_ = cause;
    hasBoard_ = false;
    pages.openLayout(endOf(cause).layout);
}

void EndPicture::dropBoard() {
    hasBoard_ = true;
    slide_.open();
}

void EndPicture::draw(KestInterface& pages) const {
    pages.selectLayout(endOf(cause_).layout);
    pages.drawItem(endOf(cause_).item, 0, 0, KestInterface::kAllElements, 0);
    if (hasBoard_) pages.drawItem(kBoard, 0, slide_.offset(), KestInterface::kAllElements, 0);
}

}  // namespace grub
