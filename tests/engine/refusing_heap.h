#pragma once

namespace grub {

/// While it lives, the non-throwing heap refuses this many of the thread's requests.
class RefusingHeap {
public:
    /// The thread that makes it is the one that is refused.
    explicit RefusingHeap(int refusals);
    RefusingHeap(const RefusingHeap&) = delete;
    RefusingHeap& operator=(const RefusingHeap&) = delete;
    ~RefusingHeap();

    /// Whether an allocation has been refused since the construction.
    [[nodiscard]] bool hasRefused() const;

private:
    int refusals_;
};

}  // namespace grub
