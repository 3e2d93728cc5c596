#include "kest_interface.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "engine_services.h"
#include "log_file.h"
#include "resource_package.h"

namespace grub {
namespace {

/// Widths of the pictures that fill a screen, in whole or in halves; these have no transparent colour.
constexpr std::array<std::int16_t, 2> kOpaqueWidths{640, 320};

LayoutDescription loadDescription(ResourceSource& data, const EngineString& name) {
    const EngineString path = "data\\" + name + "._i_2";
    if (!data.exists(path)) return {};
    const SharedBuffer file = data.load(path);
    return readLayoutDescription({reinterpret_cast<const char*>(file.data()), file.size()});
}

/// The first element of `elements` that has this name, or null.
template <class Element>
const Element* named(const std::vector<Element>& elements, const EngineString& name) {
    const auto found = std::ranges::find(elements, name.view(), &Element::name);
    return found == elements.end() ? nullptr : &*found;
}

/// Where the cells of a row or a column begin, without those that lie beside the screen.
std::vector<std::int16_t> placesOnScreen(int start, int step, int count, int cellSize, int screenSize) {
    std::vector<std::int16_t> places;
    for (int cell = 0; cell < count && places.size() < kMostCells; ++cell) {
        const int place = start + cell * step;
        if (place > -cellSize && place < screenSize) places.push_back(static_cast<std::int16_t>(place));
    }
    return places;
}

Position placeOf(int x, int y) { return {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)}; }

}  // namespace

KestInterface::KestInterface(ResourceSource& data, const EngineString& name)
    : KestInterface(data, name, std::make_unique<ResourcePackage>(name + ".pak")) {}

KestInterface::KestInterface(ResourceSource& data, const EngineString& name, std::unique_ptr<ResourceSource> package)
    : name_(name),
      description_(loadDescription(data, name)),
      package_(std::move(package)),
      animationOfFile_(kMostAnimations) {
    loadFonts();
}

void KestInterface::loadFonts() {
    for (std::size_t number = 0; number < description_.fontKeys.size(); ++number) {
        const EngineString image = name_ + "\\" + EngineString(description_.fontKeys[number]) + ".bmp";
        const EngineString glyphTable = image + ".dat";
        if (!package_->exists(image) || !package_->exists(glyphTable)) {
            logLine("DATA NOT PRESENT !");
            continue;
        }
        fonts_[number] = std::make_unique<BitmapFont>(package_->load(image), package_->load(glyphTable), kWhite);
        fonts_[number]->acquire();
    }
}

void KestInterface::selectLayout(const EngineString& layoutName) { current_ = named(description_.layouts, layoutName); }

void KestInterface::openLayout(const EngineString& layoutName) {
    stopAnimations();
    selectLayout(layoutName);
    if (current_ != nullptr) addAnimations(*current_);
}

void KestInterface::prepareLayout(const EngineString& layoutName) {
    if (const Layout* const layout = named(description_.layouts, layoutName)) addAnimations(*layout);
}

void KestInterface::prepareAll() {
    stopAnimations();
    for (const Layout& layout : description_.layouts) addAnimations(layout);
}

void KestInterface::stopAnimations() {
    for (FrameStrip& animation : animations_) animation.release();
}

void KestInterface::startAnimations() {
    for (FrameStrip& animation : animations_) animation.acquire();
}

void KestInterface::addAnimations(const Layout& layout) {
    for (const LayoutItem& item : layout.items)
        for (const PictureElement& element : item.pictures) addAnimation(element);
}

void KestInterface::addAnimation(const PictureElement& element) {
    if (FrameStrip* const loaded = findAnimation(element.file)) {
        loaded->acquire();
        return;
    }
    if (animations_.size() == kMostAnimations) return;
    const EngineString path = name_ + "\\" + EngineString(element.file);
    if (!package_->exists(path)) return logLine("KestInterface::AddAnimation. Invalid: %s", path.cStr());

    FrameStrip& animation = animations_.emplace_back(package_->load(path), element.frameHeight());
    animationOfFile_.insert(element.file, &animation);
    if (std::ranges::count(kOpaqueWidths, element.w) == 0) animation.setColourKey(kBrown);
    animation.acquire();
}

