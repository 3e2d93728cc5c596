#include "window_frames.h"

#include "picture_observer.h"
#include "window.h"

namespace platform {
namespace {

PictureObserver& theObserver() {
    static auto* observer = new PictureObserver;
    return *observer;
}

}  // namespace

void observePictures(PictureObserver observer) { theObserver() = std::move(observer); }

bool showFrame(HWND handle, const std::uint32_t* xrgb, int width, int height, int strideBytes) {
    const auto window = windowOf(handle);
    if (!window) return false;
    const auto number = window->presenter.hand(xrgb, width, height, strideBytes);
    {
        const WaitGuard lock(waitLock());
        if (!window->alive) return false;
        window->frameArrived = true;
        wakeOwner(*window);
    }
    const auto& observer = theObserver();
    if (!observer) return true;
    return callOwner(window, [&]() -> LRESULT {
               observer(handle, number);
               return 1;
           }) != 0;
}

}  // namespace platform
