#include "slow_player.h"

#include <algorithm>
#include <cstddef>
#include <span>

#include "win_measures.h"
#include "world.h"

namespace grub {

namespace {

/// Hands the key events of a win to a world, each when the slow player comes to it.
class SlowPlayer {
public:
    SlowPlayer(std::span<const KeyEvent> events, int delay) : events_(events), delay_(delay) {}

    void feed(World& world) {
        for (; next_ < events_.size() && isDue(world); ++next_) {
            const KeyEvent& event = events_[next_];
            last_ = world.frame() + 1;
            recordedLast_ = event.frame;
            holds_ = event.action == KeyAction::Down;
            tell(world, event);
        }
    }
    /// Whether nothing more will come of this world.
    [[nodiscard]] bool hasGivenUp(const World& world) const {
        const int lastKey = next_ == events_.size() ? last_ : kLongestRun;
        return world.frame() > lastKey + kPatience;
    }

private:
    [[nodiscard]] bool isDue(const World& world) const {
        const KeyEvent& event = events_[next_];
        const int frame = world.frame() + 1;
        const bool isNewKey = event.action == KeyAction::Down && !holds_;
        if (!isNewKey) return frame >= last_ + event.frame - recordedLast_;
        // A key that he presses late must not fall into a dig: he would hold it too short.
        return frame >= std::max(event.frame, last_ + delay_) && (frame == event.frame || !world.hero().isDigging());
    }

    std::span<const KeyEvent> events_;
    int delay_;
    std::size_t next_ = 0;
    int last_ = 0;          // game frame of the last event, as he played it
    int recordedLast_ = 0;  // and in the win
    bool holds_ = false;
};

}  // namespace

bool winsWithDelay(const RecordedGame& win, const LevelMap& map, const AnimationFrameCounts& counts, int delay) {
    World world(map, win.start, counts);
    world.step();
    SlowPlayer player(win.events, delay);
    while (!world.ended() && !player.hasGivenUp(world)) {
        player.feed(world);
        world.step();
        world.finishFrame(true);
    }
    return world.ended() && world.cause() == LossCause::Won;
}

}  // namespace grub
