#pragma once

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <utility>

#include "control/testing.h"
#include "game_stand.h"
#include "game_thread.h"
#include "high_scores.h"
#include "level_scene.h"
#include "menu_shell.h"
#include "recording_scene.h"
#include "save_slots.h"
#include "score_file.h"
#include "script_keys.h"

namespace grub {

/// A mode and its name in scripts and stories.
struct ModeName {
    ShellMode mode;
    const char* name;
};
inline constexpr std::array kModeNames{ModeName{ShellMode::Start, "Start"},
                                       ModeName{ShellMode::Options, "Options"},
                                       ModeName{ShellMode::Load, "Load"},
                                       ModeName{ShellMode::Scores, "Scores"},
                                       ModeName{ShellMode::NameEntry, "NameEntry"},
                                       ModeName{ShellMode::Exit, "Exit"},
                                       ModeName{ShellMode::Help, "Help"},
                                       ModeName{ShellMode::Opening, "Opening"},
                                       ModeName{ShellMode::OpeningEnd, "OpeningEnd"},
                                       ModeName{ShellMode::FirstComic, "FirstComic"},
                                       ModeName{ShellMode::SecondComic, "SecondComic"},
                                       ModeName{ShellMode::MiddleComic, "MiddleComic"},
                                       ModeName{ShellMode::FinalComic, "FinalComic"},
                                       ModeName{ShellMode::QuickExit, "QuickExit"}};

/// The sounds of a story; the others come and go with what the hero does.
inline constexpr std::array kMenuSounds{SoundId::MenuMove, SoundId::MenuListDown, SoundId::MenuListUp,
                                        SoundId::MenuClick};

/// Plays the whole program by a script, whose words are done one after the other. The player's time goes in steps of
/// 10 ms; the program runs on a thread of its own and waits while the script acts.
///
///     Down +Down -Down       press and release a key; press it; release it. These take a step, as clicks do.
///     "ZX9                   the same with each character
///     load_down trav1n:99    click on an element, on a pixel of it from the left; + and - as with keys
///     >trav1n:99             move the mouse there
///     burst                  move the mouse 1000 times in ten steps
///     close                  the window is to close
///     Load Playing end       wait until the shell shows this in its place; until the level scene has this state; until
///                            the program has ended, a second at most
///     7                      wait so many steps
///     clear                  forget story, frames and time so far
///     tell frames ms         tell what is seen; the frames drawn since; the milliseconds since
///     second                 wait a second, and tell how many frames are drawn in it
///     volumes disk           tell how loud sound and music are; the size of the score file, and a wish for full screen
///     restart                after the end: the program starts again
///     slow                   from now on strips are loaded slowly
///     slot1=19/3/500         put a saved game in its place: index, lives, score
///     full=500               put a score file in its place: ten games with this score
///
/// The story is words, too: modes of the shell as they begin, `Playing` and `end`, `*` and a sound, `+` and `-` as the
/// music of the menu begins and ends, and what was to be told; see `FrameRenderer` for what is seen.
class ShellWalk : GameStand {
public:
    /// All levels of the game are `level`.
    explicit ShellWalk(const Drawing& level) {
        for (std::size_t index = 0; index < kLevelCount; ++index) putLevel(index, level);
        putPages("make_m64", kMenuPages);
        renderer_.onEndFrame = [this] { ++frames_; };
        start();
    }
    /// Ends the program, wherever it is; one that does not obey ends the test program.
    ~ShellWalk() {
        for (int closes = 0; !isAt("end"); ++closes) {
            if (closes == 1000) std::abort();
            post(messageOf(MessageType::CloseRequest));
            step();
        }
    }

