#include "scene.h"

#include <mutex>

#include "application_base.h"
#include "block_pool.h"
#include "engine_services.h"
#include "engine_timer.h"

namespace grub {

namespace {

constexpr DWORD kMessageWaitMs = 10;  // the longest wait of a pass of the default loop

}  // namespace

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
    return true;
}

SharedRef<SceneMessage> MessageQueue::pop() {
    Node* const node = head_;
    auto message = std::move(node->message);
    head_ = node->next;
    if (!head_) tail_ = nullptr;
    delete node;
    return message;
}

void Scene::post(const SharedRef<SceneMessage>& message) {
    {
        const std::lock_guard guard(queueLock_);
        queue_.push(message);
    }
    wake_.set();
}

SharedRef<SceneMessage> Scene::takeMessage() {
    const std::lock_guard guard(queueLock_);
    if (!queue_.empty()) return queue_.pop();
    wake_.reset();
    return {};
}

void Scene::processMessages() {
    while (const auto message = takeMessage()) handleMessage(message);
}

void Scene::draw(bool wholeFrame) {
    if (!wholeFrame) return;
    Renderer* const renderer = EngineServices::renderer();
    if (renderer && renderer->beginFrame()) renderer->endFrame();
}

void Scene::run() {
    running_ = true;
    while (true) {
        if (waitForMessages(kMessageWaitMs)) processMessages();
        if (!running_) return;
        TimerList::instance().tickAll();
        draw(true);
    }
}

bool Scene::switchTo(std::uint32_t id) {
    if (!ApplicationBase::instance().selectScene(id)) return false;
    stop();
    return true;
}

}  // namespace grub
