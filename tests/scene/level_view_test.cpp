#include "level_view.h"

#include <gtest/gtest.h>

#include <vector>

#include "animation_id.h"
#include "bmp_writer.h"
#include "fake_renderer.h"
#include "level_writer.h"
#include "map_cell.h"
#include "memory_source.h"

namespace grub {
namespace {

using namespace animation;

/// A level whose cells draw nothing until a test says what they draw; every animation has two frames.
class LevelViewTest : public ::testing::Test {
protected:
    LevelViewTest() {
        source_.put("two.bmp", writeBmp(1, 64 * 2, Bytes(std::size_t{128} * 3, 9)));
        source_.put("digits.bmp", writeBmp(1, 20 * 10, Bytes(std::size_t{200} * 3, 9)));
        for (const int id : {kPlainWall, 10, 12, 13, 14, 15, 16, kDogWalkLeft, kHangingKey, kLyingKey, kLongLamp,
                             kShortLamp, kDrops, kHeart, kHeroStandLeft})
            table_.addAnimationFile("two.bmp", id, 64, TextureTransform::Identity, kBlue);
        table_.addAnimationFile("digits.bmp", kScoreDigits, 20, TextureTransform::Identity, kBlue);
    }

    static LevelMap bareMap(int columns, int rows) {
        LevelMap map(columns, rows);
        for (int y = 0; y < rows; ++y)
            for (int x = 0; x < columns; ++x) map.cellAt(x, y).sprite = kNoSprite;
        return map;
    }

    void draw(const World& world, const Camera& camera = {}) {
        renderer_.drawn.clear();
        drawLevel(world, camera, table_, renderer_);
    }
    void draw(const LevelMap& map, const Camera& camera = {}) {
        draw(World(map, {}, AnimationFrameCounts::all(2)), camera);
    }

    /// The animations that were drawn, in order; -1 for one that was not drawn in its current frame.
    std::vector<int> drawnAnimations() const {
        std::vector<int> ids(renderer_.drawn.size(), -1);
        for (std::size_t i = 0; i < ids.size(); ++i)
            for (int id = 0; id < kAnimationSlots; ++id)
                if (table_.strip(id) && table_.strip(id)->texture() == renderer_.drawn[i].texture) ids[i] = id;
        return ids;
    }

