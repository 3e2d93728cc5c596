#pragma once

#include <atomic>
#include <mutex>

namespace platform {

/// A lock that lets the mixing thread in first: it waits for one holder at most, however busy the others are. An
/// ordinary lock may go to the same thread again and again while the speakers run dry.
class MixerLock {
public:
    /// For everybody but the mixing thread, by std::lock_guard.
    void lock() {
        mixing_.wait(true);
        mutex_.lock();
    }
    void unlock() { mutex_.unlock(); }
    /// For the mixing thread, of which there is one at a time; `unlock` as usual.
    void lockFirst() {
        mixing_ = true;
        mutex_.lock();
        mixing_ = false;
        mixing_.notify_all();
    }

private:
    std::mutex mutex_;
    std::atomic<bool> mixing_{false};  // the mixing thread wants the lock
};

}  // namespace platform
