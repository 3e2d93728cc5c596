#include "options_page.h"

#include <algorithm>

#include "input_messages.h"
#include "level_scene.h"
#include "sound_bank.h"

namespace grub {
namespace {

constexpr std::uint32_t kTab = 9;

// The elements that the mouse hits.
constexpr const char* kSoundGroove = "trav1n";
constexpr const char* kMusicGroove = "trav1a";
constexpr const char* kBox = "full_stat";

/// A point that lies so many pixels from a groove's left end sets the volume to a 223rd of nine times as much.
constexpr int kGrooveSteps = 9;
constexpr int kGrooveWidth = 223;

}  // namespace

void OptionsPage::draw(const MenuBoard& board) const {
    board.drawFixed("background");
    board.drawSlid("splash");
    board.drawSlid("game_options");
    board.drawSlid("trav_sound", control_ == Control::Sound ? 1 : 0, settings_.sound);
    board.drawSlid("trav_music", control_ == Control::Music ? 1 : 0, settings_.music);
    drawBox(board);
    board.drawColumn();
}

// The empty box is the third element of an item that a slider has, highlighted or not.
void OptionsPage::drawBox(const MenuBoard& board) const {
    constexpr int kEmptyBox = 2;
    const bool chosen = control_ == Control::FullScreen;
    if (settings_.fullScreen)
        board.drawSlid(chosen ? "full_down" : "full_down_up");
    else
        board.drawSlid(chosen ? "trav_music" : "trav_sound", kEmptyBox);
}

ShellRequest OptionsPage::keyDown(std::uint32_t keyCode, MenuBoard& board) {
    switch (keyCode) {
        case KeyUp: board.goToPage(board.cursor() - 1); break;
        case KeyDown: board.goToPage(board.cursor() + 1); break;
        case KeyLeft: change(-1); break;
        case KeyRight: change(1); break;
        case kTab:
            playEffect(SoundId::MenuMove);
            control_ = static_cast<Control>((static_cast<int>(control_) + 1) % 3);
            break;
        case KeySpace:
        case KeyEnter:
            if (control_ != Control::FullScreen) break;
            playEffect(SoundId::MenuClick);
            toggleFullScreen();
            break;
        default: break;
    }
    return ShellRequest::None;
}

void OptionsPage::change(int step) {
    if (control_ == Control::FullScreen) toggleFullScreen();
    if (control_ == Control::Sound) settings_.sound = std::clamp(settings_.sound + step, 0, kLoudestSetting);
    if (control_ == Control::Music) settings_.music = std::clamp(settings_.music + step, 0, kLoudestSetting);
    level_.setVolumes({.effects = settings_.sound, .music = settings_.music});
}

ShellRequest OptionsPage::mouseDown(MenuBoard& board) {
    if (board.press(kSoundGroove)) control_ = Control::Sound;
    if (board.press(kMusicGroove)) control_ = Control::Music;
    setVolumeFrom(board);
    if (board.press(kBox)) {
        control_ = Control::FullScreen;
        toggleFullScreen();
    }
    return ShellRequest::None;
}

void OptionsPage::mouseDragged(const MenuBoard& board) { setVolumeFrom(board); }

// The groove of the chosen slider only, while the mouse is over it.
void OptionsPage::setVolumeFrom(const MenuBoard& board) {
    if (control_ == Control::FullScreen) return;
    const bool isSound = control_ == Control::Sound;
    const EngineString groove(isSound ? kSoundGroove : kMusicGroove);
    if (!board.pages().hitTest(groove, board.mouse)) return;
    const int along = board.pages().relativePosition(groove, board.mouse).x;
    (isSound ? settings_.sound : settings_.music) = std::clamp(along * kGrooveSteps / kGrooveWidth, 0, kLoudestSetting);
    level_.setVolumes({.effects = settings_.sound, .music = settings_.music});
}

}  // namespace grub
