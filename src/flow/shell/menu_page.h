#pragma once

#include <cstdint>

#include "menu_board.h"

namespace grub {

/// What a page asks of the shell.
enum class ShellRequest : std::uint8_t {
    None,
    NewGame,    ///< the comics, then the first level
    LoadSlot,   ///< the game of the level scene's slot to load
    QuickExit,  ///< the dialog that asks whether to leave
    Return,     ///< from there back to the page of the highlighted button
    Quit,       ///< the program ends
};

/// A page of the menu: what it draws between the background and the column, and what keys and the left mouse button do
/// on it. A page keeps what only it needs. Game thread only.
class MenuPage {
public:
    MenuPage() = default;
    MenuPage(const MenuPage&) = delete;
    MenuPage& operator=(const MenuPage&) = delete;
    virtual ~MenuPage() = default;

    /// Name of the page's layout in the menu interface.
    [[nodiscard]] virtual const char* layout() const = 0;
    /// The page is about to be shown.
    virtual void open() {}
    virtual void draw(const MenuBoard& board) const = 0;
    virtual ShellRequest keyDown(std::uint32_t keyCode, MenuBoard& board) = 0;
    virtual void keyUp(std::uint32_t /*keyCode*/) {}
    /// The button goes down or up, or the mouse moves while it is down.
    virtual ShellRequest mouseDown(MenuBoard& /*board*/) { return ShellRequest::None; }
    virtual ShellRequest mouseUp(MenuBoard& /*board*/) { return ShellRequest::None; }
    virtual void mouseDragged(const MenuBoard& /*board*/) {}
};

}  // namespace grub
