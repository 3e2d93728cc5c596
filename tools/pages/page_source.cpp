#include "page_source.h"

#include <algorithm>
#include <array>

#include "line_reader.h"
#include "text_lines.h"

namespace grub {

namespace {

/// No picture is larger: the most that a texture can hold.
constexpr int kMostSide = 4096;

struct MotionName {
    std::string_view name;
    Motion motion;
};
constexpr std::array kMotions{MotionName{"fixed", Motion::Fixed}, MotionName{"slide", Motion::Slide},
                              MotionName{"dialog", Motion::Dialog}};

/// "body_24_0" taken apart.
std::optional<FontKey> fontKeyOf(std::string_view text) {
    const std::size_t second = text.rfind('_');
    const std::size_t first = second == std::string_view::npos || second == 0 ? second : text.rfind('_', second - 1);
    if (first == std::string_view::npos || first == second) return std::nullopt;
    const auto size = numberIn<int>(text.substr(first + 1, second - first - 1));
    const auto cell = numberIn<int>(text.substr(second + 1));
    if (!size || !cell) return std::nullopt;
    return FontKey{std::string(text.substr(0, first)), *size, *cell};
}

/// Puts statements together. A drawing line is read last, when all pictures are known.
class PageSourceReader {
public:
    PageSourceReader(const PageLines& lines, std::string name) : lines_(lines) { source_.name = std::move(name); }

    bool readAll(std::string& error) {
        error_ = &error;
        return std::ranges::all_of(lines_.lines, [this](const PageLine& line) { return structure(line); }) &&
               std::ranges::all_of(lines_.lines, [this](const PageLine& line) { return drawing(line); }) &&
               panelsAreClosed();
    }

    PageSource take() { return std::move(source_); }

private:
    static bool isStructure(std::string_view tag) {
        return tag == "layout" || tag == "item" || tag == "A" || tag == "T";
    }

    bool keep(const LineReader& reader) {
        if (!reader.ok()) *error_ = reader.error();
        return reader.ok();
    }

    bool fail(const PageLine& line, const std::string& message) {
        *error_ = line.place.says(message);
        return false;
    }

    bool structure(const PageLine& line) {
        const std::string& tag = line.words[0].text;
        if (!isStructure(tag)) return true;
        if (tag == "layout") return layout(line);
        if (source_.layouts.empty()) return fail(line, "wanted 'layout NAME' above, found none");
        if (tag == "item") return item(line);
        if (source_.layouts.back().items.empty()) return fail(line, "wanted 'item NAME MOTION' above, found none");
        return tag == "A" ? picture(line) : text(line);
    }

    bool layout(const PageLine& line) {
        LineReader reader(line, lines_.measures);
        const std::string name = reader.word("the name of a layout");
        reader.finish();
        source_.layouts.push_back({line.place, name, {}});
        return keep(reader);
    }

    bool item(const PageLine& line) {
        LineReader reader(line, lines_.measures);
        const std::string name = reader.word("the name of an item");
        const MotionName* motion = reader.row("a motion", std::span<const MotionName>(kMotions));
        reader.finish();
        if (!keep(reader)) return false;
        source_.layouts.back().items.push_back({line.place, name, motion->motion, {}, {}});
        return true;
    }

    bool picture(const PageLine& line) {
        LineReader reader(line, lines_.measures);
        PageElement e;
        e.place = line.place;
        e.name = reader.word("the name of an element");
        e.file = reader.word("a file");
        if (!e.file.ends_with(".bmp") && !e.file.ends_with(".jpg")) reader.fail("a .bmp or .jpg file", e.file);
        e.x = reader.whole("a column");
        e.y = reader.whole("a row");
        e.width = reader.whole("a width from 1 to 4096", 1, kMostSide);
        e.height = reader.whole("a height from 1 to 4096", 1, kMostSide);
        if (!reader.atEnd()) {
            e.frames = reader.whole("frames", 1, 100);
            e.columns = reader.whole("columns", 1, 100);
            e.rows = reader.whole("rows", 1, 100);
            e.step = reader.whole("a step in pixels", 0);
            e.opaque = reader.takes("o");
            if (!e.opaque && !reader.takes("a")) reader.fail("o (a whole board) or a (art with holes)", "");
        }
        reader.finish();
        if (!keep(reader)) return false;
        if (e.height % e.frames != 0) return fail(line, "the frames do not divide the height");
        source_.layouts.back().items.back().pictures.push_back(e);
        const PagePicture* known = source_.picture(e.file);
        if (known == nullptr) {
            source_.pictures.push_back({e, {}});
        } else if (known->element.width != e.width || known->element.height != e.height ||
                   known->element.frames != e.frames) {
            return fail(line, e.file + " has another size in " + known->element.place.says("there"));
        }
        return true;
    }

