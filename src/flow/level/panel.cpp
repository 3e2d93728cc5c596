#include "panel.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "level_view.h"

namespace grub {
namespace {

constexpr int kLevelsOfABoard = 10;
/// The board of each ten levels, the first ten first.
constexpr std::array kBoards{
    "data\\gif\\panel\\panel_01.bmp", "data\\gif\\panel\\panel_02.bmp", "data\\gif\\panel\\panel_04_jelezo.bmp",
    "data\\gif\\panel\\panel_03.bmp", "data\\gif\\panel\\panel_01.bmp",
};

constexpr int kNumbersTop = 569;
// Where the last digit of each number ends, in pixels of the screen.
constexpr int kLevelEnd = 177;
constexpr int kLivesEnd = 345;
constexpr int kKeysEnd = 525;
constexpr int kScoreEnd = 728;

/// The panel has room for five digits. A greater score shows as the greatest of five digits: its last five alone would
/// look as if points had been lost.
constexpr int kGreatestShown = 99999;

}  // namespace

void Panel::acquire(int levelIndex) {
    const auto ten = static_cast<std::size_t>(levelIndex / kLevelsOfABoard);
    board_.emplace(data_.load(kBoards[std::min(ten, kBoards.size() - 1)]));
    board_->setColourKey(kBrown);
    board_->acquire();
}

void Panel::drawPanel(Renderer& renderer, const PanelNumbers& numbers, FrameStrip* digits) const {
    if (board_) board_->draw(renderer, {0, static_cast<std::int16_t>(kScreenHeight - board_->height())}, 1.0F);
    if (!digits) return;
    const auto draw = [&](int end, int value) {
        drawNumber(renderer, end, kNumbersTop, std::min(value, kGreatestShown), *digits, DigitSpacing::Narrow);
    };
    draw(kLevelEnd, numbers.level);
    draw(kLivesEnd, numbers.lives);
    draw(kKeysEnd, numbers.keys);
    draw(kScoreEnd, numbers.score);
}

}  // namespace grub
