#pragma once

#include <atomic>
#include <cstdint>

#include "scene_message.h"
#include "system_objects.h"

namespace grub {

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
