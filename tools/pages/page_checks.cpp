#include "page_checks.h"

#include <algorithm>
#include <cmath>

#include "board_looks.h"
#include "font_files.h"
#include "layout_description.h"
#include "name_checks.h"

namespace grub {

namespace {

/// Pictures that an interface can hold.
constexpr std::size_t kMostPictures = 200;

constexpr double kScreenWidth = 800;
constexpr double kScreenHeight = 600;
/// What slides with its page is off the screen at an offset of 450; a dialog at one of -400.
constexpr double kSlideFrom = 350;
constexpr double kDialogTo = 400;
/// The least contrast of letters to their board.
constexpr double kLeastContrast = 4.5;

class Checker {
public:
    Checker(const PageSource& source, std::vector<std::string>& faults) : source_(source), faults_(faults) {}

    void run() {
        checkNumbers();
        for (const PageLayout& layout : source_.layouts) {
            if (layout.items.size() > kMostItems) say(layout.place, "more than 50 items in a layout");
            for (const PageItem& item : layout.items) checkItem(item);
        }
        for (const PagePicture& picture : source_.pictures) checkPicture(picture);
    }

private:
    void say(const LinePlace& place, const std::string& message) { faults_.push_back(place.says(message)); }

    void checkNumbers() {
        const LinePlace whole{source_.name, 0};
        if (source_.layouts.size() > kMostLayouts) say(whole, "more than 50 layouts");
        if (source_.pictures.size() > kMostPictures) say(whole, "more than 200 pictures");
        if (source_.fonts().size() > kMostFonts) say(whole, "more than 3 fonts");
    }

    void checkItem(const PageItem& item) {
        if (std::max(item.pictures.size(), item.texts.size()) > kMostElements)
            say(item.place, "more than 50 elements in an item");
        if (item.pictures.empty() && item.texts.empty()) say(item.place, item.name + " has no elements");
        for (const PageElement& e : item.pictures) {
            const double right = e.x + e.width + (e.columns - 1.0) * e.step;
            const double bottom = e.y + e.frameHeight() + (e.rows - 1.0) * e.step;
            checkPlace(item.motion, e.place, e.name, {1.0 * e.x, 1.0 * e.y, right - e.x, bottom - e.y});
        }
        for (const PageText& t : item.texts) checkText(item, t);
    }

    void checkText(const PageItem& item, const PageText& text) {
        if (!isKnownFont(text.font)) return say(text.place, "there is no font " + text.font.text());
        const int width = writtenWidth(text.font, text.text);
        if (width > text.width) say(text.place, text.name + " needs " + std::to_string(width) + " px for its text");
        const double left = text.align == Align::Centre ? text.x - text.width / 2.0 : text.x;
        checkPlace(item.motion, text.place, text.name,
                   {left, 1.0 * text.y, 1.0 * text.width, 1.0 * writtenHeight(text.font)});
    }

    void checkPlace(Motion motion, const LinePlace& place, const std::string& name, const Rect& area) {
        if (area.x < 0 || area.y < 0 || area.right() > kScreenWidth || area.bottom() > kScreenHeight)
            say(place, name + " does not lie on the screen");
        if (motion == Motion::Slide && area.x < kSlideFrom)
            say(place, name + " slides, so it must begin at x 350 or more");
        if (motion == Motion::Dialog && area.bottom() > kDialogTo)
            say(place, name + " belongs to a dialog, so it must end at y 400 or less");
    }

    void checkPicture(const PagePicture& picture) {
        if (picture.drawings.empty()) say(picture.element.place, picture.element.file + " has no drawing lines");
        for (std::size_t i = 0; i < picture.drawings.size(); ++i) {
            const Drawing& drawing = picture.drawings[i];
            if (!drawing.words) continue;
            checkWords(picture, drawing);
            for (std::size_t j = 0; j < i; ++j) {
                const Drawing& other = picture.drawings[j];
                if (other.words && overlap(drawing.words->look.area, other.words->look.area))
                    say(drawing.place, "these words lie on those of line " + std::to_string(other.place.number));
            }
        }
    }

    void checkWords(const PagePicture& picture, const Drawing& drawing) {
        const Words& words = drawing.words->look;
        const Rect room = drawing.panel.value_or(picture.element.area());
        if (!holds(room, words.area))
            say(drawing.place, drawing.panel ? "the words leave their panel" : "the words leave their picture");
        if (contrast(inkColour(words.ink), groundOf(words.board)) < kLeastContrast)
            say(drawing.place, "the words are hard to read on that board");
    }

    static Rgb inkColour(Ink ink) {
        switch (ink) {
            case Ink::Dark: return kBoardInk;
            case Ink::Cream: return kBoardCream;
            case Ink::Golden: return kBoardGold;
        }
        return {};
    }

    static double luminance(Rgb colour) {
        const auto linear = [](float c) { return c <= 0.04045F ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
        return 0.2126 * linear(colour.r) + 0.7152 * linear(colour.g) + 0.0722 * linear(colour.b);
    }

    static double contrast(Rgb a, Rgb b) {
        const double one = luminance(a);
        const double other = luminance(b);
        return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
    }

    const PageSource& source_;
    std::vector<std::string>& faults_;
};

}  // namespace

std::vector<std::string> pageFaults(const PageSource& source) {
    std::vector<std::string> faults;
    Checker(source, faults).run();
    checkNames(source, faults);
    return faults;
}

}  // namespace grub
