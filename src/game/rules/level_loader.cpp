#include "level_loader.h"

#include <algorithm>
#include <unordered_map>

#include "animation_id.h"
#include "enemy_traits.h"
#include "level_list.h"
#include "map_cell.h"
#include "rules.h"

namespace grub {

void SpriteNumbers::addSpriteNumber(std::int32_t number, std::int16_t animationId) {
    const std::lock_guard guard(lock_);
    if (pairs_.size() < kMaxSpriteNumbers) pairs_.push_back({number, animationId});
}

std::int16_t SpriteNumbers::spriteIdOf(std::int32_t number) const {
    const std::lock_guard guard(lock_);
    const auto found = std::ranges::find(pairs_, number, &Pair::number);
    return found == pairs_.end() ? kUnknown : found->animationId;
}

namespace {

constexpr std::uint32_t kBlockTableBuckets = 3000;

/// A section of the block table; its strip numbers are already animation ids.
struct BlockTraits {
    std::optional<BlockType> type;
    std::optional<std::int16_t> sprite;
    std::int16_t fireSprite = kNoSprite;
    std::int16_t rostSprite = kNoSprite;
    std::int16_t fonSprite = kNoSprite;
};

/// The blocks of one level, each looked up once.
class Blocks {
public:
    Blocks(const IniTable& table, const SpriteNumbers& numbers) : table_(table), numbers_(numbers) {}

    const BlockTraits& operator[](std::uint16_t id) {
        const auto known = known_.find(id);
        return known != known_.end() ? known->second : known_.emplace(id, read(id)).first->second;
    }

private:
    [[nodiscard]] BlockTraits read(std::uint16_t id) const {
        BlockTraits block;
        const EngineString section(std::string_view(std::to_string(id)));
        const auto strip = [&](const char* key) { return numbers_.spriteIdOf(table_.getInt(section, key)); };
        if (table_.has(section, "type")) block.type = blockTypeOf(table_.getInt(section, "type"));
        if (table_.has(section, "sprite")) block.sprite = strip("sprite");
        block.fireSprite = strip("spriteFire");
        block.rostSprite = strip("spriteRost");
        block.fonSprite = strip("spriteFon");
        return block;
    }

    const IniTable& table_;
    const SpriteNumbers& numbers_;
    std::unordered_map<std::uint16_t, BlockTraits> known_;
};

/// The animation id of a block that names no strip.
std::int16_t defaultSprite(BlockType type) {
    switch (type) {
        case BlockType::Floor: return animation::kPlainFloor;
        case BlockType::Ladder: return animation::kPlainLadder;
        case BlockType::Pipe: return animation::kPlainPipe;
        case BlockType::Solid: return animation::kPlainSolid;
        default: return animation::kPlainWall;
    }
}

/// What a type means beyond itself: some are only marks on an empty cell.
void settleType(MapCell& cell) {
    switch (cell.baseType) {
        case BlockType::HiddenLadder: cell.type = BlockType::Empty; break;
        case BlockType::Exit:
            cell.type = BlockType::Empty;
            cell.isExit = true;
            break;
        case BlockType::SpawnPoint:
            cell.type = BlockType::Empty;
            cell.baseType = BlockType::Empty;
            cell.isSpawnPoint = true;
            break;
        default: break;
    }
}

void applyBase(MapCell& cell, const BlockTraits& block) {
    cell.type = block.type.value_or(BlockType::Empty);
    cell.baseType = cell.type;
    cell.sprite = block.sprite && *block.sprite >= 0 ? *block.sprite : defaultSprite(cell.baseType);
    cell.baseSprite = cell.sprite;
    cell.fireSprite = block.fireSprite;
    cell.rostSprite = block.rostSprite;
    cell.fonSprite = block.fonSprite;
    settleType(cell);
}

/// A layer is an ornament; only on an empty base its block also says how the cell behaves.
void applyLayer(MapCell& cell, std::int16_t& layerSprite, std::uint16_t id, Blocks& blocks) {
    if (id == 0) return;
    const BlockTraits& block = blocks[id];
    layerSprite = block.sprite.value_or(0);
    if (cell.baseType == BlockType::Empty && block.type) {
        cell.type = *block.type;
        cell.baseType = *block.type;
    }
}

MapCell makeCell(const CellRecord& record, Blocks& blocks) {
    MapCell cell;
    applyBase(cell, blocks[record.base]);
    applyLayer(cell, cell.layer2Sprite, record.layer2, blocks);
    applyLayer(cell, cell.layer3Sprite, record.layer3, blocks);
    applyLayer(cell, cell.layer4Sprite, record.layer4, blocks);
    applyLayer(cell, cell.layer5Sprite, record.layer5, blocks);
    settleType(cell);
    if (cell.baseType == BlockType::Exit) cell.sprite = cell.baseSprite = cell.rostSprite;
    cell.code = record.code;
    return cell;
}

void placeObject(LevelMap& map, int x, int y, std::uint16_t code) {
    if (code == object_code::kHero) map.setHeroStart({x, y});
    if (object_code::isObject(code)) map.addObject({x, y, code});
    if (object_code::isKey(code)) map.addKey(x, y, code == object_code::kKey ? 1 : 0);
}

/// Why a world cannot hold the map; empty when it can.
std::string reasonToRefuse(const LevelMap& map) {
    const auto tooMany = [](std::size_t count, const char* what, std::size_t limit) {
        return std::to_string(count) + " " + what + ", at most " + std::to_string(limit) + " are possible";
    };
    const auto enemies = static_cast<std::size_t>(
        std::ranges::count_if(map.objects(), [](const LevelObject& object) { return isEnemy(object.code); }));
    if (map.spawnPoints().size() > kMaxSpawnPoints)
        return tooMany(map.spawnPoints().size(), "spawn points", kMaxSpawnPoints);
    if (enemies > kMaxEnemies) return tooMany(enemies, "enemies", kMaxEnemies);
    return {};
}

}  // namespace

bool LevelLoader::loadBlockTypes() {
    blocks_.reset();
    const SharedBuffer table = levels_->load(EngineString(kBlockTableName));
    if (table.size() > 0) blocks_.emplace(table, kBlockTableBuckets);
    return blocks_.has_value();
}

std::optional<LevelMap> LevelLoader::load(std::string_view name, std::string& reason) const {
    const EngineString resource(name);
    std::optional<LevelMap> map;
    if (!levels_->exists(resource)) {
        reason = "there is no such file";
    } else if (const auto file = readLevelFile(levels_->load(resource).bytes(), reason)) {
        map = build(*file, reason);
    }
    if (!map) reason = std::string(name) + ": " + reason;
    return map;
}

std::optional<LevelMap> LevelLoader::build(const LevelFile& file, std::string& reason) const {
    if (!blocks_) {
        reason = "the block table " + std::string(kBlockTableName) + " is missing";
        return std::nullopt;
    }
    LevelMap map(file.width, file.height);
    map.setHeader(file.header);
    Blocks blocks(*blocks_, spriteNumbers_);
    auto record = file.records.begin();
    for (int y = 0; y < file.height; ++y) {
        for (int x = 0; x < file.width; ++x, ++record) {
            map.cellAt(x, y) = makeCell(*record, blocks);
            if (map.cellAt(x, y).isSpawnPoint) map.addSpawnPoint({x, y});
            placeObject(map, x, y, record->code);
        }
    }
    reason = reasonToRefuse(map);
    if (!reason.empty()) return std::nullopt;
    return map;
}

}  // namespace grub
