#pragma once

namespace grub {

/// How a page slides out to the right and the next one comes back in its place. Counts in pixels and drawn frames.
class PageSlide {
public:
    /// The page goes out: 19 steps until the swap.
    void leave() {
        speedOut_ = kSpeed;
        speedIn_ = 0;
    }
    /// A page comes in from far right.
    void enterFrom(int offset) {
        offset_ = offset;
        speedOut_ = 0;
        speedIn_ = -kSpeed;
    }
    /// A page stands in its place at once.
    void rest() { offset_ = speedOut_ = speedIn_ = 0; }

    /// A step inwards, before a page is drawn.
    void stepIn() {
        offset_ += speedIn_;
        if (offset_ < 0) offset_ = speedIn_ = 0;
    }
    /// A step outwards, after a page has been drawn. Returns true when the page is out: the next one comes in.
    bool stepOut() {
        offset_ += speedOut_;
        if (speedOut_ == 0 || offset_ <= kOut) return false;
        speedOut_ = 0;
        speedIn_ = -kSpeed;
        return true;
    }
    /// To the right of the page's place, 0 or more.
    [[nodiscard]] int offset() const { return offset_; }
    [[nodiscard]] bool goesOut() const { return speedOut_ > 0; }

private:
    static constexpr int kOut = 450;
    static constexpr int kSpeed = 25;

    int offset_ = 0;
    int speedOut_ = 0;
    int speedIn_ = 0;
};

}  // namespace grub
