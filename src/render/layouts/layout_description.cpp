#include "layout_description.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>
#include <utility>

namespace grub {
namespace {

/// Takes the fields of a record one after the other, and remembers its first fault. `wanted` names a field in the
/// fault.
class FieldReader {
public:
    FieldReader(int line, std::string_view fields) : line_(line), rest_(fields) {}

    /// A field in double quotes, without them. It may hold commas. The first character counts as the opening quote,
    /// whatever it is; without a closing quote the text reaches to the end of the line.
    std::string text(std::string_view wanted) {
        if (isOver(wanted)) return {};
        if (!rest_.starts_with('"')) fail(wanted, rest_);
        rest_.remove_prefix(std::min<std::size_t>(1, rest_.size()));
        const std::size_t length = std::min(rest_.find('"'), rest_.size());
        std::string value(rest_.substr(0, length));
        if (length == rest_.size()) fail("a closing quote", {});
        rest_.remove_prefix(std::min(length + 1, rest_.size()));
        if (const auto behind = takeToComma(); !behind.empty()) fail("a comma", behind);
        return value;
    }

    /// A field of decimal digits; other characters from the first one on count for nothing.
    template <class Number = std::int16_t>
    Number number(std::string_view wanted) {
        if (isOver(wanted)) return 0;
        const std::string_view field = takeToComma();
        const char* const end = field.data() + field.size();
        Number value = 0;
        const auto read = std::from_chars(field.data(), end, value);
        if (read.ec == std::errc::result_out_of_range) {
            using Limits = std::numeric_limits<Number>;
            value = field.starts_with('-') ? Limits::min() : Limits::max();
        }
        if (read.ec != std::errc() || read.ptr != end) fail(wanted, field);
        return value;
    }

    /// A field that means nothing to the game.
    void skipText(std::string_view wanted) { text(wanted); }
    void skipNumbers(int count, std::string_view wanted) {
        while (count-- > 0) number(wanted);
    }

    /// The record must have no field left.
    void finish() {
        if (!isOver_) fail("the end of the line", rest_);
    }

    void fail(std::string_view wanted, std::string_view found) {
        if (!fault_.message.empty()) return;
        fault_ = wantedButFound(line_, wanted, found.empty() ? "the end of the line" : inQuotes(found));
    }
    [[nodiscard]] const TextError& fault() const { return fault_; }

private:
    bool isOver(std::string_view wanted) {
        if (isOver_) fail(wanted, {});
        return isOver_;
    }

    std::string_view takeToComma() {
        const std::size_t comma = rest_.find(',');
        isOver_ = comma == std::string_view::npos;
        const std::string_view field = rest_.substr(0, comma);
        rest_.remove_prefix(isOver_ ? rest_.size() : comma + 1);
        return field;
    }

    int line_;
    std::string_view rest_;
    bool isOver_ = false;  // no comma was behind the last field
    TextError fault_;
};

PictureElement readPicture(FieldReader& fields) {
    PictureElement element;
    element.name = fields.text("a name in quotes");
    element.file = fields.text("a file in quotes");
    element.x = fields.number("the number x");
    element.y = fields.number("the number y");
    element.w = fields.number("the width");
    element.h = fields.number<std::uint16_t>("the height");
    element.frames = fields.number("the count of frames");
    fields.skipNumbers(2, "a number without meaning");
    element.cols = fields.number("the count of columns");
    element.rows = fields.number("the count of rows");
    element.step = fields.number("the step of the grid");
    return element;
}

/// A text element and the key of its font.
struct KeyedText {
    TextElement element;
    std::string fontKey;
};

KeyedText readText(FieldReader& fields) {
    KeyedText read;
    fields.skipText("a name in quotes");
    fields.skipText("a second name in quotes");
    read.element.x = fields.number("the number x");
    read.element.y = fields.number("the number y");
    fields.skipNumbers(8, "a number without meaning");
    read.fontKey = fields.text("a font in quotes");
    read.fontKey += '_' + std::to_string(fields.number<std::int32_t>("the first number of the font"));
    read.fontKey += '_' + std::to_string(fields.number<std::int32_t>("the second number of the font"));
    fields.skipNumbers(1, "a number without meaning");
    read.element.text = fields.text("the words in quotes");
    return read;
}

/// Puts records into their places.
class DescriptionReader {
public:
    /// `fields` is what follows the comma behind the tag.
    void readRecord(std::string_view tag, FieldReader& fields) {
        if (tag == "Screens") return;
        if (tag == "S") return startLayout(fields);
        if (tag == "L") return startItem(fields);
        if (tag == "A") return addPicture(fields);
        if (tag == "T") return addText(fields);
        fields.fail("Screens, S, L, A or T", tag);
    }

