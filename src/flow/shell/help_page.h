#pragma once

#include "menu_page.h"

namespace grub {

/// The sheets of the help, one at a time.
class HelpPage final : public MenuPage {
public:
    [[nodiscard]] const char* layout() const override { return "help_menu"; }
    /// No arrow is pressed. The sheet is the one that was read last.
    void open() override { leftPressed_ = rightPressed_ = false; }
    void draw(const MenuBoard& board) const override;
    ShellRequest keyDown(std::uint32_t keyCode, MenuBoard& board) override;
    void keyUp(std::uint32_t code) override;
    ShellRequest mouseDown(MenuBoard& board) override;

private:
    void turn(int step, const MenuBoard& board);

    int sheet_ = 0;  // from 0
    bool leftPressed_ = false;
    bool rightPressed_ = false;
};

}  // namespace grub
