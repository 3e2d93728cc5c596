#pragma once

#include <atomic>
#include <cstdint>
#include <utility>

#include "block_pool.h"
#include "system_objects.h"

namespace grub {

/// A counted handle to an object on the heap; the last handle destroys the object. Several threads may make and drop
/// copies at once, but a single handle belongs to one thread.
template <class T>
class SharedRef {
public:
    SharedRef() = default;
    /// Takes ownership of `object`, which may be null.
    explicit SharedRef(T* object) : object_(object), count_(new std::atomic<std::int32_t>(1)) {}
    SharedRef(const SharedRef& other) noexcept : object_(other.object_), count_(other.count_) { retain(); }
    SharedRef(SharedRef&& other) noexcept
        : object_(std::exchange(other.object_, nullptr)), count_(std::exchange(other.count_, nullptr)) {}
    SharedRef& operator=(SharedRef other) noexcept {
        std::swap(object_, other.object_);
        std::swap(count_, other.count_);
        return *this;
    }
    ~SharedRef() { release(); }  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): as below

    /// Null for an empty handle. The handles keep owning the object.
    [[nodiscard]] T* get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDelete): the analyzer takes the answers of an atomic count for arbitrary
    void retain() noexcept {
        if (count_) count_->fetch_add(1, std::memory_order_relaxed);
    }
    void release() noexcept {
        if (!count_ || count_->fetch_sub(1, std::memory_order_acq_rel) > 1) return;
        delete object_;
        delete count_;
    }
    // NOLINTEND(clang-analyzer-cplusplus.NewDelete)

    T* object_ = nullptr;
    std::atomic<std::int32_t>* count_ = nullptr;
};

/// Where a message comes from.
enum class MessageSource : std::uint32_t { Window = 0, Keyboard = 1, Mouse = 2 };

/// What a message tells. Pressed and Released serve keys and mouse buttons: look at the source too.
enum class MessageType : std::uint32_t { CloseRequest = 1, Repaint = 2, Pressed = 10, Released = 11, MouseMoved = 20 };

/// What the window's thread tells a scene. Messages travel in a SharedRef and stay as they were made.
struct SceneMessage : PoolAllocated<SceneMessage> {
    SceneMessage(MessageType messageType, MessageSource messageSource) : type(messageType), source(messageSource) {}
    SceneMessage(const SceneMessage&) = delete;
    SceneMessage& operator=(const SceneMessage&) = delete;
    virtual ~SceneMessage() = default;

    const MessageType type;
    const MessageSource source;
};

/// A queue of messages, first in, first out. Its entries come from a pool. Has no lock: the owner guards it.
class MessageQueue {
public:
    MessageQueue() = default;
    MessageQueue(const MessageQueue&) = delete;
    MessageQueue& operator=(const MessageQueue&) = delete;
    ~MessageQueue();

    /// Appends a handle to the message. False when the handle is empty or there is no memory for the entry.
    bool push(const SharedRef<SceneMessage>& message);
    /// Takes the oldest message out; the queue must not be empty.
    SharedRef<SceneMessage> pop();
    [[nodiscard]] bool empty() const { return !head_; }

private:
    struct Node;

    Node* head_ = nullptr;
    Node* tail_ = nullptr;
};

/// A mode of the program that owns the screen while it is current. The game thread enters, runs and leaves it many
/// times. Everything that a visit left behind, unread messages too, is still there at the next `enter`.
class Scene {
public:
    Scene() = default;
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;
    /// Drops unread messages.
    virtual ~Scene() = default;

    /// Handles the queued messages one by one in posting order until the queue is empty: also messages that a handler
    /// posts, and also after a handler has ended the scene. Holds no lock while a handler runs.
    virtual void processMessages();
    /// Reacts to one message. Game thread.
    virtual void handleMessage(const SharedRef<SceneMessage>& message) = 0;
    /// With `wholeFrame`: begins a frame on the renderer and presents it, unless the renderer refuses to begin.
    virtual void draw(bool wholeFrame);
    /// Queues the message and wakes the scene. Any thread. Without memory it drops the message, but wakes the scene.
    virtual void post(const SharedRef<SceneMessage>& message);
    /// Called when the scene has become current. `run` and `leave` follow whatever the result is.
    virtual bool enter() = 0;
    /// Called when `run` has returned.
    virtual void leave() = 0;
    /// The frame loop. The default waits up to 10 ms for messages, handles them, ticks every running timer and draws,
    /// until `stop`. A `stop` before `run` (in `enter`) is lost.
    virtual void run();

    /// Lets the default `run` return at its next check.
    void stop() { running_ = false; }
    /// Selects the scene that runs next, in place of an earlier selection, and stops this one. Changes nothing and
    /// returns false when no scene has this number.
    bool switchTo(std::uint32_t id);

protected:
    /// Waits up to `milliseconds` for a message. True at once when one has come since the last wait or since the queue
    /// was last empty. The messages stay queued.
    bool waitForMessages(DWORD milliseconds) { return wake_.wait(milliseconds); }
    /// True from the start of the default `run` to `stop`.
    [[nodiscard]] bool isRunning() const { return running_; }

private:
    // Returns the oldest message. When the queue is empty: resets the wake event and returns an empty handle.
    SharedRef<SceneMessage> takeMessage();

    CriticalSection queueLock_;
    MessageQueue queue_;  // guarded by queueLock_
    Event wake_{false, false};
    std::atomic<bool> running_ = false;
};

}  // namespace grub
