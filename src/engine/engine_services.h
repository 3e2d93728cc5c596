#pragma once

#include <memory>

#include "audio_device.h"
#include "keyboard_service.h"
#include "mouse_service.h"
#include "renderer.h"

namespace grub {

/// The services that the whole program shares: a slot for each, empty (null) before the program runs and after it has
/// ended. They are installed and shut down on the window's thread while no scene runs.
class EngineServices {
public:
    EngineServices() = delete;

    /// What is installed, or null.
    [[nodiscard]] static Renderer* renderer();
    [[nodiscard]] static MouseService* mouse();
    [[nodiscard]] static KeyboardService* keyboard();
    [[nodiscard]] static AudioDevice* soundDevice();

    /// The renderer belongs to the application: its slot only points at it, and a previous one is merely unhooked.
    static void installRenderer(Renderer* renderer);
    /// The slot owns the service; a previous one is destroyed.
    static void installMouse(std::unique_ptr<MouseService> service);
    static void installKeyboard(std::unique_ptr<KeyboardService> service);
    static void installSoundDevice(std::unique_ptr<AudioDevice> device);

    /// Empties the slots: keyboard, mouse, sound device (shut down, then destroyed), renderer (shut down, unhooked).
    static void shutdown();
};

}  // namespace grub
