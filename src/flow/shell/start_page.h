#pragma once

#include "menu_page.h"

namespace grub {

/// The first page: a new game begins here.
class StartPage final : public MenuPage {
public:
    [[nodiscard]] const char* layout() const override { return "start_menu"; }
    void draw(const MenuBoard& board) const override;
    ShellRequest keyDown(std::uint32_t keyCode, MenuBoard& board) override;
    ShellRequest mouseDown(MenuBoard& board) override;
};

}  // namespace grub
