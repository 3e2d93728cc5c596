#include "moves.h"

#include <optional>

namespace grub {

namespace {

/// What a move needs: its letter in lists, its key, and the command that the key gives.
struct MoveTraits {
    char letter;
    std::optional<PlayKey> key;
    HeroCommand command;
};

/// In the order of Move.
constexpr std::array kMoveTraits{
    MoveTraits{'L', PlayKey::Left, HeroCommand::Left}, MoveTraits{'R', PlayKey::Right, HeroCommand::Right},
    MoveTraits{'U', PlayKey::Up, HeroCommand::Up},     MoveTraits{'D', PlayKey::Down, HeroCommand::Down},
    MoveTraits{'z', PlayKey::Z, HeroCommand::DigLeft}, MoveTraits{'x', PlayKey::X, HeroCommand::DigRight},
    MoveTraits{'w', std::nullopt, HeroCommand::None},
};
static_assert(kMoveTraits.size() == kAllMoves.size());

constexpr const MoveTraits& traitsOf(Move move) { return kMoveTraits[static_cast<std::size_t>(move)]; }

/// The key whose command the hero obeys.
std::optional<PlayKey> heldKey(const World& world) {
    for (const MoveTraits& traits : kMoveTraits)
        if (traits.command == world.hero().command()) return traits.key;
    return std::nullopt;
}

/// Plays a world and writes its key events down.
class Player {
public:
    Player(World& world, std::vector<KeyEvent>* written) : world_(world), written_(written) {}

    /// Lets go of the key that is held and, `delay` frames later, presses the other; a key that is held already stays
    /// so.
    void hold(std::optional<PlayKey> key, int delay) {
        const auto held = heldKey(world_);
        if (held == key) return;
        if (held) event(KeyAction::Up, *held);
        if (!key) return;
        for (int rested = 0; rested < delay && !world_.ended(); ++rested) frame();
        if (!world_.ended()) event(KeyAction::Down, *key);
    }
    void event(KeyAction action, PlayKey key) {
        const KeyEvent event{world_.frame() + 1, action, key};
        tell(world_, event);
        if (written_ != nullptr) written_->push_back(event);
    }
    void frame() {
        world_.step();
        world_.finishFrame(true);
    }

private:
    World& world_;
    std::vector<KeyEvent>* written_;
};

/// Frames after which a walk that has not begun is given up: he has turned round, and something stands in the way.
constexpr int kPatience = kTurnDelay + 1;

}  // namespace

bool canDecide(const World& world) {
    const Hero& hero = world.hero();
    if (!hero.isAligned() || hero.isDigging()) return false;
    const int x = hero.cellX();
    const int y = hero.cellY();
    return world.map().canStand(x, y, View::Physical) || world.map().isPipe(x, y);
}

bool isPossible(const World& world, Move move) {
    const LevelMap& map = world.map();
    const int x = world.hero().cellX();
    const int y = world.hero().cellY();
    switch (move) {
        case Move::Left: return map.isPassable(x - 1, y, View::Physical);
        case Move::Right: return map.isPassable(x + 1, y, View::Physical);
        case Move::Up: return map.isClimbableLadder(x, y, View::Physical) && map.isPassable(x, y - 1, View::Physical);
        case Move::Down: return map.isPassable(x, y + 1, View::Physical);
        case Move::DigLeft: return map.isDiggable(x - 1, y + 1);
        case Move::DigRight: return map.isDiggable(x + 1, y + 1);
        case Move::Wait: return true;
    }
    return false;
}

void playMove(World& world, Move move, int delay, std::vector<KeyEvent>* written) {
    Player player(world, written);
    const MoveTraits& traits = traitsOf(move);
    player.hold(traits.key, delay);
    if (world.ended()) return;
    const auto hasMoved = [&world, x = world.hero().x, y = world.hero().y] {
        return world.hero().x != x || world.hero().y != y;
    };
    const int least = move == Move::Wait ? kWaitFrames : isDig(move) ? 1 : kPatience;
    for (int frame = 1;; ++frame) {
        player.frame();
        if (frame == 1 && isDig(move)) player.event(KeyAction::Up, *traits.key);
        if (world.ended()) return;
        if ((frame >= least || hasMoved()) && canDecide(world)) return;
    }
}

std::string textOf(std::span<const Move> moves) {
    std::string text;
    for (auto move = moves.begin(); move != moves.end();) {
        auto next = move;
        while (next != moves.end() && *next == *move) ++next;
        if (!text.empty()) text += ' ';
        text += traitsOf(*move).letter;
        if (next - move > 1) text += std::to_string(next - move);
        move = next;
    }
    return text;
}

}  // namespace grub
