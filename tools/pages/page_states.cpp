#include "page_states.h"

#include <algorithm>

#include "font_files.h"
#include "line_reader.h"
#include "name_checks.h"
#include "text_lines.h"

namespace grub {

namespace {

/// "ITEM:ELEMENT:FRAME@DX", all but the first part optional.
std::optional<StateDraw> drawOf(std::string_view word) {
    StateDraw draw;
    const auto takeNumber = [&word](char sign, int& number) {
        const std::size_t at = word.rfind(sign);
        if (at == std::string_view::npos) return true;
        const auto value = numberIn<int>(word.substr(at + 1));
        word = word.substr(0, at);
        number = value.value_or(0);
        return value.has_value();
    };
    if (!takeNumber('@', draw.dx)) return std::nullopt;
    const bool hasFrame = std::ranges::count(word, ':') == 2;
    if (hasFrame && !takeNumber(':', draw.frame)) return std::nullopt;
    if (!takeNumber(':', draw.element)) return std::nullopt;
    draw.item = word;
    return draw;
}

std::optional<PageState> stateOf(const PageLine& line, const Measures& measures, std::string& error) {
    LineReader reader(line, measures);
    PageState state{line.place, reader.word("a name"), reader.word("an interface"), reader.word("a layout"), {}, false};
    if (line.words[0].text != "state") reader.fail("'state'", line.words[0].text);
    for (std::size_t i = 4; reader.ok() && i < line.words.size(); ++i) {
        const PageWord& word = line.words[i];
        if (word.quoted && !state.draws.empty()) {
            state.draws.back().text = word.text;
        } else if (word.text == "rows") {
            state.rows = true;
        } else if (const auto draw = drawOf(word.text)) {
            state.draws.push_back(*draw);
        } else {
            reader.fail("ITEM, ITEM:ELEMENT or ITEM:ELEMENT:FRAME", word.text);
        }
    }
    error = reader.error();
    return reader.ok() ? std::optional(state) : std::nullopt;
}

/// What one state shows, in its order.
class ShownState {
public:
    ShownState(const PageSource& source, const PageState& state, std::vector<std::string>& faults)
        : source_(source), state_(state), faults_(faults) {}

    void check() {
        const auto layout = std::ranges::find(source_.layouts, state_.layout, &PageLayout::name);
        if (layout == source_.layouts.end()) return say("there is no layout " + state_.layout);
        for (const StateDraw& draw : state_.draws) {
            const auto item = std::ranges::find(layout->items, draw.item, &PageItem::name);
            if (item == layout->items.end()) return say("there is no item " + draw.item);
            drawItem(*item, draw);
        }
    }

private:
    struct Shown {
        Rect area;
        std::string text;
    };

    void say(const std::string& message) {
        faults_.push_back(state_.place.says("state " + state_.name + ": " + message));
    }

    void drawItem(const PageItem& item, const StateDraw& draw) {
        for (std::size_t i = 0; !draw.text && i < item.pictures.size(); ++i) {
            if (draw.element < 0 || static_cast<std::size_t>(draw.element) == i) drawPicture(item.pictures[i], draw.dx);
        }
        for (std::size_t i = 0; i < item.texts.size(); ++i) {
            const PageText& text = item.texts[i];
            if (!draw.text && !(text.own && draw.element < 0)) continue;
            if (draw.element >= 0 && static_cast<std::size_t>(draw.element) != i) continue;
            const double left = text.align == Align::Centre ? text.x - text.width / 2.0 : text.x;
            write({{left + draw.dx, 1.0 * text.y, 1.0 * text.width, 1.0 * writtenHeight(text.font)}, text.text});
        }
    }

    void drawPicture(const PageElement& element, int dx) {
        const Rect area = element.area().moved({1.0 * dx, 0});
        std::erase_if(shown_, [&](const Shown& text) { return element.opaque && holds(area, text.area); });
        for (const Shown& text : shown_) {
            if (overlap(area, text.area)) say(element.name + " hides a part of \"" + text.text + '"');
        }
        const PagePicture& picture = *source_.picture(element.file);
        const Point moved{1.0 * (element.x - picture.element.x + dx), 1.0 * (element.y - picture.element.y)};
        for (const Drawing& drawing : picture.drawings) {
            if (drawing.words) write({drawing.words->look.area.moved(moved), drawing.words->text});
        }
    }

    void write(const Shown& text) {
        for (const Shown& other : shown_) {
            if (overlap(text.area, other.area)) say('"' + text.text + "\" lies on \"" + other.text + '"');
        }
        shown_.push_back(text);
    }

    const PageSource& source_;
    const PageState& state_;
    std::vector<std::string>& faults_;
    std::vector<Shown> shown_;
};

}  // namespace

std::optional<std::vector<PageState>> readPageStates(const std::string& file, const TextSource& texts,
                                                     std::string& error) {
    const auto lines = readPageLines(file, texts, error);
    if (!lines) return std::nullopt;
    std::vector<PageState> states;
    for (const PageLine& line : lines->lines) {
        auto state = stateOf(line, lines->measures, error);
        if (!state) return std::nullopt;
        states.push_back(std::move(*state));
    }
    return states;
}

void checkStates(const PageSource& source, const std::vector<PageState>& states, std::vector<std::string>& faults) {
    for (const PageState& state : states) {
        if (state.interface == source.name) ShownState(source, state, faults).check();
    }
}

}  // namespace grub