    /// Plays the script and returns the story.
    std::string play(const std::string& script) {
        std::istringstream words(script);
        for (std::string word; words >> word;) {
            if (doWord(word)) continue;
            say("(not done: " + word + ")");
            break;
        }
        return story_;
    }

private:
    /// What a start of the program makes.
    struct Program {
        explicit Program(ShellWalk& walk)
            : registry(walk.directory_.path() / "registry.txt"),
              bank(walk.sounds_),
              level(walk.data_, walk.levels_),
              shell(walk.data_, level) {
            SoundBank::setCurrent(&bank);
            application.registerScene(kLevelSceneId, level);
            application.registerScene(kMenuShellId, shell);
            thread.emplace([this] { application.run(kMenuShellId); });
        }

        platform::testing::RegistryFile registry;
        SoundBank bank;
        WindowlessApplication application;
        LevelScene level;
        MenuShell shell;
        std::optional<GameThread> thread;
    };

    void start() {
        program_.reset();
        program_.emplace(*this);
        seen_.clear();
        settle();
    }

    void say(const std::string& word) { story_ += (story_.empty() ? "" : " ") + word; }

    bool doWord(const std::string& word) {
        if (const auto command = commands_.find(word); command != commands_.end()) return command->second(), true;
        if (std::isdigit(word[0]) != 0) return steps(std::stoi(word)), true;
        if (word.find('=') != std::string::npos) return put(word);
        if (word == "restart") return isAt("end") && (start(), true);
        if (word[0] == '"')
            return std::ranges::all_of(word.substr(1), [&](char key) { return type(KeyCode(key), ' '); });
        return isPlace(word) ? waitFor(word) : input(word);
    }

    static bool isPlace(const std::string& word) {
        return word == "end" || std::ranges::find(kLevelStates, word, &LevelStateRow::name) != kLevelStates.end() ||
               std::ranges::find(kModeNames, word, &ModeName::name) != kModeNames.end();
    }

    bool waitFor(const std::string& place) {
        for (int left = place == "end" ? 100 : 1000; left > 0 && !isAt(place); --left) step();
        return isAt(place);
    }

    bool isAt(const std::string& place) const {
        if (place == "end") return program_->thread->hasEnded();
        if (place == nameOf(program_->shell.mode())) return program_->shell.board().slide.offset() == 0;
        return place == std::ranges::find(kLevelStates, program_->level.state(), &LevelStateRow::state)->name;
    }

    static std::string nameOf(ShellMode mode) { return std::ranges::find(kModeNames, mode, &ModeName::mode)->name; }

    // A file that the player has from before.
    bool put(const std::string& word) {
        int slot = 0, score = 0;
        GameProgress game;
        if (std::sscanf(word.c_str(), "slot%d=%d/%d/%d", &slot, &game.levelIndex, &game.lives, &game.score) == 4)
            return SaveSlots().saveGame(slot, game);
        if (std::sscanf(word.c_str(), "full=%d", &score) != 1) return false;
        HighScoreTable table;
        for (std::size_t row = 0; row < kHighScoreRows; ++row) table.add({"OLD", score, 0});
        directory_.write("GrubScore.sco", scoreBytes(table));
        return true;
    }

    // Does a word of a key or of the mouse.
    bool input(const std::string& word) {
        const char sign = std::string("+->").find(word[0]) != std::string::npos ? word[0] : ' ';
        const std::string name = word.substr(sign == ' ' ? 0 : 1);
        if (const auto key = kKeysOfScripts.find(name); key != kKeysOfScripts.end()) return type(key->second, sign);
        const std::size_t colon = name.find(':');
        const int dx = colon == std::string::npos ? 1 : std::stoi(name.substr(colon + 1));
        const Position place = placeOf(name.substr(0, colon), dx);
        moveMouse(place);
        return sign == '>' || act<MouseMessage>(sign, MouseButton::Left, place.x, place.y);
    }

    bool type(KeyCode code, char sign) { return act<KeyMessage>(sign, code, std::uint8_t{0}); }

    template <class Message, class... Arguments>
    bool act(char sign, Arguments... arguments) {
        if (sign != '-') post(SharedRef<SceneMessage>(new Message(MessageType::Pressed, arguments...)));
        if (sign != '+') post(SharedRef<SceneMessage>(new Message(MessageType::Released, arguments...)));
        step();
        return true;
    }

