#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>

#include "bitmap_font.h"
#include "engine_string.h"
#include "frame_strip.h"
#include "layout_description.h"
#include "resource_source.h"

namespace grub {

/// Menus, dialogs and pages by name. An interface N is described in the data package ("data\N._i_2") and has its
/// pictures and fonts in a package of its own (N.pak, "N\FILE"). The caller selects a layout and draws its items; what
/// the interface does not have shows nothing. Draws with the renderer of `EngineServices`, which must be ready before
/// the first use. Game thread only.
class KestInterface {
public:
    /// As an element: all elements of the item.
    static constexpr int kAllElements = -1;

    /// Reads the description of interface `name` from `data` and opens its package as `ResourcePackage` does, message
    /// box included. A missing font is a line in the log.
    KestInterface(ResourceSource& data, const EngineString& name);
    /// The same with `package` in place of N.pak.
    KestInterface(ResourceSource& data, const EngineString& name, std::unique_ptr<ResourceSource> package);

    /// Makes the layout the current one, on which all operations below work. An unknown name leaves no current layout.
    void selectLayout(const EngineString& layoutName);
    /// Stops everything, selects the layout, and loads its pictures.
    void openLayout(const EngineString& layoutName);
    /// Loads the pictures of a layout without selecting it.
    void prepareLayout(const EngineString& layoutName);
    /// Stops everything, and loads the pictures of all layouts.
    void prepareAll();
    /// Ends one use of each loaded picture, or begins one. Pictures stay loaded; they have textures while in use.
    void stopAnimations();
    void startAnimations();

    /// Draws elements of an item, moved by (`dx`, `dy`) pixels. An element below the count of pictures is a picture,
    /// any other one is the text of that number; a text below the count of pictures cannot be drawn alone. With
    /// `kAllElements` a positive `dy` moves the texts only. `frame` is that of the pictures; beyond their last one they
    /// keep theirs.
    void drawItem(const EngineString& itemName, int dx, int dy, int element, std::uint16_t frame);
    /// Draws `text` in place of a text element of the item, or in place of each.
    void drawText(const EngineString& itemName, const EngineString& text, int dx, int dy, int element);
    /// Whether `point` lies inside the first frame's rectangle of a picture, at its resting place and without the
    /// pixels of the edge. False for an unknown element.
    [[nodiscard]] bool hitTest(const EngineString& elementName, Position point) const;
    /// `point` seen from the picture's top-left corner; (-1, -1) for an unknown element.
    [[nodiscard]] Position relativePosition(const EngineString& elementName, Position point) const;

    /// Loads the picture of an element and takes it into use. Elements of the same file share one picture, which the
    /// first of them cuts into frames. A missing file is a line in the log.
    void addAnimation(const PictureElement& element);
    /// Null when the interface does not have the font. `number` is 0 to 2.
    [[nodiscard]] const BitmapFont* font(std::size_t number) const;

    [[nodiscard]] const LayoutDescription& description() const { return description_; }

private:
    void loadFonts();
    void addAnimations(const Layout& layout);
    [[nodiscard]] FrameStrip* findAnimation(std::string_view file);
    [[nodiscard]] const LayoutItem* findItem(const EngineString& itemName) const;
    [[nodiscard]] const PictureElement* findPicture(const EngineString& elementName) const;
    void drawPicture(const PictureElement& element, int dx, int dy, std::uint16_t frame);
    void drawWords(const TextElement& element, const EngineString& words, int dx, int dy) const;

    EngineString name_;
    LayoutDescription description_;
    const Layout* current_ = nullptr;
    std::unique_ptr<ResourceSource> package_;
    std::deque<FrameStrip> animations_;  // a deque, since strips do not move
    StringMap<FrameStrip*> animationOfFile_;
    std::array<std::unique_ptr<BitmapFont>, kMostFonts> fonts_;
};

}  // namespace grub
