#include "help_page.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "input_messages.h"
#include "sound_bank.h"

namespace grub {
namespace {

constexpr std::uint32_t kPageUp = 33;
constexpr std::uint32_t kPageDown = 34;

/// Elements of the items with the arrows.
constexpr int kLeftArrow = 0;
constexpr int kRightArrow = 1;

// "help_00" is the first sheet.
EngineString itemOf(int sheet) {
    std::array<char, 16> name{};
    std::snprintf(name.data(), name.size(), "help_%02d", sheet);
    return name.data();
}

// The interface says how many sheets there are: the items of the page by their names.
int sheetCount(const KestInterface& pages, std::string_view layoutName) {
    int count = 0;
    for (const Layout& layout : pages.description().layouts) {
        if (layout.name != layoutName) continue;
        const auto has = [&](const EngineString& item) {
            return std::ranges::find(layout.items, item.view(), &LayoutItem::name) != layout.items.end();
        };
        while (has(itemOf(count))) ++count;
    }
    return count;
}

}  // namespace

void HelpPage::draw(const MenuBoard& board) const {
    board.drawFixed("background");
    board.drawSlid("logo");
    board.drawSlid("splash");
    board.drawSlid(itemOf(sheet_).cStr());
    if (sheet_ > 0) board.drawSlid(leftPressed_ ? "arrow_down" : "arrow_stat", kLeftArrow);
    if (sheet_ + 1 < sheetCount(board.pages(), layout()))
        board.drawSlid(rightPressed_ ? "arrow_down" : "arrow_stat", kRightArrow);
    board.drawColumn();
}

ShellRequest HelpPage::keyDown(std::uint32_t keyCode, MenuBoard& board) {
    switch (keyCode) {
        case KeyUp: board.goToPage(board.cursor() - 1); break;
        case KeyDown: board.goToPage(board.cursor() + 1); break;
        case KeyLeft:
        case kPageUp:
            turn(-1, board);
            playEffect(SoundId::MenuClick);
            break;
        case KeyRight:
        case KeySpace:
        case kPageDown:
        case KeyEnter:
            turn(1, board);
            playEffect(SoundId::MenuClick);
            break;
        case KeyA: return ShellRequest::QuickExit;
        default: break;
    }
    return ShellRequest::None;
}

void HelpPage::turn(int step, const MenuBoard& board) {
    sheet_ = std::clamp(sheet_ + step, 0, std::max(sheetCount(board.pages(), layout()) - 1, 0));
    (step < 0 ? leftPressed_ : rightPressed_) = true;
}

void HelpPage::keyUp(std::uint32_t code) {
    if (code != KeyRight) leftPressed_ = false;
    if (code != KeyLeft) rightPressed_ = false;
}

// The arrows lie on the sheet, so they come first; a click elsewhere on it turns it.
ShellRequest HelpPage::mouseDown(MenuBoard& board) {
    if (board.press("abuttonstat_02u"))
        turn(1, board);
    else if (board.press("abuttonstat_01u"))
        turn(-1, board);
    else if (board.press("start_logo"))
        turn(1, board);
    return ShellRequest::None;
}

}  // namespace grub
