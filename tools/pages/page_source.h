#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing_lines.h"
#include "font.h"
#include "page_lines.h"

namespace grub {

/// How an item moves: not at all; to the right by 0 to 500 pixels with its page; down from above with its dialog.
enum class Motion { Fixed, Slide, Dialog };

/// Where a picture stands on the screen. Sizes in pixels.
struct PageElement {
    LinePlace place;
    std::string name;
    std::string file;
    int x = 0;
    int y = 0;
    /// Those of the file: all frames below one another.
    int width = 0;
    int height = 0;
    int frames = 1;
    /// It is shown so often, `step` pixels apart.
    int columns = 1;
    int rows = 1;
    int step = 0;
    /// Nothing shows through it.
    bool opaque = true;

    int frameHeight() const { return frames > 0 ? height / frames : height; }
    /// Of its first copy.
    Rect area() const { return {1.0 * x, 1.0 * y, 1.0 * width, 1.0 * frameHeight()}; }
};

/// A font of the interface: a name and two numbers.
struct FontKey {
    std::string name;
    int size = 0;
    int cell = 0;

    /// As its files are called.
    std::string text() const { return name + '_' + std::to_string(size) + '_' + std::to_string(cell); }
    bool operator==(const FontKey&) const = default;
};

/// Where the game writes a text.
struct PageText {
    LinePlace place;
    std::string name;
    /// Its upper left corner; with Align::Centre the middle of its upper edge.
    int x = 0;
    int y = 0;
    FontKey font;
    /// The room for it.
    int width = 0;
    /// The longest one; when it is its own, always this one.
    std::string text;
    Align align = Align::Left;
    bool own = false;
};

/// What the game draws at once.
struct PageItem {
    LinePlace place;
    std::string name;
    Motion motion = Motion::Fixed;
    std::vector<PageElement> pictures;
    std::vector<PageText> texts;
};

/// A page, a dialog or a picture that fills the screen.
struct PageLayout {
    LinePlace place;
    /// As the game selects it.
    std::string name;
    /// In the order of the text, which is not that of drawing.
    std::vector<PageItem> items;
};

/// A file that the interface shows.
struct PagePicture {
    /// The first element that shows it.
    PageElement element;
    std::vector<Drawing> drawings;

    bool isJpeg() const { return element.file.ends_with(".jpg"); }
};

/// An interface: its layouts, and the pictures that they show, in the order of their first use.
struct PageSource {
    std::string name;
    std::vector<PageLayout> layouts;
    std::vector<PagePicture> pictures;

    /// Null for a file that no element shows.
    const PagePicture* picture(std::string_view file) const;
    /// In the order of their first use, which gives them their numbers.
    std::vector<FontKey> fonts() const;
};

/// Reads the interface whose text is `file`, with all of its pages. Nothing when a line is wrong: then `error` tells of
/// the first.
std::optional<PageSource> readPageSource(const std::string& file, const TextSource& texts, std::string& error);

}  // namespace grub
