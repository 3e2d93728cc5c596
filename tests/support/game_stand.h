#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "described_pages.h"
#include "fake_audio_device.h"
#include "frame_renderer.h"
#include "level_list.h"
#include "level_writer.h"
#include "loading_list.h"
#include "memory_source.h"
#include "scratch_directory.h"
#include "sound_bank.h"
#include "wav_writer.h"

namespace grub {

/// What the scenes of the game need: strips, levels, sounds and the descriptions of pages in memory, the packages of
/// the pages in a working directory of its own, a renderer and a sound device. A target that includes this file must
/// link the level scene and the sound decoders.
class GameStand {
protected:
    GameStand() {
        std::filesystem::current_path(directory_.path());
        for (const LoadEntry& entry : loadingList()) data_.put(entry.path(), pictureOf("__", 64));
        data_.put("data\\gif\\c_imp.bmp", pictureOf("0123456789", 14));  // the digits of the panel
        data_.put("data\\gif\\open.bmp", pictureOf("III", 64));
        data_.put("data\\gif\\close.bmp", pictureOf("OOO", 64));
        data_.put("data\\gif\\polosa.bmp", pictureOf("S", 50));
        levels_.put("levels\\typeblok.ini", drawnBlockTable());
        putPages("make_z64", kGamePages);
        putSounds();
    }
    GameStand(const GameStand&) = delete;
    GameStand& operator=(const GameStand&) = delete;
    ~GameStand() { std::filesystem::current_path(before_); }

    void putLevel(std::size_t index, const Drawing& drawing) {
        levels_.put(std::string(kLevelNames[index]), writeLevelFile(drawnLevel(drawing)));
    }
    void putPages(const std::string& name, const std::string& pages) {
        data_.put("data\\" + name + "._i_2", describedPages(pages));
        directory_.write(name + ".pak", pagePackage(name, pages));
    }

    const std::filesystem::path before_ = std::filesystem::current_path();
    const ScratchDirectory directory_;
    FrameRenderer renderer_;
    MemorySource data_, levels_, sounds_;
    const std::shared_ptr<AudioLog> heard_ = FakeAudioDevice::install();

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