FrameStrip* KestInterface::findAnimation(std::string_view file) {
    FrameStrip* const* const found = animationOfFile_.find(file);
    return found != nullptr ? *found : nullptr;
}

const BitmapFont* KestInterface::font(std::size_t number) const {
    return number < fonts_.size() ? fonts_[number].get() : nullptr;
}

void KestInterface::drawItem(const EngineString& itemName, int dx, int dy, int element, std::uint16_t frame) {
    const LayoutItem* const item = findItem(itemName);
    if (item == nullptr) return;
    if (element == kAllElements) {
        for (const PictureElement& picture : item->pictures) drawPicture(picture, dx, std::min(dy, 0), frame);
        for (const TextElement& text : item->texts) drawWords(text, EngineString(text.text), dx, dy);
        return;
    }
    const auto number = static_cast<std::size_t>(element);  // a negative one is beyond all counts
    if (number < item->pictures.size())
        drawPicture(item->pictures[number], dx, dy, frame);
    else if (number < item->texts.size())
        drawWords(item->texts[number], EngineString(item->texts[number].text), dx, dy);
}

void KestInterface::drawText(const EngineString& itemName, const EngineString& text, int dx, int dy, int element) {
    const LayoutItem* const item = findItem(itemName);
    if (item == nullptr) return;
    for (std::size_t number = 0; number < item->texts.size(); ++number) {
        if (element == kAllElements || static_cast<std::size_t>(element) == number)
            drawWords(item->texts[number], text, dx, dy);
    }
}

void KestInterface::drawPicture(const PictureElement& element, int dx, int dy, std::uint16_t frame) {
    Renderer* const renderer = EngineServices::renderer();
    FrameStrip* const animation = findAnimation(element.file);
    if (renderer == nullptr || animation == nullptr) return;
    if (!animation->isAcquired()) animation->acquire();
    animation->setFrame(frame);
    const auto xs = placesOnScreen(element.x + dx, element.step, element.cols, animation->width(), kScreenWidth);
    const auto ys = placesOnScreen(element.y + dy, element.step, element.rows, animation->height(), kScreenHeight);
    int cellsLeft = kMostCells;
    for (const std::int16_t y : ys) {
        for (const std::int16_t x : xs) {
            if (cellsLeft-- == 0) return;
            animation->draw(*renderer, {x, y}, 1.0F);
        }
    }
}

void KestInterface::drawWords(const TextElement& element, const EngineString& words, int dx, int dy) const {
    Renderer* const renderer = EngineServices::renderer();
    const BitmapFont* const shown = font(element.font);
    if (renderer == nullptr || shown == nullptr) return;
    shown->drawText(*renderer, words, placeOf(element.x + dx, element.y + dy), 1.0F);
}

const LayoutItem* KestInterface::findItem(const EngineString& itemName) const {
    return current_ != nullptr ? named(current_->items, itemName) : nullptr;
}

const PictureElement* KestInterface::findPicture(const EngineString& elementName) const {
    if (current_ == nullptr) return nullptr;
    for (const LayoutItem& item : current_->items) {
        if (const PictureElement* const element = named(item.pictures, elementName)) return element;
    }
    return nullptr;
}

bool KestInterface::hitTest(const EngineString& elementName, Position point) const {
    const PictureElement* const element = findPicture(elementName);
    if (element == nullptr) return false;
    return element->x < point.x && point.x < element->x + element->w && element->y < point.y &&
           point.y < element->y + element->frameHeight();
}

Position KestInterface::relativePosition(const EngineString& elementName, Position point) const {
    const PictureElement* const element = findPicture(elementName);
    return element != nullptr ? placeOf(point.x - element->x, point.y - element->y) : Position{-1, -1};
}

}  // namespace grub
