#include "level_view.h"

#include <algorithm>

#include "animation_id.h"
#include "map_cell.h"
#include "rules.h"

namespace grub {

namespace {

// The band of the screen, in pixels, that the hero may cross before the view moves.
constexpr int kLeft = 192;
constexpr int kRight = 544;
constexpr int kTop = 128;
constexpr int kBottom = 344;

constexpr int kPanelHeight = 64;  // the panel covers the bottom of the screen, so the level may end above it
constexpr int kFewestColumnsThatScroll = 14;

int follow(int scroll, int hero, int nearEdge, int farEdge) {
    if (hero < scroll + nearEdge) scroll = hero - nearEdge;
    if (hero > scroll + farEdge) scroll = hero - farEdge;
    return scroll;
}

}  // namespace

void Camera::follow(int heroX, int heroY, int columns, int rows) {
    const int targetX = grub::follow(scrollX_, heroX, kLeft, kRight);
    const int targetY = grub::follow(scrollY_, heroY, kTop, kBottom);
    const int lastX = columns * kCellSize - kScreenWidth;
    const int lastY = rows * kCellSize - (kScreenHeight - kPanelHeight);
    scrollX_ = targetX < 1 || columns < kFewestColumnsThatScroll ? 0 : std::min(targetX, lastX);
    scrollY_ = targetY < 1 || rows * kCellSize <= kScreenHeight ? 0 : std::min(targetY, lastY);
}

int Camera::firstColumn() const { return scrollX_ / kCellSize; }

int Camera::firstRow() const { return scrollY_ / kCellSize; }

namespace {

constexpr int kMostDigits = 5;
/// Beyond these no digit of any number would show.
constexpr int kFarthestLeft = -64;
constexpr int kFarthestUp = -64;
constexpr int kFarthestRight = 800;
constexpr int kFarthestDown = 600;

}  // namespace

void drawNumber(Renderer& renderer, int x, int y, int value, FrameStrip& font, DigitSpacing spacing) {
    if (x < kFarthestLeft || y < kFarthestUp || x > kFarthestRight || y > kFarthestDown) return;
    int rest = value;
    for (int digit = 0; digit == 0 || (digit < kMostDigits && rest > 0); ++digit) {
        x -= static_cast<int>(spacing);
        font.setFrame(static_cast<std::uint16_t>(rest % 10));
        font.draw(renderer, {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)}, 1.0F);
        rest /= 10;
    }
}

namespace {

/// Cells around the screen's top-left one that can show: 800 and 600 pixels and one cell that is partly scrolled away.
constexpr int kVisibleColumns = 14;
constexpr int kVisibleRows = 10;
/// A strip frame is drawn when its top-left corner lies at most this far, in pixels, beyond the screen's left or top
/// edge.
constexpr int kBackMargin = 128;
constexpr int kFrontMargin = 64;
constexpr int kRightLimit = 801;
constexpr int kBottomLimit = 601;

/// By the key kind of a cell.
constexpr int kKeyStrips[] = {animation::kHangingKey, animation::kLyingKey};

class LevelPainter {
public:
    LevelPainter(const World& world, const Camera& camera, const AnimationTable& animations, Renderer& renderer)
        : world_(world), map_(world.map()), camera_(camera), animations_(animations), renderer_(renderer) {}

