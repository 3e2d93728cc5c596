#pragma once

#include "menu_page.h"
#include "settings.h"

namespace grub {

class LevelScene;

/// Volumes and full screen. A change of a volume is heard at once; the full screen comes with the next start.
class OptionsPage final : public MenuPage {
public:
    /// The settings to change, and the scene that applies the volumes; both outlive the page.
    OptionsPage(Settings& settings, LevelScene& level) : settings_(settings), level_(level) {}

    [[nodiscard]] const char* layout() const override { return "options_menu"; }
    void draw(const MenuBoard& board) const override;
    ShellRequest keyDown(std::uint32_t keyCode, MenuBoard& board) override;
    ShellRequest mouseDown(MenuBoard& board) override;
    void mouseDragged(const MenuBoard& board) override;
    /// Back to the first control, as for each visit of the shell.
    void rewind() { control_ = Control::Sound; }

private:
    enum class Control : int { Sound = 0, Music = 1, FullScreen = 2 };

    void drawBox(const MenuBoard& board) const;
    void change(int step);
    void setVolumeFrom(const MenuBoard& board);
    void toggleFullScreen() { settings_.fullScreen = !settings_.fullScreen; }

    Settings& settings_;
    LevelScene& level_;
    Control control_ = Control::Sound;
};

}  // namespace grub
