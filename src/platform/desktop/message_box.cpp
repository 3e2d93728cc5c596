#include "desktop/message_box.h"

#include <SDL.h>
#include <pthread.h>
#include <sys/prctl.h>

#include <csignal>
#include <cstdio>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

#include "desktop/video.h"
#include "kernel/events.h"
#include "kernel/waits.h"

namespace platform {
namespace {

/// Who gets the boxes; an empty function while the screen does.
struct Taker {
    std::mutex lock;
    MessageBoxTaker current;
};

Taker& taker() {
    static auto* one = new Taker;
    return *one;
}

MessageBoxTaker currentTaker() {
    const std::lock_guard guard(taker().lock);
    return taker().current;
}

void printBox(const MessageBox& box) { std::fprintf(stderr, "%s: %s\n", box.caption.c_str(), box.text.c_str()); }

/// Set on the thread that shows a box.
thread_local bool showsBox = false;

/// On X11 SDL shows a box from a child process, which shares the connection of the parent. If the program were killed
/// now, the child would keep the box and a dead copy of the window on the screen, so the child ends with the program.
void endWithParent() {
    if (showsBox) ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}

/// SDL blocks until the player answers, so it does that on a thread of its own: if the caller owns the window, the
/// window must go on being served.
void showBox(const MessageBox& box) {
    const auto answered = std::make_shared<Waitable>(true, false);
    std::thread([box, answered] {
        static std::mutex oneAtATime;
        static const int registered = ::pthread_atfork(nullptr, nullptr, endWithParent);
        showsBox = registered == 0;
        {
            const std::lock_guard lock(oneAtATime);
            const Uint32 kind = (box.style & MB_ICONERROR) != 0 ? SDL_MESSAGEBOX_ERROR : SDL_MESSAGEBOX_INFORMATION;
            if (SDL_ShowSimpleMessageBox(kind, box.caption.c_str(), box.text.c_str(), nullptr) != 0) printBox(box);
        }
        const WaitGuard lock(waitLock());
        answered->set();
    }).detach();
    waitFor(*answered);
}

}  // namespace

void takeMessageBoxes(MessageBoxTaker newTaker) {
    const std::lock_guard guard(taker().lock);
    taker().current = std::move(newTaker);
}

}  // namespace platform

int MessageBoxA(HWND /*owner*/, LPCSTR text, LPCSTR caption, UINT style) {
    const platform::MessageBox box{text, caption, style};
    if (const auto taker = platform::currentTaker()) {
        taker(box);
    } else if (platform::headless()) {
        platform::printBox(box);
    } else {
        platform::showBox(box);
    }
    return IDOK;
}
