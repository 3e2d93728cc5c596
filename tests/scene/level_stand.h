#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "control/testing.h"
#include "fake_audio_device.h"
#include "input_messages.h"
#include "level_list.h"
#include "level_scene.h"
#include "level_writer.h"
#include "memory_source.h"
#include "recording_scene.h"
#include "scratch_directory.h"
#include "screen_words.h"
#include "sound_bank.h"
#include "wav_writer.h"

namespace grub {

/// The level scene as the program runs it, on the test's own thread, with strips, levels, pages and sounds in memory, a
/// clock that moves while every thread waits, and a working directory of its own.
class LevelStand {
protected:
    LevelStand() {
        std::filesystem::current_path(directory_.path());
        for (const LoadEntry& entry : loadingList()) data_.put(entry.path(), pictureOf("~~", 64));
        data_.put("data\\gif\\c_imp.bmp", pictureOf("0123456789", 14));  // the digits of the panel
        data_.put("data\\gif\\open.bmp", pictureOf("III", 64));
        data_.put("data\\gif\\close.bmp", pictureOf("OOO", 64));
        data_.put("data\\gif\\polosa.bmp", pictureOf("S", 50));
        data_.put("data\\make_z64._i_2", describedPages());
        levels_.put("levels\\typeblok.ini", drawnBlockTable());
        scene_.setGameInterface(pages_.emplace(data_, "make_z64", pagePackage()));
        application_.registerScene(kLevelSceneId, scene_);
        application_.registerScene(kMenuShellId, shell_);
        putSounds();
        bank_.load(false);
        SoundBank::setCurrent(&bank_);
    }
    LevelStand(const LevelStand&) = delete;
    LevelStand& operator=(const LevelStand&) = delete;
    ~LevelStand() { std::filesystem::current_path(before_); }

    void putLevel(std::size_t index, const Drawing& drawing) {
        levels_.put(std::string(kLevelNames[index]), writeLevelFile(drawnLevel(drawing)));
    }
    void press(KeyCode code, MessageType type = MessageType::Pressed) {
        scene_.post(SharedRef<SceneMessage>(new KeyMessage(type, code, 0)));
    }
    void closeWindow() { scene_.post(messageOf(MessageType::CloseRequest)); }

    const std::filesystem::path before_ = std::filesystem::current_path();
    const ScratchDirectory directory_;
    platform::testing::HandDrivenClock clock_;
    FrameRenderer renderer_;
    MemorySource data_, levels_, sounds_;
    const std::shared_ptr<AudioLog> heard_ = FakeAudioDevice::install();
    SoundBank bank_{sounds_};
    WindowlessApplication application_;
    RecordingScene shell_;
    std::optional<KestInterface> pages_;
    LevelScene scene_{data_, levels_};

private:
    // Sounds are told apart by their sizes: 100 bytes and two for each number, music 200 bytes and two.
    void putSounds() {
        std::string table;
        const auto put = [&](const char* section, int first, const auto& keys) {
            table += section;
            for (const char* const key : keys) {
                const std::string size = std::to_string(first);
                table += std::string(key) + "=" + size + "\n";
                sounds_.put("sound\\" + size, writeWav({.samples = Bytes(static_cast<std::size_t>(first), 0)}));
                first += 2;
            }
        };
        put("[sound]\n", 100, kEffectKeys);
        put("[music]\n", 200, kMusicKeys);
        sounds_.put("sound\\sound.ini", table);
    }
};

}  // namespace grub
