#include "block_pool.h"
#include "engine_timer.h"

namespace grub {

struct TimerList::Node : PoolAllocated<TimerList::Node> {
    Node* next;
    Node* previous;
    Timer* timer;

    explicit Node(Timer* ticked) : next(this), previous(this), timer(ticked) {}
};

TimerList& TimerList::instance() {
    static TimerList& list = *new TimerList;
    return list;
}

TimerList::TimerList() : sentinel_(new Node(nullptr)), upcoming_(sentinel_) {}

TimerList::~TimerList() {
    while (sentinel_->next != sentinel_) unlink(sentinel_->next);
    delete sentinel_;
}

void TimerList::add(Timer& timer) {
    auto* const node = new Node(&timer);
    if (!node) return;
    node->next = sentinel_;
    node->previous = sentinel_->previous;
    node->previous->next = node;
    sentinel_->previous = node;
    ++size_;
}

std::size_t TimerList::remove(const Timer& timer) {
    std::size_t removed = 0;
    for (Node* node = sentinel_->next; node != sentinel_;) {
        Node* const next = node->next;
        if (node->timer == &timer) {
            unlink(node);
            ++removed;
        }
        node = next;
    }
    return removed;
}

void TimerList::unlink(Node* node) {
    if (upcoming_ == node) upcoming_ = node->next;
    node->previous->next = node->next;
    node->next->previous = node->previous;
    delete node;
    --size_;
}

void TimerList::tickAll() {
    upcoming_ = sentinel_->next;
    while (upcoming_ != sentinel_) {
        Timer* const timer = upcoming_->timer;
        upcoming_ = upcoming_->next;
        timer->tick();
    }
}

}  // namespace grub
