#pragma once

#include <cstdint>
#include <memory>

#include "renderer.h"

namespace grub {

class SoundDecoder;

/// One playable sound. It may outlive the audio device that made it. One thread at a time may use it; destroying it
/// silences it.
class SoundBuffer {
public:
    virtual ~SoundBuffer() = default;
    /// Another playable copy of the same sound, with a decoder of its own.
    [[nodiscard]] virtual std::unique_ptr<SoundBuffer> clone() const = 0;
    /// Takes the sound from the decoder, keeps the decoder and rewinds it for each play. An earlier sound ends. False
    /// when the device refuses the format: the buffer then stays silent.
    virtual bool create(std::unique_ptr<SoundDecoder> decoder) = 0;
    /// Balance in per cent: 0 left, 50 centre, 100 right. Other values count as the nearer end. False before `create`.
    virtual bool setPan(std::int32_t percent) = 0;
    /// Loudness in per cent, a decibel each: 100 is full, 99 a decibel less, 0 silence. Other values count as the
    /// nearer end. False before `create`.
    virtual bool setVolume(std::int32_t percent) = 0;
};

/// Makes sounds and plays them. `init` and `shutdown` come from the window's thread, playing and stopping from the game
/// thread; a loader may create sounds meanwhile.
class AudioDevice {
public:
    virtual ~AudioDevice() = default;
    /// Opens the sound output. False after a message box that names what failed; the game then goes on without sound.
    virtual bool init() = 0;
    /// Ends everything that streams and releases the output, which closes with the last sound. Always true.
    virtual bool shutdown() = 0;
    /// True while the output is open.
    [[nodiscard]] virtual bool isReady() const = 0;
    /// Makes an empty sound: one for an effect, which lies whole in memory, or one for music, which streams.
    [[nodiscard]] virtual std::unique_ptr<SoundBuffer> createSound() = 0;
    [[nodiscard]] virtual std::unique_ptr<SoundBuffer> createMusic() = 0;
    /// Plays from the start, once or again and again. A sound that plays already goes on (true). False when the sound
    /// is empty, or when it is long and every stream is taken.
    virtual bool play(SoundBuffer& sound, bool loop) = 0;
    virtual bool playLooped(SoundBuffer& sound) = 0;
    /// Silences the sound. False when it is empty.
    virtual bool stop(SoundBuffer& sound) = 0;
    virtual bool stopMusic(SoundBuffer& sound) = 0;
};

/// Turns the window's key messages into messages for the current scene, on the window's thread.
class KeyboardService {
public:
    virtual ~KeyboardService() = default;
    /// `virtualKey` is the system's code of the key, `windowsMessage` WM_KEYDOWN (repeats too) or WM_KEYUP.
    virtual void postKeyMessage(std::uint32_t virtualKey, std::uint32_t windowsMessage) = 0;
};

/// Turns the window's mouse messages into messages for the current scene, on the window's thread.
class MouseService {
public:
    virtual ~MouseService() = default;
    /// `position` holds client pixels, x in the low and y in the high 16 bits, both signed.
    virtual void postMouseMessage(std::uint32_t position, std::uint32_t windowsMessage) = 0;
};

/// The services that the whole program shares, a slot for each. A slot is empty (null) before the program runs and
/// after it has ended. Services are installed and shut down on the window's thread while no scene runs. A slot owns its
/// service and destroys it when another one is installed. The renderer alone belongs to the application, which needs
/// its class of Direct3D for the device's messages, so that its slot only points at it.
class EngineServices {
public:
    EngineServices() = delete;

    /// Null while the slot is empty.
    [[nodiscard]] static Renderer* renderer();
    [[nodiscard]] static MouseService* mouse();
    [[nodiscard]] static KeyboardService* keyboard();
    [[nodiscard]] static AudioDevice* soundDevice();

    /// Puts a service into its slot.
    static void installRenderer(Renderer* renderer);
    static void installMouse(std::unique_ptr<MouseService> service);
    static void installKeyboard(std::unique_ptr<KeyboardService> service);
    static void installSoundDevice(std::unique_ptr<AudioDevice> device);

    /// Empties the slots in this order: keyboard, mouse, sound device (shut down first), renderer (shut down only).
    static void shutdown();
};

}  // namespace grub
