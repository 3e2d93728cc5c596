#include "game_recorder.h"

#include <utility>

#include "game_player.h"

namespace grub {

GameRecorder::GameRecorder(std::string level, const WorldStart& start) {
    game_.level = std::move(level);
    game_.start = start;
}

void GameRecorder::event(const World& world, KeyAction action, PlayKey key) {
    game_.events.push_back({world.frame() + 1, action, key});
}

void GameRecorder::frame(const World& world) {
    const bool isOver = world.frame() > 0 && world.ended();
    const bool isLeft = isOver && (world.cause() == LossCause::Quit || world.cause() == LossCause::Load);
    if (isLeft) return;
    last_ = {world.frame(), world.stateHash(), marksOf(world)};
    end_ = {.frame = world.frame(),
            .cause = isOver ? world.cause() : LossCause::Quit,
            .score = world.score(),
            .keys = world.keysRemaining()};
    if (world.frame() % kStateInterval == 0) game_.states.push_back(last_);
}

RecordedGame GameRecorder::game() const {
    RecordedGame game = game_;
    if (game.states.empty() || game.states.back().frame != last_.frame) game.states.push_back(last_);
    std::erase_if(game.events, [this](const KeyEvent& event) { return event.frame > end_.frame; });
    game.end = end_;
    return game;
}

bool record(RecordedGame& game, World& world) {
    if (game.end && game.end->cause != LossCause::Quit) game.end.reset();
    GameRecorder recorder(game.level, game.start);
    KeyFeed keys(game.events);
    recorder.frame(world);
    while (!isOver(game, world)) {
        if (world.frame() == kLongestGame) return false;
        playFrame(world, keys);
        recorder.frame(world);
    }
    const RecordedGame played = recorder.game();
    game.states = played.states;
    game.end = played.end;
    return true;
}

}  // namespace grub
