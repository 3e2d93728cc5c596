#pragma once

#include <cstddef>

#include "scene_message.h"
#include "shared_ref.h"

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

}  // namespace grub