    void moveMouse(Position place) {
        post(SharedRef<SceneMessage>(new MouseMessage(MessageType::MouseMoved, MouseButton::None, place.x, place.y)));
    }

    void burst() {
        for (int i = 0; i < 10; ++i, step())
            for (int moves = 0; moves < 100; ++moves) moveMouse({static_cast<std::int16_t>(moves), 590});
    }

    // The program handles a message before the next one comes.
    void post(const SharedRef<SceneMessage>& message) {
        program_->application.postToCurrentScene(message);
        settle();
    }

    void steps(int count) {
        for (; count > 0; --count) step();
    }
    void step() {
        clock_.advance(std::chrono::milliseconds(10));
        settle();
    }
    void settle() {
        clock_.settle();
        listen();
        see();
    }

    void see() {
        std::string now = seen_;
        const ShellMode mode = program_->shell.mode();
        if (std::exchange(mode_, mode) != mode || seen_.empty()) now = nameOf(mode);
        const LevelState state = program_->level.state();
        if (std::exchange(state_, state) != state && state == LevelState::Playing) now = "Playing";
        if (program_->thread->hasEnded()) now = "end";
        if (std::exchange(seen_, now) != now) say(now);
    }

    void listen() {
        for (const std::string& call : heard_->take()) {
            std::istringstream words(call);
            std::string what, next;
            words >> what >> next;
            if (what == "volume" && next == "100") words >> effectsVolume_;
            if (what == "volume" && next == "200") words >> musicVolume_;
            if (call == "loop 200") say("+menu");
            if (call == "stop music 200") say("-menu");
            if (what != "play") continue;
            const auto id = static_cast<SoundId>((std::stoi(next) - 100) / 2);
            if (std::ranges::find(kMenuSounds, id) != kMenuSounds.end())
                say("*" + std::string(kEffectKeys.at(static_cast<std::size_t>(id))));
        }
    }

    void sayDisk() {
        say(std::to_string(directory_.read("GrubScore.sco").size()));
        const Bytes registry = directory_.read("registry.txt");
        if (std::string(registry.begin(), registry.end()).find("FULLSCREEN\t3\t01") != std::string::npos) say("full");
    }

    void loadSlowly() {
        data_.onLoad = [](const EngineString& name) {
            if (name.view().starts_with(kPictureFolder)) Sleep(20);
        };
    }

    void clear() {
        story_.clear();
        frames_ = 0;
        since_ = clock_.now();
    }

    void second() {
        const int before = frames_;
        steps(100);
        say(std::to_string(frames_ - before));
    }

    const std::map<std::string, std::function<void()>> commands_{
        {"burst", [this] { burst(); }},
        {"close", [this] { post(messageOf(MessageType::CloseRequest)); }},
        {"clear", [this] { clear(); }},
        {"tell", [this] { say(renderer_.words()); }},
        {"frames", [this] { say(std::to_string(frames_)); }},
        {"ms", [this] { say(std::to_string((clock_.now() - since_).count())); }},
        {"second", [this] { second(); }},
        {"volumes", [this] { say(std::to_string(effectsVolume_) + "/" + std::to_string(musicVolume_)); }},
        {"disk", [this] { sayDisk(); }},
        {"slow", [this] { loadSlowly(); }}};
    platform::testing::HandDrivenClock clock_{platform::testing::HandDrivenClock::Moves::ByHand};
    std::optional<Program> program_;
    std::string story_;
    std::string seen_;  // the last of the story's modes
    ShellMode mode_ = ShellMode::Opening;
    LevelState state_ = LevelState::FirstLoad;
    int effectsVolume_ = 0, musicVolume_ = 0;  // percent
    int frames_ = 0;
    std::chrono::milliseconds since_{0};
};

}  // namespace grub
