#include <SDL.h>
#include <windows.h>

#include <cstdio>
#include <mutex>
#include <string>
#include <thread>

#include "clock.h"
#include "handles.h"
#include "host.h"
#include "testing.h"
#include "waits.h"

namespace platform {
namespace {

/// What a recorder keeps; null while nobody records.
struct Recording {
    std::vector<testing::MessageBoxRecorder::Box> boxes;
    std::shared_ptr<Waitable> answered;
};

struct Recorder {
    std::mutex lock;
    std::shared_ptr<Recording> current;
};

Recorder& recorder() {
    static auto* one = new Recorder;
    return *one;
}

std::shared_ptr<Recording> currentRecording() {
    const std::lock_guard lock(recorder().lock);
    return recorder().current;
}

void waitFor(Waitable& object) {
    WaitGuard lock(waitLock());
    if (!object.take()) sleepServing(lock, &object, kNever);
}

/// False when nobody records.
bool record(const testing::MessageBoxRecorder::Box& box) {
    const auto recording = currentRecording();
    if (!recording) return false;
    {
        const std::lock_guard lock(recorder().lock);
        recording->boxes.push_back(box);
    }
    waitFor(*recording->answered);
    return true;
}

/// SDL blocks until the player answers, so it does that on a thread of its own: if the caller owns the window, the
/// window must go on being served.
void showBox(const testing::MessageBoxRecorder::Box& box) {
    const auto answered = std::make_shared<Waitable>(true, false);
    std::thread([box, answered] {
        static std::mutex oneAtATime;
        {
            const std::lock_guard lock(oneAtATime);
            const Uint32 kind = (box.style & MB_ICONERROR) != 0 ? SDL_MESSAGEBOX_ERROR : SDL_MESSAGEBOX_INFORMATION;
            if (SDL_ShowSimpleMessageBox(kind, box.caption.c_str(), box.text.c_str(), nullptr) != 0) {
                std::fprintf(stderr, "%s: %s\n", box.caption.c_str(), box.text.c_str());
            }
        }
        const WaitGuard lock(waitLock());
        answered->set();
    }).detach();
    waitFor(*answered);
}

}  // namespace

namespace testing {

MessageBoxRecorder::MessageBoxRecorder(Answers answers) {
    auto recording = std::make_shared<Recording>();
    recording->answered = std::make_shared<Waitable>(true, answers == Answers::AtOnce);
    const std::lock_guard lock(recorder().lock);
    recorder().current = std::move(recording);
}

MessageBoxRecorder::~MessageBoxRecorder() {
    answerAll();
    const std::lock_guard lock(recorder().lock);
    recorder().current = nullptr;
}

std::vector<MessageBoxRecorder::Box> MessageBoxRecorder::boxes() const {
    const std::lock_guard lock(recorder().lock);
    return recorder().current->boxes;
}

void MessageBoxRecorder::answerAll() {
    const auto recording = currentRecording();
    const WaitGuard lock(waitLock());
    recording->answered->set();
}

}  // namespace testing
}  // namespace platform

int MessageBoxA(HWND /*owner*/, LPCSTR text, LPCSTR caption, UINT style) {
    const platform::testing::MessageBoxRecorder::Box box{text, caption, style};
    if (platform::record(box)) return IDOK;
    if (platform::headless()) {
        std::fprintf(stderr, "%s: %s\n", caption, text);
    } else {
        platform::showBox(box);
    }
    return IDOK;
}