    bool text(const PageLine& line) {
        LineReader reader(line, lines_.measures);
        PageText t;
        t.place = line.place;
        t.name = reader.word("the name of an element");
        t.x = reader.whole("a column");
        t.y = reader.whole("a row");
        const std::string key = reader.word("a font such as body_24_0");
        const auto font = fontKeyOf(key);
        if (!font) reader.fail("a font such as body_24_0", key);
        t.width = reader.whole("a width", 1);
        t.text = reader.quoted("the longest text");
        t.align = reader.takes("c") ? Align::Centre : Align::Left;
        if (t.align == Align::Left && !reader.takes("l")) reader.fail("l or c", "");
        t.own = reader.takes("own");
        if (t.align == Align::Centre && !t.own) reader.fail("'own' behind c: the game writes from the left", "");
        reader.finish();
        if (!keep(reader)) return false;
        t.font = *font;
        source_.layouts.back().items.back().texts.push_back(t);
        return true;
    }

    PagePicture* pictureOf(const std::string& file) {
        const auto found =
            std::ranges::find(source_.pictures, file, [](const PagePicture& p) { return p.element.file; });
        return found == source_.pictures.end() ? nullptr : &*found;
    }

    bool drawing(const PageLine& line) {
        const std::string& tag = line.words[0].text;
        if (isStructure(tag)) return true;
        if (tag == "end") return endOfPanel(line);
        const DrawingKind* kind = findDrawingKind(tag);
        if (kind == nullptr) return fail(line, "wanted a kind of line, found " + inQuotes(tag));
        const std::string file = line.words.size() > 1 ? line.words[1].text : "";
        PagePicture* picture = pictureOf(file);
        if (picture == nullptr) return fail(line, "wanted the file of an A line, found " + inQuotes(file));
        if (picture->element.place.page() != line.place.page())
            return fail(line, "wanted this line in the text of the A line, " + picture->element.place.says(file));
        if (!panels_.empty() && panels_.back().file != file)
            return fail(line, "wanted 'end' of the panel of " + panels_.back().file + ", found " + inQuotes(file));
        LineReader reader(line, lines_.measures, picture->element.area());
        (void)reader.word("a file");
        LineReader again = reader;
        Drawing drawn{line.place, tag, kind->read(reader), {}, {}};
        reader.finish();
        if (!keep(reader)) return false;
        if (!panels_.empty()) drawn.panel = panels_.back().area;
        if (tag == "W") drawn.words = readBakedWords(again);
        if (tag == "panel") panels_.push_back({file, again.area(), line.place});
        picture->drawings.push_back(drawn);
        return true;
    }

    bool endOfPanel(const PageLine& line) {
        if (panels_.empty()) return fail(line, "wanted a panel or a block above this 'end', found none");
        LineReader reader(line, lines_.measures);
        pictureOf(panels_.back().file)
            ->drawings.push_back({line.place, "end", findDrawingKind("end")->read(reader), {}, {}});
        panels_.pop_back();
        return true;
    }

    bool panelsAreClosed() {
        if (panels_.empty()) return true;
        *error_ = panels_.back().place.says("wanted 'end' of this panel, found the end of the text");
        return false;
    }

    struct OpenPanel {
        std::string file;
        Rect area;
        LinePlace place;
    };

    const PageLines& lines_;
    PageSource source_;
    std::vector<OpenPanel> panels_;
    std::string* error_ = nullptr;
};

}  // namespace

const PagePicture* PageSource::picture(std::string_view file) const {
    const auto found = std::ranges::find(pictures, file, [](const PagePicture& p) { return p.element.file; });
    return found == pictures.end() ? nullptr : &*found;
}

std::vector<FontKey> PageSource::fonts() const {
    std::vector<FontKey> keys;
    for (const PageLayout& layout : layouts) {
        for (const PageItem& item : layout.items) {
            for (const PageText& text : item.texts) {
                if (std::ranges::find(keys, text.font) == keys.end()) keys.push_back(text.font);
            }
        }
    }
    return keys;
}

std::optional<PageSource> readPageSource(const std::string& file, const TextSource& texts, std::string& error) {
    const auto lines = readPageLines(file, texts, error);
    if (!lines) return std::nullopt;
    PageSourceReader reader(*lines, LinePlace{file, 0}.page());
    if (!reader.readAll(error)) return std::nullopt;
    return reader.take();
}

}  // namespace grub
