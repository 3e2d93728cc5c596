#pragma once

#include "menu_page.h"

namespace grub {

class LevelScene;

/// The three save slots, one of which can be loaded.
class LoadPage final : public MenuPage {
public:
    /// The level scene keeps the slots and which of them is to be loaded; it must outlive the page.
    explicit LoadPage(LevelScene& level) : level_(level) {}

    [[nodiscard]] const char* layout() const override { return "load_menu"; }
    /// Reads the slots.
    void open() override;
    void draw(const MenuBoard& board) const override;
    ShellRequest keyDown(std::uint32_t keyCode, MenuBoard& board) override;
    ShellRequest mouseDown(MenuBoard& board) override;
    ShellRequest mouseUp(MenuBoard& board) override;

private:
    [[nodiscard]] bool slotExists(int slot) const;
    void moveSlot(int step);

    LevelScene& level_;
};

}  // namespace grub
