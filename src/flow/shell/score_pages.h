#pragma once

#include <optional>

#include "high_scores.h"
#include "menu_page.h"
#include "name_entry.h"

namespace grub {

class LevelScene;

/// The ten best results.
class ScorePage final : public MenuPage {
public:
    /// The scores must outlive the page.
    explicit ScorePage(const HighScores& scores) : scores_(scores) {}

    [[nodiscard]] const char* layout() const override { return "highscore_menu"; }
    void draw(const MenuBoard& board) const override;
    ShellRequest keyDown(std::uint32_t keyCode, MenuBoard& board) override;

private:
    const HighScores& scores_;
};

/// Asks for the name that goes into the table beside a result. The scores follow.
class NamePage final : public MenuPage {
public:
    /// The scores, and the scene with the result; both outlive the page.
    NamePage(HighScores& scores, const LevelScene& level) : scores_(scores), level_(level) {}

    [[nodiscard]] const char* layout() const override { return "highscore_menu"; }
    /// Starts with an empty name.
    void open() override;
    void draw(const MenuBoard& board) const override;
    ShellRequest keyDown(std::uint32_t keyCode, MenuBoard& board) override;
    void keyUp(std::uint32_t /*code*/) override { heldKey_.reset(); }
    ShellRequest mouseDown(MenuBoard& board) override;
    ShellRequest mouseUp(MenuBoard& board) override;

private:
    void addHighScore(MenuBoard& board);

    HighScores& scores_;
    const LevelScene& level_;
    NameEntry entry_;
    std::optional<std::uint32_t> heldKey_;  // since play; its repeats must not write a name
    bool okPressed_ = false;
};

}  // namespace grub
