#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "byte_reader.h"
#include "level_stand.h"
#include "script_keys.h"

namespace grub {

/// For each state those that followed it.
using StateChanges = std::map<LevelState, LevelStateSet>;

/// "Playing, Quit, shell".
[[nodiscard]] inline std::string namesOf(LevelStateSet states) {
    std::string names;
    for (const LevelStateRow& row : kLevelStates)
        if (states & bitOf(row.state)) names += std::string(row.name) + ", ";
    if (states & kShellBit) names += "shell, ";
    return names.substr(0, names.size() - 2);
}

/// Its row of the table.
[[nodiscard]] inline const LevelStateRow& rowOf(LevelState state) {
    return *std::ranges::find(kLevelStates, state, &LevelStateRow::state);
}

/// Game frames of the states that a transition ends: a shutter takes 14; the last one takes three tiles and a frame
/// more.
inline const std::map<LevelState, int> kFramesOfStates{
    {LevelState::Intro, 14}, {LevelState::Ended, 14}, {LevelState::EndFade, 4}};
/// The sounds of a story; the others come and go with what the hero does.
inline constexpr std::array kSoundsOfStories{SoundId::Break, SoundId::Rat,      SoundId::WinLevel,
                                             SoundId::Lose,  SoundId::MenuMove, SoundId::MenuClick};

/// Plays a visit or more by a script, whose words are done one after the other:
///
///     new19 on load1   in the shell: begin a new game at a level, go on, load a slot
///     shell run        in the shell: nothing; tell index, lives and score of the game
///     Playing          wait until this is the state
///     7                wait so many game frames
///     +Enter -Enter    press the key, release it; as close, in a game frame of its own
///     Enter            press it, and release it in the next game frame
///     buttonup_01      the same three with the mouse on this entry of a dialog
///     close            the window is to close
///     tell where       tell what is seen; tell the hero's column
///     clear            forget the story so far
///
/// The story is words, too: states as they begin, `*` and a sound, `exit` and its code, and what was to be told; see
/// `FrameRenderer` for what is seen. In the end follow the slots that hold a game: index, lives and score.
///
/// In all walks a level begins settled, the world steps in Playing and only there, the tracks of the music take turns,
/// transitions last as long as they should, and states change as `kLevelStates` says.
class Walk : LevelStand {
public:
    /// All levels of the game are `level`. Adds the changes of state to `changes`.
    Walk(const Drawing& level, StateChanges& changes) : changes_(changes) {
        for (const std::size_t index : {0, 1, 19, 20, 49}) putLevel(index, level);
        renderer_.onBeginFrame = [this] { beginFrame(); };
        renderer_.onEndFrame = [this] { endFrame(); };
        shell_.onRun = [this] { visitShell(); };
        scene_.startLoadingPass();
    }

    /// Plays the script and returns the story.
    std::string play(const std::string& script) {
        std::istringstream words(script);
        words_.assign(std::istream_iterator<std::string>(words), {});
        application_.run(kMenuShellId);
        isTold_ = true;
        for (int slot = 0; slot < kSaveSlots; ++slot) saySlot("slot" + std::to_string(slot));
        return story_;
    }

private:
    enum class Done { NotYet, ForThisFrame, Yes };

    void say(const std::string& word) {
        if (isTold_) story_ += (story_.empty() ? "" : " ") + word;
    }
    void sayGame(const std::string& what, const GameProgress& game) {
        std::ostringstream text;
        text << what << "=" << game.levelIndex << "/" << game.lives << "/" << game.score;
        say(text.str());
    }
    void saySlot(const std::string& name) {
        const Bytes bytes = directory_.read(name + ".sav");
        ByteReader reader(bytes);
        if (!bytes.empty()) sayGame(name, {.levelIndex = reader.i32(), .lives = reader.i32(), .score = reader.i32()});
    }

    void visitShell() {
        if (seen_) {
            listen();
            noteChange(kShellBit);
            say("exit" + std::to_string(static_cast<int>(scene_.exitCode())));
            seen_.reset();
        }
        track_.clear();
        while (next_ < words_.size() && !entersLevel(words_[next_++])) {
        }
    }

    // Does a word of the shell. Whether the level scene comes next.
    bool entersLevel(const std::string& word) {
        if (word == "run") sayGame(word, scene_.game().current);
        if (word == "run" || word == "shell") return false;
        if (word.starts_with("new")) scene_.requestNewGame(std::stoi(word.substr(3)));
        if (word.starts_with("load")) {
            scene_.chooseSlot(std::stoi(word.substr(4)));
            scene_.requestLoad();
        }
        return application_.selectScene(kLevelSceneId);
    }

