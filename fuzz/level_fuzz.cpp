#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <utility>

#include "level_file.h"
#include "level_loader.h"
#include "world.h"

namespace {

/// No block table: a type for each small block id is all a level needs to be played.
class TypesOnly final : public grub::ResourceSource {
public:
    bool exists(const grub::EngineString& /*name*/) override { return true; }
    grub::SharedBuffer load(const grub::EngineString& /*name*/) override {
        static const std::string table = [] {
            std::string text;
            for (int type = 0; type < 10; ++type)
                text += "[" + std::to_string(type) + "]\r\ntype=" + std::to_string(type) + "\r\n";
            return text;
        }();
        return grub::SharedBuffer::view(reinterpret_cast<const std::uint8_t*>(table.data()),
                                        static_cast<std::uint32_t>(table.size()));
    }
};

void require(bool holds) {
    if (!holds) std::abort();
}

/// Runs about for two seconds with a key for each bit of `keys`.
void play(grub::LevelMap map, unsigned keys) {
    grub::World world(std::move(map), {.seed = keys}, grub::AnimationFrameCounts::all(3));
    for (unsigned frame = 0; frame < 50; ++frame) {
        world.keyDown(static_cast<grub::PlayKey>((keys >> (frame % 29)) % 10));
        world.step();
        world.finishFrame(true);
        require(!world.hero().isOutsideMap(world.map()));
        require(world.keysRemaining() >= 0);
    }
}

}  // namespace

// Whatever is read can be written again, built and played; whatever is refused has a reason.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string reason;
    const auto level = grub::readLevelFile({data, size}, reason);
    require(level.has_value() == reason.empty());
    if (!level) return 0;
    const auto bytes = grub::writeLevelFile(*level);
    require(bytes.size() <= size && std::equal(bytes.begin(), bytes.end(), data));

    static TypesOnly source;
    grub::LevelLoader loader(source);
    loader.loadBlockTypes();
    if (auto map = loader.build(*level, reason)) play(*std::move(map), static_cast<unsigned>(bytes[0]) * 2654435761U);
    return 0;
}
