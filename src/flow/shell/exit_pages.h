#pragma once

#include "menu_page.h"

namespace grub {

/// The page that ends the program, with two answers that both do.
class ExitPage final : public MenuPage {
public:
    [[nodiscard]] const char* layout() const override { return "exit"; }
    void draw(const MenuBoard& board) const override;
    ShellRequest keyDown(std::uint32_t keyCode, MenuBoard& board) override;
    ShellRequest mouseDown(MenuBoard& board) override;
    ShellRequest mouseUp(MenuBoard& board) override;
    /// Back to the first answer, as for each visit of the shell.
    void rewind() { choice_ = 0; }

private:
    int choice_ = 0;
};

/// The dialog that the key A calls: it leaves, or goes back, for which it has two words. It has no column and leaves
/// the mouse alone.
class QuickExitPage final : public MenuPage {
public:
    [[nodiscard]] const char* layout() const override { return "a_exit"; }
    void open() override { choice_ = 0; }
    void draw(const MenuBoard& board) const override;
    ShellRequest keyDown(std::uint32_t keyCode, MenuBoard& board) override;

private:
    int choice_ = 0;
};

}  // namespace grub
