#include "relaxed_ways.h"

namespace grub {

namespace {

/// Steps on a map whose floors, once dug, stay open.
class Walker {
public:
    Walker(const LevelMap& map, const WayRules& rules) : map_(map), rules_(rules), dug_(map), reached_(map) {}

    void start(CellPosition cell) {
        if (map_.contains(cell.x, cell.y)) enter(cell);
    }

    /// A hole changes the steps of the cells around it, so they are all looked at again.
    CellSet walk() {
        do {
            hasDug_ = false;
            todo_ = seen_;
            while (!todo_.empty()) {
                const CellPosition cell = todo_.back();
                todo_.pop_back();
                eachStep(cell, [this](CellPosition next) { enter(next); });
                if (rules_.digs && canStay(cell)) digAround(cell);
            }
        } while (hasDug_);
        return reached_;
    }

    /// Calls `action` for each cell that one step leads to.
    template <class Action>
    void eachStep(CellPosition at, Action action) const {
        const auto step = [&](int dx, int dy) {
            const CellPosition next{at.x + dx, at.y + dy};
            if (canEnter(next)) action(next);
        };
        step(0, 1);  // by ladder, by letting go or by falling
        if (isLadder(at.x, at.y)) step(0, -1);
        if (!canStay(at)) return;
        step(-1, 0);
        step(1, 0);
    }

private:
    void enter(CellPosition cell) {
        if (!reached_.add(cell)) return;
        seen_.push_back(cell);
        todo_.push_back(cell);
    }

    [[nodiscard]] bool canEnter(CellPosition cell) const {
        if (!map_.contains(cell.x, cell.y) || cell == rules_.avoiding) return false;
        return map_.isPassable(cell.x, cell.y, View::Physical) || dug_.has(cell);
    }

    [[nodiscard]] bool isLadder(int x, int y) const {
        if (!map_.contains(x, y)) return false;
        const BlockType type = map_.cellAt(x, y).baseType;
        return type == BlockType::Ladder || (rules_.isOpen && type == BlockType::HiddenLadder);
    }

    /// An enemy in a hole carries too, so a dug floor still counts as support.
    [[nodiscard]] bool canStay(CellPosition cell) const {
        return map_.canStand(cell.x, cell.y, View::Physical) || map_.isPipe(cell.x, cell.y) ||
               isLadder(cell.x, cell.y) || isLadder(cell.x, cell.y + 1);
    }

    void digAround(CellPosition at) {
        for (const int x : {at.x - 1, at.x + 1}) {
            const CellPosition floor{x, at.y + 1};
            if (!map_.contains(floor.x, floor.y) || map_.cellAt(floor.x, floor.y).type != BlockType::Floor) continue;
            if (canEnter({x, at.y}) && dug_.add(floor)) hasDug_ = true;
        }
    }

    const LevelMap& map_;
    const WayRules& rules_;
    CellSet dug_;
    CellSet reached_;
    std::vector<CellPosition> seen_;
    std::vector<CellPosition> todo_;
    bool hasDug_ = false;
};

}  // namespace

CellSet reachableFrom(const LevelMap& map, std::span<const CellPosition> starts, const WayRules& rules) {
    Walker walker(map, rules);
    for (const CellPosition start : starts) walker.start(start);
    return walker.walk();
}

CellSet leadingInto(const LevelMap& map, const CellSet& goal) {
    const WayRules rules;
    const Walker walker(map, rules);
    CellSet leading = goal;
    for (bool grows = true; grows;) {
        grows = false;
        for (int y = 0; y < map.height(); ++y) {
            for (int x = 0; x < map.width(); ++x) {
                if (leading.has({x, y}) || !map.isPassable(x, y, View::Physical)) continue;
                bool leads = false;
                walker.eachStep({x, y}, [&](CellPosition next) { leads = leads || leading.has(next); });
                if (leads) grows = leading.add({x, y});
            }
        }
    }
    return leading;
}

bool canDigFrom(const LevelMap& map, CellPosition cell) {
    if (!map.canStand(cell.x, cell.y, View::Physical) && !map.isPipe(cell.x, cell.y)) return false;
    return map.isDiggable(cell.x - 1, cell.y + 1) || map.isDiggable(cell.x + 1, cell.y + 1);
}

}  // namespace grub
