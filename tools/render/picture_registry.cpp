#include "picture_registry.h"

#include <algorithm>
#include <span>

#include "bonus_pictures.h"
#include "cellar_pictures.h"
#include "cellar_wall_pictures.h"
#include "climbing_pictures.h"
#include "decor_pictures.h"
#include "digit_pictures.h"
#include "dog_pictures.h"
#include "door_pictures.h"
#include "floor_pictures.h"
#include "hero_pictures.h"
#include "iron_wall_pictures.h"
#include "label_pictures.h"
#include "lady_pictures.h"
#include "light_pictures.h"
#include "rat_pictures.h"
#include "shield_pictures.h"
#include "solid_pictures.h"
#include "thing_pictures.h"
#include "wall_pictures.h"
#include "wall_pipe_pictures.h"
#include "wire_pictures.h"
#include "works_pictures.h"

namespace grub {

const std::vector<PictureEntry>& allPictures() {
    static const std::vector<PictureEntry> pictures = [] {
        std::vector<PictureEntry> all;
        for (const std::span<const PictureEntry> group :
             {heroPictures(),       shieldPictures(), bonusPictures(), wallPictures(),     ironWallPictures(),
              cellarWallPictures(), floorPictures(),  solidPictures(), climbingPictures(), wallPipePictures(),
              wirePictures(),       thingPictures(),  doorPictures(),  lightPictures(),    decorPictures(),
              worksPictures(),      cellarPictures(), digitPictures(), dogPictures(),      ladyPictures(),
              ratPictures()}) {
            all.insert(all.end(), group.begin(), group.end());
        }
        const std::vector<PictureEntry> labels = labelsBeside(all);
        all.insert(all.end(), labels.begin(), labels.end());
        return all;
    }();
    return pictures;
}

const PictureEntry* findPicture(std::string_view name) {
    const auto& all = allPictures();
    const auto found =
        std::find_if(all.begin(), all.end(), [name](const PictureEntry& entry) { return entry.name == name; });
    return found == all.end() ? nullptr : &*found;
}

}  // namespace grub
