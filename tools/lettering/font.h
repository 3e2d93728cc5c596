#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "typeface.h"

namespace grub {

/// Which point of a line of text its place means.
enum class Align { Left, Centre, Right };

/// A typeface at one size. A small value; the typeface outlives it. All lengths in design pixels.
class Font {
public:
    /// `size` is that of an em.
    Font(const Typeface& typeface, double size) : typeface_(&typeface), size_(size) {}
    Font(Face face, double size) : Font(typeface(face), size) {}

    double size() const { return size_; }
    double ascent() const { return typeface_->ascent() * size_; }
    double descent() const { return typeface_->descent() * size_; }
    double capHeight() const { return typeface_->capHeight() * size_; }
    double xHeight() const { return typeface_->xHeight() * size_; }
    /// From one baseline to the next where a text does not say it: whole pixels, so that all lines are equally crisp.
    double pitch() const;

    /// From the first pen to the one behind the last letter. A missing letter is 0 wide.
    double width(std::string_view line) const;
    /// How far the letters reach below the baseline; 0 when none does.
    double depth(std::string_view line) const;
    /// Each letter of `text` that the typeface does not have, once; line ends are none.
    std::string missing(std::string_view text) const;
    /// The lines of a text: it breaks at '\n', and before each word that would end beyond `width`. A word that is too
    /// wide by itself has a line of its own.
    std::vector<std::string> wrapped(std::string_view text, double width) const;

    /// Outlines of a line whose left end, middle or right end is at `at` on the baseline.
    VectorPath line(std::string_view line, Point at, Align align = Align::Left) const;
    /// Outlines of lines `pitch` apart; the first has its baseline at `at`.
    VectorPath lines(const std::vector<std::string>& lines, Point at, Align align, double pitch) const;

private:
    const Typeface* typeface_;
    double size_;
};

/// The share of a line's width that lies left of its place: 0, 0.5 or 1.
double shareBefore(Align align);

/// Letters grown by `by` pixels on all sides, for plump titles; their corners come out round.
VectorPath plump(const VectorPath& letters, double by);

}  // namespace grub
