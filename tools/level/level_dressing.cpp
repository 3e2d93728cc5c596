#include "level_compiler.h"

#include <algorithm>
#include <array>
#include <vector>

#include "map_cell.h"
#include "surface.h"
#include "text_lines.h"

namespace grub {

namespace {

/// The shapes that a block's name may end in. The place of a cell decides on its shape.
constexpr std::array<std::string_view, 7> kShapes{"left", "right", "single", "under", "top", "foot", "joint"};
/// A joint stands in every third column, so that long pipes look assembled and short ones do not.
constexpr int kJointEvery = 3;
/// Of eight equal cells about five show the plain picture and three show one of its variants.
constexpr unsigned kPlainInEight = 5;
/// The most columns and rows of a thing that is larger than a cell.
constexpr int kMostOfGroup = 9;

constexpr bool isMasonry(BlockType type) { return type == BlockType::Floor || type == BlockType::Solid; }
constexpr bool isRungs(BlockType type) { return type == BlockType::Ladder || type == BlockType::HiddenLadder; }

/// A number that looks random but depends on the place alone, so that a change of one cell leaves all others alone.
constexpr unsigned placeHash(int column, int row) {
    return stirred(static_cast<unsigned>(column) * 0x9e3779b1U ^ static_cast<unsigned>(row) * 0x85ebca77U);
}

/// Dresses one level. Each step uses the results of the steps before it.
class Dresser {
public:
    Dresser(const LevelSource& source, const BlockPalette& palette, TextError& error)
        : source_(source),
          palette_(palette),
          error_(error),
          level_(emptyLevel(static_cast<int>(source.field.front().size()), static_cast<int>(source.field.size()))),
          families_(level_.records.size()) {}

    std::optional<LevelFile> dress() {
        for (std::size_t i = 0; i < kFreeBytes; ++i) level_.header[freeByteOffset(i)] = source_.freeBytes[i];
        if (!legendIsUsed() || !nameCells()) return std::nullopt;
        eachCell([this](int column, int row) { buildCell(column, row); });
        for (const Placement& placement : source_.placements)
            if (!place(placement)) return std::nullopt;
        return std::move(level_);
    }

private:
    [[nodiscard]] bool isInside(int column, int row) const {
        return column < level_.width && row < level_.height;  // sources have no negative places
    }

    template <class Action>
    void eachCell(Action action) {
        for (int row = 0; row < level_.height; ++row)
            for (int column = 0; column < level_.width; ++column) action(column, row);
    }

    bool fail(int line, std::string message, int column = 0) {
        error_ = {line, std::move(message), column};
        return false;
    }

    bool legendIsUsed() {
        for (const auto& [character, entry] : source_.legend) {
            if (palette_.find(source_.world, entry.family) == nullptr)
                return fail(entry.line,
                            "wanted a block of world '" + source_.world + "', found '" + entry.family + "'");
            const auto has = [c = character](const std::string& row) { return row.find(c) != std::string::npos; };
            if (std::none_of(source_.field.begin(), source_.field.end(), has))
                return fail(entry.line,
                            std::string("wanted a character of the playing field, found '") + character + "'");
        }
        return true;
    }

    bool nameCells() {
        for (int row = 0; row < level_.height; ++row)
            for (int column = 0; column < level_.width; ++column)
                if (!nameCell(column, row)) return false;
        return true;
    }

