#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine_string.h"
#include "kest_interface.h"
#include "menu_column.h"
#include "page_slide.h"
#include "picture.h"

namespace grub {

/// What the pages of the menu share: the interface that they are drawn from, the column of buttons, the slide, the
/// mouse.
class MenuBoard {
public:
    /// Gives the board its interface, which must outlive it. Due before anything else.
    void setPages(KestInterface& pages) { pages_ = &pages; }
    [[nodiscard]] KestInterface& pages() const { return *pages_; }

    /// Draws an item of the current page that stays in its place.
    void drawFixed(const char* item) const { pages_->drawItem(item, 0, 0, KestInterface::kAllElements, 0); }
    /// Draws an item, or one of its elements, that slides with the page. `frame` is that of its pictures.
    void drawSlid(const char* item, int element = KestInterface::kAllElements, int frame = 0) const;
    /// Draws a text in place of a text of an item that slides.
    void drawSlidText(const char* item, const EngineString& text, int element) const;
    /// Draws the highlighted button of the column.
    void drawColumn() const;

    /// Highlights a button of the column, in the range that there is, and sends the page away; that button's page comes
    /// when it has gone. Keys move on while a page goes: the last button counts.
    void goToPage(int button);
    void goToPage(MenuButton button) { goToPage(static_cast<int>(button)); }
    /// The highlighted button.
    [[nodiscard]] int cursor() const { return cursor_; }
    [[nodiscard]] MenuButton button() const { return static_cast<MenuButton>(cursor_); }
    void setButton(MenuButton button) { cursor_ = static_cast<int>(button); }

    /// The left mouse button goes down: whether it does so over this element of the current page. Then a click is
    /// heard.
    bool press(std::string_view element);
    /// The button goes up: whether it does so over this element, having gone down there. A click that began elsewhere
    /// must not leave the game or load another one.
    [[nodiscard]] bool isReleased(std::string_view element) const;
    /// Forgets where the button went down.
    void forgetPress() { pressed_.clear(); }

    PageSlide slide;
    Position mouse;  ///< pixels of the screen, of the last move

private:
    KestInterface* pages_ = nullptr;
    int cursor_ = 0;
    std::string pressed_;  // the element over which the button went down last
};

}  // namespace grub