    LayoutDescription take() { return std::move(description_); }

private:
    void startLayout(FieldReader& fields) {
        item_ = nullptr;
        layout_ = appended(description_.layouts, kMostLayouts, "at most 50 layouts", fields);
        if (layout_ == nullptr) return;
        layout_->name = fields.text("a name in quotes");
        fields.skipNumbers(1, "a number");
        fields.finish();
    }

    void startItem(FieldReader& fields) {
        item_ = nullptr;
        if (layout_ == nullptr) return fields.fail("a layout (S) before the item", "L");
        item_ = appended(layout_->items, kMostItems, "at most 50 items in a layout", fields);
        if (item_ == nullptr) return;
        item_->name = fields.text("a name in quotes");
        fields.skipNumbers(1, "a number");
        fields.finish();
    }

    void addPicture(FieldReader& fields) {
        if (item_ == nullptr) return fields.fail("an item (L) before the picture", "A");
        auto* const element = appended(item_->pictures, kMostElements, "at most 50 pictures in an item", fields);
        if (element == nullptr) return;
        *element = readPicture(fields);
        fields.finish();
    }

    void addText(FieldReader& fields) {
        if (item_ == nullptr) return fields.fail("an item (L) before the text", "T");
        auto* const element = appended(item_->texts, kMostElements, "at most 50 texts in an item", fields);
        if (element == nullptr) return;
        KeyedText read = readText(fields);
        *element = std::move(read.element);
        element->font = fontNumber(std::move(read.fontKey), fields);
        fields.finish();
    }

    /// A new element at the end, or null and a fault when there are as many as may be. Null also closes what the record
    /// would have opened, so that records below a surplus one are left out as well.
    template <class Element>
    static Element* appended(std::vector<Element>& elements, std::size_t most, std::string_view limit,
                             FieldReader& fields) {
        if (elements.size() < most) return &elements.emplace_back();
        fields.fail(limit, "one more");
        return nullptr;
    }

    std::size_t fontNumber(std::string key, FieldReader& fields) {
        auto& keys = description_.fontKeys;
        const auto known = std::ranges::find(keys, key);
        if (known != keys.end()) return static_cast<std::size_t>(known - keys.begin());
        if (keys.size() == kMostFonts) {
            fields.fail("at most 3 fonts", key);
            return 0;
        }
        keys.push_back(std::move(key));
        return keys.size() - 1;
    }

    LayoutDescription description_;
    Layout* layout_ = nullptr;  // that items go to
    LayoutItem* item_ = nullptr;
};

}  // namespace

LayoutDescription readLayoutDescription(std::string_view text, std::vector<TextError>* faults) {
    DescriptionReader reader;
    for (int number = 1; !text.empty(); ++number) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (line.empty()) continue;
        const std::string_view tag = line.substr(0, line.find(','));
        FieldReader fields(number, line.substr(std::min(line.size(), tag.size() + 1)));
        if (tag.size() == line.size())
            fields.fail("a record", line);
        else
            reader.readRecord(tag, fields);
        if (faults != nullptr && !fields.fault().message.empty()) faults->push_back(fields.fault());
    }
    return reader.take();
}

}  // namespace grub