    FakeRenderer renderer_;
    MemorySource source_;
    SpriteNumbers numbers_;
    AnimationTable table_{source_, numbers_};
};

TEST_F(LevelViewTest, DrawsWhatCellsHaveBackToFrontWithTheActorsBetween) {
    LevelMap map = bareMap(4, 2);
    map.cellAt(0, 0).fonSprite = map.cellAt(0, 0).sprite = kPlainWall;          // a wall like others
    map.cellAt(1, 0).layer2Sprite = map.cellAt(1, 0).layer5Sprite = kNoSprite;  // draws nothing
    map.cellAt(1, 0).sprite = 77;                                               // is not loaded
    map.addKey(3, 0, 0);
    map.cellAt(3, 0).code = object_code::kShortLamp;
    for (const std::uint16_t code : {object_code::kDog, object_code::kHeart, object_code::kDrops})
        map.addObject({2, 0, code});
    map.addKey(1, 1, 1);
    MapCell& cell = map.cellAt(1, 1);
    cell.code = object_code::kLongLamp;
    cell.fonSprite = 10;
    cell.sprite = 16;
    cell.frame = 1;
    cell.layer2Sprite = 12;
    cell.layer3Sprite = 13;
    cell.layer4Sprite = 14;
    cell.layer5Sprite = 15;
    map.cellAt(2, 1).sprite = 16;
    map.cellAt(2, 1).frame = 2;
    draw(map);
    EXPECT_EQ(drawnAnimations(),
              (std::vector{kPlainWall, kPlainWall, kHangingKey, 10, 16, 13, 14, 12, kLyingKey, 16, kDrops, kHeart,
                           kHeroStandLeft, kDogWalkLeft, kShortLamp, 15, kLongLamp}));
    EXPECT_EQ(table_.strip(16)->frame(), 1) << "a frame that the strip lacks leaves its current one";
    EXPECT_EQ(table_.strip(10)->frame(), 0) << "only the cell's own picture follows the cell's frame";
    for (const auto& drawn : renderer_.drawn) EXPECT_EQ(drawn.opacity, 1.0F);
    EXPECT_EQ(renderer_.drawn[13].x, 128) << "the dog";
    map.cellAt(2, 0).type = BlockType::Solid;  // the dog dies at its first decision
    World buried(map, {}, AnimationFrameCounts::all(2));
    buried.step();
    draw(buried);
    EXPECT_EQ(renderer_.drawn.size(), 16U) << "a dead enemy is not drawn";
}

TEST_F(LevelViewTest, PointsRiseFromTheCellWhereTheyWereEarned) {
    LevelMap map = bareMap(1, 1);
    map.addKey(0, 0, 1);
    World world(map, {}, AnimationFrameCounts::all(2));
    world.step();  // takes the key: 50 points
    for (int picture = 0; picture < 3; ++picture) world.finishFrame(false);
    draw(world);
    ASSERT_EQ(renderer_.drawn.size(), 3U) << "the hero and two digits";
    EXPECT_EQ(renderer_.drawn[1].x, 32 - 14) << "the last digit ends where the number stands";
    EXPECT_EQ(renderer_.drawn[1].y, 32 - 2);
    EXPECT_EQ(table_.strip(kScoreDigits)->frame(), 5) << "the first digit is drawn last";
}

TEST_F(LevelViewTest, NumbersEndAtTheirPlaceWithAtMostFiveDigits) {
    const struct {
        int x, y, value;
        std::vector<int> lefts;  // of the digits, in the order in which they are drawn
    } rows[] = {{100, 10, 0, {90}},
                {100, 10, 105, {90, 80, 70}},
                {100, 10, 1234567, {90, 80, 70, 60, 50}},
                {-64, -64, 7, {-74}},
                {0, -65, 7, {}},
                {0, 601, 7, {}}};
    for (const auto& row : rows) {
        renderer_.drawn.clear();
        drawNumber(renderer_, row.x, row.y, row.value, *table_.strip(kScoreDigits), DigitSpacing::Narrow);
        std::vector<int> lefts;
        for (const auto& drawn : renderer_.drawn) lefts.push_back(drawn.x);
        EXPECT_EQ(lefts, row.lefts) << row.value << " at " << row.x << ", " << row.y;
    }
}

TEST_F(LevelViewTest, TheCameraKeepsTheHeroInItsBandAndCellsAreDrawnThatCanShow) {
    // The hero appears at (x, y) and the camera follows him from the corner to (scrollX, scrollY), where it sees
    // `cells` and `actors` of a full map: 832 pixels are 13 columns, 640 are 10 rows. Then he is at the place (nextX,
    // nextY) of the screen, and the camera moves by (movesX, movesY).
    const struct {
        const char* what;
        int columns, rows, x, y, scrollX, scrollY;
        std::size_t cells, actors;
        int nextX, nextY, movesX, movesY;
    } rows[] = {
        {"13 columns and 9 rows never scroll", 13, 9, 768, 512, 0, 0, 117, 117, 768, 512, 0, 0},
        {"on the band's far edge", 30, 20, 544, 344, 0, 0, 130, 130, 544, 344, 0, 0},
        {"one pixel beyond it", 30, 20, 545, 345, 1, 1, 130, 130, 544, 344, 0, 0},
        {"scrolled by almost a cell: a column more", 30, 20, 1055, 663, 511, 319, 140, 154, 544, 344, 0, 0},
        {"on the band's near edge", 40, 40, 1000, 700, 456, 356, 130, 130, 192, 128, 0, 0},
        {"one pixel before it", 40, 40, 1000, 700, 456, 356, 130, 130, 191, 127, -1, -1},
        {"14 columns, 10 rows above the panel", 14, 10, 832, 576, 96, 104, 117, 117, -96, -104, -96, -104},
        {"a column begins at the last pixel", 30, 20, 640, 344, 96, 0, 140, 140, 544, 344, 0, 0},
        {"the ends of the map", 30, 20, 1856, 1216, 1120, 744, 117, 117, 736, 472, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        LevelMap map = bareMap(row.columns, row.rows);
        for (int y = 0; y < row.rows; ++y)
            for (int x = 0; x < row.columns; ++x) {
                map.cellAt(x, y).sprite = map.cellAt(x, y).layer5Sprite = 15;
                map.addObject({x, y, object_code::kDrops});
            }
        Camera camera;
        camera.follow(row.x, row.y, row.columns, row.rows);
        EXPECT_EQ(camera.scrollX(), row.scrollX);
        EXPECT_EQ(camera.scrollY(), row.scrollY);
        draw(map, camera);
        EXPECT_EQ(renderer_.drawn.size(), 2 * row.cells + row.actors + 1) << "the hero too";
        EXPECT_EQ(renderer_.drawn.front().x, -(row.scrollX % 64));
        EXPECT_EQ(renderer_.drawn.front().y, -(row.scrollY % 64));
        camera.follow(row.scrollX + row.nextX, row.scrollY + row.nextY, row.columns, row.rows);
        EXPECT_EQ(camera.scrollX(), row.scrollX + row.movesX);
        EXPECT_EQ(camera.scrollY(), row.scrollY + row.movesY);
    }
}

}  // namespace
}  // namespace grub
