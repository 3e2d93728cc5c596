#include "application.h"

#include "dsound_device.h"
#include "engine_services.h"
#include "game_window.h"
#include "input_messages.h"

namespace grub {

Application::Application(HINSTANCE instance, std::uint16_t width, std::uint16_t height, const char* title,
                         bool windowed, HICON icon)
    : width_(width),
      height_(height),
      windowed_(windowed),
      window_(createGameWindow(
          {instance, icon ? icon : LoadIconA(nullptr, IDI_WINLOGO), title, width, height, windowed}, *this)) {
    if (window_) gameThread_ = CreateThread(nullptr, 0, gameThread, this, CREATE_SUSPENDED, nullptr);
}

Application::~Application() {
    if (gameThreadRuns_) WaitForSingleObject(gameThread_, INFINITE);
    if (gameThread_) CloseHandle(gameThread_);
    EngineServices::shutdown();  // still installed after a start that failed
    if (window_) forgetGameWindow(window_);
}

bool Application::run(std::uint32_t startSceneId) {
    if (!window_) return false;
    ShowWindow(window_, SW_SHOW);
    createServices();
    if (!selectScene(startSceneId)) return false;
    const bool ended = resumeGameThread() && pumpMessages();
    EngineServices::shutdown();
    return ended;
}

void Application::createServices() {
    renderer_ = std::make_unique<D3DRenderer>(window_, width_, height_, !windowed_);
    EngineServices::installRenderer(renderer_.get());
    if (!renderer_->init()) ExitProcess(1);
    EngineServices::installMouse(std::make_unique<MouseInput>(*this));
    EngineServices::installKeyboard(std::make_unique<KeyboardInput>(*this));
    EngineServices::installSoundDevice(std::make_unique<DSoundDevice>(window_));
    EngineServices::soundDevice()->init();  // without it the game goes on in silence
}

bool Application::resumeGameThread() {
    constexpr DWORD kSuspendedOnce = 1;
    gameThreadRuns_ = ResumeThread(gameThread_) == kSuspendedOnce;
    return gameThreadRuns_;
}

DWORD WINAPI Application::gameThread(void* application) {
    auto& self = *static_cast<Application*>(application);
    self.runScenes();
    PostMessageA(self.window_, kDestroyWindowMessage, 0, 0);
    return 0;
}

bool Application::setWindowed(bool windowed) { return renderer_ && renderer_->setFullScreen(!windowed); }

}  // namespace grub
