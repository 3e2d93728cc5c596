#pragma once

#include <cstdint>
#include <memory>

#include "audio_device.h"
#include "renderer.h"

namespace grub {

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