    bool nameCell(int column, int row) {
        const char character = source_.field[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
        const int line = source_.fieldLine + row;
        const FieldCharacter* known = fieldCharacter(character);
        const auto own = source_.legend.find(character);
        std::string_view name;
        if (own != source_.legend.end())
            name = own->second.family;
        else if (known != nullptr)
            name = known->family;
        else
            return fail(line, "wanted one of " + knownCharacters() + ", found '" + character + "'", column + 1);
        const Block* block = palette_.find(source_.world, name);
        if (block == nullptr)
            return fail(source_.worldLine,
                        "wanted a world that has the block '" + std::string(name) + "', found '" + source_.world + "'");
        family(column, row) = block;
        valueIn(recordAt(level_, column, row), Slot::Object) = known != nullptr ? known->object : 0;
        return true;
    }

    std::string knownCharacters() const {
        std::string all;
        for (const FieldCharacter& known : kFieldCharacters) all += known.character;
        for (const auto& [character, entry] : source_.legend)
            if (fieldCharacter(character) == nullptr) all += character;
        return all;
    }

    const Block*& family(int column, int row) { return families_[indexIn(level_, column, row)]; }

    /// The type at a cell. Outside the level it is the type of the nearest cell inside, so that floors and pipes look
    /// as if they went on beyond the edge.
    BlockType typeAt(int column, int row) {
        return blockTypeOf(
            family(std::clamp(column, 0, level_.width - 1), std::clamp(row, 0, level_.height - 1))->type);
    }

    void buildCell(int column, int row) {
        const Block& block = shaped(*family(column, row), shapeAt(column, row));
        valueIn(recordAt(level_, column, row), Slot::Base) = variant(block, column, row).id;
        const bool liesBelow = isMasonry(typeAt(column, row - 1)) && !isMasonry(typeAt(column, row));
        const Block* shade = liesBelow ? palette_.find(source_.world, "shade") : nullptr;
        if (shade == nullptr) return;
        valueIn(recordAt(level_, column, row), Slot::Layer3) = shaped(*shade, shadeShape(column, row)).id;
    }

    const Block& shaped(const Block& block, std::string_view shape) const {
        const Block* found = shape.empty() ? nullptr : palette_.byName(block.name + "." + std::string(shape));
        return found != nullptr ? *found : block;
    }

    std::string_view shapeAt(int column, int row) {
        const BlockType type = typeAt(column, row);
        if (isMasonry(type)) return masonryShape(column, row);
        if (isRungs(type))
            return endsShape(!isRungs(typeAt(column, row - 1)), !isRungs(typeAt(column, row + 1)), "top", "foot");
        if (type == BlockType::Pipe) return pipeShape(column, row);
        return {};
    }

    std::string_view masonryShape(int column, int row) {
        if (isMasonry(typeAt(column, row - 1))) return "under";
        const auto goesOn = [this, row](int x) { return isMasonry(typeAt(x, row)) || isRungs(typeAt(x, row)); };
        return endsShape(!goesOn(column - 1), !goesOn(column + 1), "left", "right");
    }

    /// The shadow of a floor ends where that floor ends, unless masonry stands there.
    std::string_view shadeShape(int column, int row) {
        const auto goesOn = [this, row](int x) { return isMasonry(typeAt(x, row - 1)) || isMasonry(typeAt(x, row)); };
        return endsShape(!goesOn(column - 1), !goesOn(column + 1), "left", "right");
    }

    std::string_view pipeShape(int column, int row) {
        const auto goesOn = [this, row](int x) { return typeAt(x, row) == BlockType::Pipe; };
        const std::string_view ends = endsShape(!goesOn(column - 1), !goesOn(column + 1), "left", "right");
        return ends.empty() && column % kJointEvery == 1 ? "joint" : ends;
    }

    static std::string_view endsShape(bool first, bool last, std::string_view firstName, std::string_view lastName) {
        if (first && last) return "single";
        return first ? firstName : last ? lastName : std::string_view();
    }

    const Block& variant(const Block& block, int column, int row) const {
        const std::vector<const Block*> all = palette_.variants(block);
        const unsigned hash = placeHash(column, row);
        if (all.size() == 1 || hash % 8 < kPlainInEight) return block;
        return *all[1 + (hash >> 3) % (all.size() - 1)];
    }

    bool place(const Placement& placement) {
        if (placement.slot == Slot::Object) return placeObject(placement);
        if (palette_.find(source_.world, placement.name) == nullptr && group(placement, 0, 0) != nullptr)
            return placeGroup(placement);
        const auto id = blockId(placement);
        return id ? put(placement, 0, 0, *id)
                  : fail(placement.line, "wanted 'none', a block's number or the name of a block of world '" +
                                             source_.world + "', found '" + placement.name + "'");
    }

    std::optional<std::uint16_t> blockId(const Placement& placement) const {
        if (placement.name == "none") return 0;
        const Block* block = palette_.find(source_.world, placement.name);
        return block != nullptr ? block->id : numberIn<std::uint16_t>(placement.name);
    }

    bool placeObject(const Placement& placement) {
        const auto named = std::find_if(kObjectNames.begin(), kObjectNames.end(),
                                        [&](const ObjectName& object) { return object.name == placement.name; });
        if (named != kObjectNames.end()) return put(placement, 0, 0, named->code);
        if (placement.name == "none") return put(placement, 0, 0, 0);
        const auto code = numberIn<std::uint16_t>(placement.name);
        return code ? put(placement, 0, 0, *code)
                    : fail(placement.line, "wanted " + objectNames() + ", found '" + placement.name + "'");
    }

    static std::string objectNames() {
        std::string all;
        for (const ObjectName& object : kObjectNames) all += std::string(object.name) + ", ";
        return all + "none or a number";
    }

    /// One block of a thing that is larger than a cell. Such blocks are called NAME.11, NAME.12 ... NAME.21 by row and
    /// column.
    const Block* group(const Placement& placement, int column, int row) const {
        const std::string digits{static_cast<char>('1' + row), static_cast<char>('1' + column)};
        return palette_.find(source_.world, placement.name + "." + digits);
    }

    /// All of its blocks; a number without a block is a cell that stays as it is.
    bool placeGroup(const Placement& placement) {
        for (int row = 0; row < kMostOfGroup; ++row) {
            for (int column = 0; column < kMostOfGroup; ++column) {
                const Block* part = group(placement, column, row);
                if (part != nullptr && !put(placement, column, row, part->id)) return false;
            }
        }
        return true;
    }

    bool put(const Placement& placement, int dx, int dy, std::uint16_t value) {
        const int column = placement.column + dx;
        const int row = placement.row + dy;
        if (!isInside(column, row))
            return fail(placement.line, "wanted a cell inside " + std::to_string(level_.width) + " columns and " +
                                            std::to_string(level_.height) + " rows, found " + std::to_string(column) +
                                            " " + std::to_string(row));
        valueIn(recordAt(level_, column, row), placement.slot) = value;
        return true;
    }

    const LevelSource& source_;
    const BlockPalette& palette_;
    TextError& error_;
    LevelFile level_;
    std::vector<const Block*> families_;
};

bool isShape(std::string_view part) { return std::find(kShapes.begin(), kShapes.end(), part) != kShapes.end(); }

}  // namespace

std::optional<LevelFile> dressLevel(const LevelSource& source, const BlockPalette& palette, TextError& error) {
    return Dresser(source, palette, error).dress();
}

std::string_view worldOf(std::string_view blockName) {
    const std::size_t dot = blockName.find('.');
    return dot == std::string_view::npos ? std::string_view() : blockName.substr(0, dot);
}

std::string familyOf(std::string_view blockName) {
    std::string_view family = blockName.substr(0, blockName.find('~'));
    const std::size_t shape = family.rfind('.');
    if (shape != std::string_view::npos && isShape(family.substr(shape + 1))) family = family.substr(0, shape);
    const std::string_view world = worldOf(family);
    return std::string(world.empty() ? family : family.substr(world.size() + 1));
}

}  // namespace grub
