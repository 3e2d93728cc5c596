#include "score_pages.h"

#include <array>
#include <cstdio>

#include "engine_services.h"
#include "input_messages.h"
#include "level_scene.h"
#include "sound_bank.h"

namespace grub {
namespace {

// Where the rows of the table stand, in pixels of the screen while the page is in place.
constexpr int kFirstRow = 190;
constexpr int kRowHeight = 26;
constexpr int kNameLeft = 414;
constexpr int kLevelLeft = 515;
constexpr int kScoreLeft = 550;
/// Font of the menu interface that they are written in.
constexpr std::size_t kRowFont = 1;

EngineString formatted(const char* format, int value) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), format, value);
    return text.data();
}

}  // namespace

void ScorePage::draw(const MenuBoard& board) const {
    board.drawFixed("background");
    board.drawSlid("splash");
    board.drawSlid("game_score");
    if (const BitmapFont* const font = board.pages().font(kRowFont)) {
        int y = kFirstRow;
        const auto write = [&](int left, const EngineString& text) {
            const auto x = static_cast<std::int16_t>(board.slide.offset() + left);
            font->drawText(*EngineServices::renderer(), text, {x, static_cast<std::int16_t>(y)}, 1.0F);
        };
        for (const HighScoreEntry& entry : scores_.table().rows()) {
            write(kNameLeft, entry.name);
            write(kLevelLeft, formatted("%2d", entry.levelIndex + 1));
            write(kScoreLeft, formatted("%6d", entry.score));
            y += kRowHeight;
        }
    }
    board.drawColumn();
}

ShellRequest ScorePage::keyDown(std::uint32_t keyCode, MenuBoard& board) {
    if (keyCode == KeyUp || keyCode == KeyLeft) board.goToPage(board.cursor() - 1);
    if (keyCode == KeyDown || keyCode == KeyRight) board.goToPage(board.cursor() + 1);
    return ShellRequest::None;
}

void NamePage::open() {
    entry_ = {};
    heldKey_.reset();
    if (level_.isKeyHeld()) heldKey_ = level_.lastKey();
    okPressed_ = false;
}

void NamePage::draw(const MenuBoard& board) const {
    board.drawFixed("background");
    board.drawSlid("in_splash");
    board.drawSlid("game_save");
    if (board.slide.goesOut()) board.drawSlid("ok_down");
    if (okPressed_) board.drawSlid("ok_up");
    board.drawSlidText("user_text", entry_.name(), 0);
    board.pages().drawItem("button_down", 0, 0, board.cursor(), 0);
}

ShellRequest NamePage::keyDown(std::uint32_t keyCode, MenuBoard& board) {
    if (entry_.isComplete() || heldKey_ == keyCode) return ShellRequest::None;
    entry_.keyDown(static_cast<KeyCode>(keyCode));
    if (!entry_.isComplete()) return ShellRequest::None;
    playEffect(SoundId::MenuClick);
    addHighScore(board);
    return ShellRequest::None;
}

ShellRequest NamePage::mouseDown(MenuBoard& board) {
    if (board.press("buttonup_01")) okPressed_ = true;
    return ShellRequest::None;
}

ShellRequest NamePage::mouseUp(MenuBoard& board) {
    okPressed_ = false;
    if (!board.isReleased("buttonup_01") || entry_.isComplete()) return ShellRequest::None;
    entry_.finish();
    addHighScore(board);
    return ShellRequest::None;
}

// A complete name ignores what follows: a result enters the table once, however often the player confirms.
void NamePage::addHighScore(MenuBoard& board) {
    const GameProgress& result = level_.game().current;
    scores_.add({.name = entry_.name(), .score = result.score, .levelIndex = result.levelIndex});
    board.goToPage(MenuButton::Scores);
}

}  // namespace grub
