#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "engine_timer.h"
#include "exit_pages.h"
#include "help_page.h"
#include "high_scores.h"
#include "input_messages.h"
#include "kest_interface.h"
#include "load_page.h"
#include "menu_board.h"
#include "menu_page.h"
#include "opening.h"
#include "options_page.h"
#include "picture_sequence.h"
#include "resource_source.h"
#include "scene.h"
#include "score_pages.h"
#include "screen_transition.h"
#include "settings.h"
#include "shell_mode.h"
#include "start_page.h"

namespace grub {

class LevelScene;

/// Scene 2, where the program starts and ends: the opening, the pages of the menu, the comics. It hands over to the
/// level scene for a new game, for a saved one and after the middle comic, and comes back with its exit code.
class MenuShell final : public Scene {
public:
    /// `data` describes the interfaces; it and the level scene must outlive the shell.
    MenuShell(ResourceSource& data, LevelScene& level);

    /// Whether the program runs on the full screen; the player may wish for another next time.
    void setFullScreen(bool fullScreen) { settings_.fullScreen = fullScreen; }

    void handleMessage(const SharedRef<SceneMessage>& message) override;
    bool enter() override;
    void leave() override;
    void run() override;

    [[nodiscard]] ShellMode mode() const { return mode_; }
    [[nodiscard]] const MenuBoard& board() const { return board_; }
    [[nodiscard]] const HighScoreTable& highScores() const { return scores_.table(); }
    [[nodiscard]] const Settings& settings() const { return settings_; }

private:
    void buildInterfaces();
    void enterMenu();
    void showPage(ShellMode mode);
    /// Null while a picture is shown.
    [[nodiscard]] MenuPage* page();
    void showPicture(ShellMode mode);
    void handOver() { running_ = false; }

    // What messages do (shell_messages.cpp)
    void mouse(const MouseMessage& message);
    void moveMouse(Position mouse);
    void press(std::uint32_t code);
    void release(std::uint32_t code);
    void mouseDown();
    ShellRequest columnDown();
    void mouseUp();
    void obey(ShellRequest request);

    // What goes on with each drawn frame (shell_frames.cpp)
    void drawFrame();
    void drawPage();
    void swapPage();
    void returnFromQuickExit();
    void drawPicture();
    void openingFrame();
    void pictureGone();
    [[nodiscard]] bool isMoving() const;

    ResourceSource& data_;
    LevelScene& level_;
    Settings settings_;
    HighScores scores_;
    MenuBoard board_;

    StartPage start_;
    LoadPage load_{level_};
    OptionsPage options_{settings_, level_};
    ScorePage scorePage_{scores_};
    NamePage namePage_{scores_, level_};
    HelpPage help_;
    ExitPage exit_;
    QuickExitPage quickExit_;

    // What needs the renderer is there from the first visit on.
    std::unique_ptr<KestInterface> menu_;
    std::unique_ptr<KestInterface> game_;  // the level scene uses it too
    std::optional<ScreenTransition> transition_;
    std::optional<PictureSequence> pictures_;
    std::optional<Opening> opening_;

    ShellMode mode_ = ShellMode::Opening;
    Timer second_{1000};
    Timer frameTimer_;
    bool secondPassed_ = false;
    bool frameDue_ = false;
    bool redraw_ = false;      // the next frame that is due is drawn
    bool buttonHeld_ = false;  // the left mouse button, since it was pressed on a page
    bool running_ = false;     // until play takes over
    bool quit_ = false;        // the program ends
};

}  // namespace grub
