#pragma once

#include <atomic>
#include <functional>

#include "loading_list.h"
#include "system_objects.h"
#include "windows.h"

namespace grub {

/// Runs one loading pass at a time on a thread of its own: steps 0 to 7, until all are done or the pass is told to
/// stop.
class ResourceLoader {
public:
    /// Loads one step; called on the loader's thread.
    using LoadStep = std::function<void(int step)>;

    ResourceLoader() = default;
    ResourceLoader(const ResourceLoader&) = delete;
    ResourceLoader& operator=(const ResourceLoader&) = delete;
    /// Waits for the pass that runs.
    ~ResourceLoader();

    /// Starts a pass; one that still runs is waited for first. Progress is 0 and `wait` waits before this returns, so
    /// that a stop right after the start is neither lost nor too early.
    void start(LoadStep step);
    /// The pass ends after the step it is in.
    void requestStop() { stop_ = true; }
    /// Steps done by the pass that was started last; 0 before the first.
    [[nodiscard]] int progress() const { return progress_.load(); }
    /// Whether the last pass has done all its steps.
    [[nodiscard]] bool isComplete() const { return progress() == kLoadingSteps; }
    /// Sets the progress back before the next pass is started.
    void forgetProgress() { progress_ = 0; }
    /// Waits until no pass runs, at most so many milliseconds or `INFINITE`. Whether no pass runs.
    bool wait(DWORD milliseconds) { return idle_.wait(milliseconds); }

private:
    static DWORD WINAPI threadMain(void* loader);
    void runPass();

    LoadStep step_;
    HANDLE thread_ = nullptr;
    Event idle_{true, true};  // signalled whenever no pass runs
    std::atomic<int> progress_ = 0;
    std::atomic<bool> stop_ = false;
};

}  // namespace grub
