#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "scene_message.h"
#include "system_objects.h"

namespace grub {

/// First in, first out; the entries come from a pool of their own. Has no lock: the owner guards it.
class MessageQueue {
public:
    MessageQueue() = default;
    MessageQueue(const MessageQueue&) = delete;
    MessageQueue& operator=(const MessageQueue&) = delete;
    /// Drops what is left.
    ~MessageQueue();

    /// Appends another handle to the message. False when there was no memory for the entry or for the message.
    bool push(const SharedRef<SceneMessage>& message);
    /// Takes the oldest message out; the queue must not be empty.
    SharedRef<SceneMessage> pop();
    /// Number of messages.
    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] bool empty() const { return size_ == 0; }

private:
    struct Node;

    Node* head_ = nullptr;
    Node* tail_ = nullptr;
    std::size_t size_ = 0;
};

/// A mode of the program that owns the screen while it is current. The game thread enters, runs and leaves it, many
/// times; whatever the last visit left behind (its unread messages too) is still there at the next `enter`.
class Scene {
public:
    Scene() = default;
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;
    /// Drops the messages that nobody read.
    virtual ~Scene() = default;

    /// Handles the queued messages one by one in posting order until the queue is empty, also those that a handler
    /// posts, also after a handler has ended the scene. No lock is held across a handler.
    virtual void processMessages();
    /// Reacts to one message. Game thread.
    virtual void handleMessage(const SharedRef<SceneMessage>& message) = 0;
    /// With `wholeFrame`: begins a frame on the renderer and presents it, nothing if the renderer refuses to begin.
    virtual void draw(bool wholeFrame);
    /// Queues the message and wakes the scene. Any thread. Without memory the message is dropped; the wake-up stays.
    virtual void post(const SharedRef<SceneMessage>& message);
    /// The scene has become current. The result changes nothing: `run` and `leave` follow in any case.
    virtual bool enter() = 0;
    /// `run` has returned.
    virtual void leave() = 0;
    /// The frame loop. This one waits up to 10 ms for messages, handles them, ticks every running timer and draws,
    /// until `stop`. It raises the running flag itself, so a `stop` before it (in `enter`) is lost.
    virtual void run();

    /// Lets the default `run` return at its next check.
    void stop() { running_ = false; }
    /// Selects the scene to run next and stops this one; the selection replaces an earlier one. False, and no change at
    /// all, when no scene has this number.
    bool switchTo(std::uint32_t id);

protected:
    /// Waits up to `milliseconds` for a message to be posted; true also for one that came since the last wait or the
    /// last emptying of the queue. The messages stay queued.
    bool waitForMessages(DWORD milliseconds) { return wake_.wait(milliseconds); }
    /// The flag that `run` raises and `stop` clears.
    [[nodiscard]] bool isRunning() const { return running_; }

private:
    // The oldest message; an empty handle, and the wake event reset, when there is none.
    SharedRef<SceneMessage> takeMessage();

    CriticalSection queueLock_;
    MessageQueue queue_;  // guarded by queueLock_
    Event wake_{false, false};
    std::atomic<bool> running_ = false;
};

}  // namespace grub
