#include "message_queue.h"

#include "block_pool.h"

namespace grub {

struct MessageQueue::Node : PoolAllocated<MessageQueue::Node> {
    SharedRef<SceneMessage> message;
    Node* next = nullptr;

    explicit Node(const SharedRef<SceneMessage>& queued) : message(queued) {}
};

MessageQueue::~MessageQueue() {
    while (!empty()) pop();
}

bool MessageQueue::push(const SharedRef<SceneMessage>& message) {
    auto* const node = message ? new Node(message) : nullptr;
    if (!node) return false;
    (tail_ ? tail_->next : head_) = node;
    tail_ = node;
    ++size_;
    return true;
}

SharedRef<SceneMessage> MessageQueue::pop() {
    Node* const node = head_;
    auto message = std::move(node->message);
    head_ = node->next;
    if (!head_) tail_ = nullptr;
    delete node;
    --size_;
    return message;
}

}  // namespace grub
