#include "engine_services.h"

#include <utility>

namespace grub {

namespace {

struct Slots {
    Renderer* renderer = nullptr;
    std::unique_ptr<MouseService> mouse;
    std::unique_ptr<KeyboardService> keyboard;
    std::unique_ptr<AudioDevice> soundDevice;
};

Slots& slots() {
    static Slots& instance =
        *new Slots;  // never destroyed: destructors at the end of the process still ask for services
    return instance;
}

}  // namespace

Renderer* EngineServices::renderer() { return slots().renderer; }
MouseService* EngineServices::mouse() { return slots().mouse.get(); }
KeyboardService* EngineServices::keyboard() { return slots().keyboard.get(); }
AudioDevice* EngineServices::soundDevice() { return slots().soundDevice.get(); }

void EngineServices::installRenderer(Renderer* renderer) { slots().renderer = renderer; }

void EngineServices::installMouse(std::unique_ptr<MouseService> service) { slots().mouse = std::move(service); }

void EngineServices::installKeyboard(std::unique_ptr<KeyboardService> service) {
    slots().keyboard = std::move(service);
}

void EngineServices::installSoundDevice(std::unique_ptr<AudioDevice> device) {
    slots().soundDevice = std::move(device);
}

void EngineServices::shutdown() {
    Slots& installed = slots();
    installed.keyboard.reset();
    installed.mouse.reset();
    if (installed.soundDevice) installed.soundDevice->shutdown();
    installed.soundDevice.reset();
    if (installed.renderer) installed.renderer->shutdown();
    installed.renderer = nullptr;
}

}  // namespace grub
