#include "all_strips.h"

#include <algorithm>

namespace grub {

const std::vector<StripDrawing>& allStrips() {
    static const std::vector<StripDrawing> strips = [] {
        std::vector<StripDrawing> all;
        for (const std::span<const StripDrawing> group :
             {heroStrips(),       shieldStrips(),      thingStrips(),       dogStrips(),   ladyStrips(),
              ratStrips(),                                                                                 //
              turmaWallStrips(),  jelezoWallStrips(),  podvalWallStrips(),  floorStrips(), solidStrips(),  //
              climbingStrips(),   doorStrips(),        wallPipeStrips(),    wireStrips(),  lightStrips(),  //
              turmaDecorStrips(), jelezoDecorStrips(), podvalDecorStrips(), digitStrips()}) {
            all.insert(all.end(), group.begin(), group.end());
        }
        return all;
    }();
    return strips;
}

const StripDrawing* findStrip(std::string_view name) {
    const auto& all = allStrips();
    const auto found =
        std::find_if(all.begin(), all.end(), [name](const StripDrawing& strip) { return strip.name == name; });
    return found == all.end() ? nullptr : &*found;
}

}  // namespace grub
