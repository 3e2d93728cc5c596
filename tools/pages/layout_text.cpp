#include "layout_text.h"

#include <sstream>

#include "font_files.h"

namespace grub {

namespace {

std::string quoted(const std::string& text) { return '"' + text + '"'; }

/// The game writes from the left, so a text in the middle begins half its width before its place.
int leftOf(const PageText& text) {
    return text.align == Align::Left ? text.x : text.x - writtenWidth(text.font, text.text) / 2;
}

void write(std::ostream& out, const PageElement& e) {
    constexpr const char* kUnused = "0,0";
    out << "A," << quoted(e.name) << ',' << quoted(e.file) << ',' << e.x << ',' << e.y << ',' << e.width << ','
        << e.height << ',' << e.frames << ',' << kUnused << ',' << e.columns << ',' << e.rows << ',' << e.step << '\n';
}

void write(std::ostream& out, const PageText& t) {
    constexpr const char* kUnused = "0,0,0,0,0,0,0,0";
    out << "T," << quoted(t.name) << ',' << quoted("") << ',' << leftOf(t) << ',' << t.y << ',' << kUnused << ','
        << quoted(t.font.name) << ',' << t.font.size << ',' << t.font.cell << ",0," << quoted(t.own ? t.text : "")
        << '\n';
}

}  // namespace

std::string layoutText(const PageSource& source) {
    std::ostringstream out;
    out << "Screens," << source.layouts.size() << '\n';
    int number = 0;
    for (const PageLayout& layout : source.layouts) {
        out << "S," << quoted(layout.name) << ',' << number++ << '\n';
        int itemNumber = 0;
        for (const PageItem& item : layout.items) {
            out << "L," << quoted(item.name) << ',' << itemNumber++ << '\n';
            for (const PageElement& picture : item.pictures) write(out, picture);
            for (const PageText& text : item.texts) write(out, text);
        }
    }
    return std::move(out).str();
}

}  // namespace grub