    void paint() {
        forVisibleCells(kBackMargin, [this](const MapCell& cell, Position at) { paintBack(cell, at); });
        for (const AnimatedItem& decoration : world_.decorations()) paintIfNear(decoration, decoration.stripFrame());
        for (const auto& bonus : world_.bonuses().slots)
            if (bonus) paintIfNear(*bonus, bonus->stripFrame());
        paintHero();
        for (const Enemy& enemy : world_.enemies())
            if (enemy.state() != EnemyState::Dead) paintIfNear(enemy, enemy.stripFrame());
        forVisibleCells(kFrontMargin, [this](const MapCell& cell, Position at) { paintFront(cell, at); });
        paintPopups();
    }

private:
    template <class Paint>
    void forVisibleCells(int margin, Paint paint) {
        const int firstColumn = camera_.firstColumn();
        const int firstRow = camera_.firstRow();
        for (int y = firstRow; y < firstRow + kVisibleRows && y < map_.height(); ++y)
            for (int x = firstColumn; x < firstColumn + kVisibleColumns && x < map_.width(); ++x) {
                const int left = x * kCellSize - camera_.scrollX();
                const int top = y * kCellSize - camera_.scrollY();
                if (left >= -margin && left < kRightLimit && top >= -margin && top < kBottomLimit)
                    paint(map_.cellAt(x, y), at(left, top));
            }
    }

    void paintBack(const MapCell& cell, Position at) {
        if (cell.fonSprite >= 0) paintCurrent(cell.fonSprite, at);
        if (cell.sprite >= 0) paintFrame(cell.sprite, cell.frame, at);
        paintLayer(cell.layer3Sprite, at);
        paintLayer(cell.layer4Sprite, at);
        paintLayer(cell.layer2Sprite, at);
        if (cell.keyPresent) paintCurrent(kKeyStrips[cell.keyKind], at);
    }

    void paintFront(const MapCell& cell, Position at) {
        paintLayer(cell.layer5Sprite, at);
        if (cell.code == object_code::kLongLamp) paintCurrent(animation::kLongLamp, at);
        if (cell.code == object_code::kShortLamp) paintCurrent(animation::kShortLamp, at);
    }

    void paintHero() {
        const HeroFrame shown = world_.heroFrame();
        const int left = shown.x - camera_.scrollX();
        const int top = shown.y - camera_.scrollY();
        paintFrame(shown.animation, shown.frame, at(left, top), shown.halfTransparent ? 0.5F : 1.0F);
    }

    void paintIfNear(const Actor& actor, AnimationFrame shown) {
        const int left = actor.x - camera_.scrollX();
        const int top = actor.y - camera_.scrollY();
        if (left >= -kFrontMargin && left < kRightLimit && top >= -kFrontMargin && top < kBottomLimit)
            paintFrame(shown.animation, shown.frame, at(left, top));
    }

    // A number that is shown has already risen for the next game frame.
    void paintPopups() {
        FrameStrip* const digits = animations_.strip(animation::kScoreDigits);
        if (!digits) return;
        for (const ScorePopup& popup : world_.popups().entries()) {
            if (!popup.shown) continue;
            const int right = popup.x - camera_.scrollX();
            const int top = popup.y + 1 - camera_.scrollY();
            drawNumber(renderer_, right, top, popup.value, *digits, DigitSpacing::Wide);
        }
    }

    // Layers have ids from 1 on; 0 is "no layer".
    void paintLayer(int animation, Position at) {
        if (animation > 0) paintCurrent(animation, at);
    }

    void paintFrame(int animation, int frame, Position at, float opacity = 1.0F) {
        FrameStrip* strip = animations_.strip(animation);
        if (!strip) return;
        strip->setFrame(static_cast<std::uint16_t>(frame));  // a frame that the strip lacks leaves its current one
        strip->draw(renderer_, at, opacity);
    }

    void paintCurrent(int animation, Position at) {
        if (FrameStrip* strip = animations_.strip(animation)) strip->draw(renderer_, at, 1.0F);
    }

    static Position at(int left, int top) { return {static_cast<std::int16_t>(left), static_cast<std::int16_t>(top)}; }

    const World& world_;
    const LevelMap& map_;
    const Camera& camera_;
    const AnimationTable& animations_;
    Renderer& renderer_;
};

}  // namespace

void drawLevel(const World& world, const Camera& camera, const AnimationTable& animations, Renderer& renderer) {
    LevelPainter(world, camera, animations, renderer).paint();
}

}  // namespace grub