    void beginFrame() {
        see();
        ++framesInState_;
        worldFrame_ = worldFrame();
    }

    void endFrame() {
        const bool isPlaying = seen_ == LevelState::Playing;
        const bool isNew = !isPlaying && worldFrame() == 0;
        EXPECT_TRUE(isNew || worldFrame() == worldFrame_ + (isPlaying ? 1 : 0) || !scene_.stage().isBuilt());
        listen();
        see();
        if (++frames_ == 2000) {
            ADD_FAILURE() << "waits for ever, behind " << next_ << " words";
            next_ = words_.size();
        }
        if (!toRelease_.empty()) return send(std::exchange(toRelease_, {}), MessageType::Released);
        Done done = Done::Yes;
        for (; done == Done::Yes && next_ < words_.size(); next_ += done == Done::NotYet ? 0 : 1)
            done = doWord(words_[next_]);
        if (done != Done::Yes) return;
        isTold_ = false;
        closeWindow();
    }

    int worldFrame() const { return scene_.stage().isBuilt() ? scene_.stage().world()->frame() : -1; }

    void see() {
        const LevelState state = scene_.state();
        if (seen_ == state) return;
        if (seen_) noteChange(bitOf(state));
        say(std::string(rowOf(state).name));
        seen_ = state;
        framesInState_ = 0;
    }

    void noteChange(LevelStateSet to) {
        const LevelStateRow& from = rowOf(*seen_);
        EXPECT_TRUE(from.leftTo & to) << from.name << " was left to " << namesOf(to);
        changes_[from.state] |= to;
        if (to == kShellBit || to == bitOf(LevelState::Quit) || !kFramesOfStates.contains(from.state)) return;
        EXPECT_EQ(framesInState_, kFramesOfStates.at(from.state)) << from.name;
    }

    void listen() {
        for (const std::string& call : heard_->take()) {
            if (call.starts_with("loop")) {
                EXPECT_NE(std::exchange(track_, call), call);
            }
            if (!call.starts_with("play")) continue;
            const int id = (std::stoi(call.substr(call.find(' '))) - 100) / 2;
            if (std::ranges::find(kSoundsOfStories, static_cast<SoundId>(id)) != kSoundsOfStories.end())
                say("*" + std::string(kEffectKeys.at(static_cast<std::size_t>(id))));
        }
    }

    Done doWord(const std::string& word) {
        for (const LevelStateRow& row : kLevelStates)
            if (word == row.name) return scene_.state() == row.state ? Done::Yes : Done::NotYet;
        if (std::isdigit(word[0]) != 0) return wait(std::stoi(word));
        if (word == "clear") return story_.clear(), Done::Yes;
        if (word == "tell") return say(renderer_.words()), Done::Yes;
        if (word == "where") return say(std::to_string(scene_.stage().world()->hero().x / kCellSize)), Done::Yes;
        if (word == "close") return closeWindow(), Done::ForThisFrame;
        const std::string name = word.substr(word[0] == '+' || word[0] == '-' ? 1 : 0);
        if (!kKeysOfScripts.contains(name) && !name.starts_with("button")) return Done::NotYet;  // a word of the shell
        send(name, word[0] == '-' ? MessageType::Released : MessageType::Pressed);
        if (name == word) toRelease_ = name;
        return Done::ForThisFrame;
    }

    Done wait(int frames) {
        if (waited_++ < frames) return Done::NotYet;
        waited_ = 0;
        return Done::Yes;
    }

    void send(const std::string& name, MessageType type) {
        const auto key = kKeysOfScripts.find(name);
        if (key != kKeysOfScripts.end()) return press(key->second, type);
        const Position place = placeOf(name);
        const auto post = [&](MessageType what, MouseButton button) {
            scene_.post(SharedRef<SceneMessage>(new MouseMessage(what, button, place.x, place.y)));
        };
        post(MessageType::MouseMoved, MouseButton::None);
        post(type, MouseButton::Left);
    }

    StateChanges& changes_;
    std::vector<std::string> words_;
    std::size_t next_ = 0;  // of the words
    std::string story_;
    bool isTold_ = true;              // until the script has ended
    std::optional<LevelState> seen_;  // last; none in the shell
    int framesInState_ = 0;
    int worldFrame_ = 0;  // before the state's handler ran
    int frames_ = 0;
    int waited_ = 0;         // frames, by the word that waits
    std::string toRelease_;  // in the next frame
    std::string track_;      // of the level that was built last in this visit
};

}  // namespace grub
