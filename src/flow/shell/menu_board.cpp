#include "menu_board.h"

#include <algorithm>

#include "sound_bank.h"

namespace grub {

void MenuBoard::drawSlid(const char* item, int element, int frame) const {
    pages_->drawItem(item, slide.offset(), 0, element, static_cast<std::uint16_t>(frame));
}

void MenuBoard::drawSlidText(const char* item, const EngineString& text, int element) const {
    pages_->drawText(item, text, slide.offset(), 0, element);
}

void MenuBoard::drawColumn() const {
    pages_->drawItem(slide.offset() == 0 ? "button_down" : "button_up", 0, 0, cursor_, 0);
}

void MenuBoard::goToPage(int button) {
    cursor_ = std::clamp(button, 0, static_cast<int>(MenuButton::Exit));
    playEffect(SoundId::MenuListUp);
    slide.leave();
}

bool MenuBoard::press(std::string_view element) {
    if (!pages_->hitTest(EngineString(element), mouse)) return false;
    pressed_ = element;
    playEffect(SoundId::MenuClick);
    return true;
}

bool MenuBoard::isReleased(std::string_view element) const {
    return pressed_ == element && pages_->hitTest(EngineString(element), mouse);
}

}  // namespace grub
