#include "layout_description.h"

#include <gtest/gtest.h>

#include <span>

#include "bytes.h"

namespace grub {
namespace {

/// "layout(item[name file x y w h frames cols rows step][x y font words]...)..."
std::string shown(const LayoutDescription& description) {
    std::string text;
    for (const Layout& layout : description.layouts) {
        text += layout.name + "(";
        for (const LayoutItem& item : layout.items) {
            text += item.name;
            for (const auto& [name, file, x, y, w, h, frames, cols, rows, step] : item.pictures) {
                text += "[" + name + " " + file;
                for (const int number : std::initializer_list<int>{x, y, w, h, frames, cols, rows, step})
                    text += " " + std::to_string(number);
                text += "]";
            }
            for (const auto& [x, y, font, words] : item.texts) {
                text +=
                    "[" + std::to_string(x) + " " + std::to_string(y) + " " + std::to_string(font) + " " + words + "]";
            }
        }
        text += ")";
    }
    return text;
}

std::string times(int count, const std::string& text) {
    std::string all;
    while (count-- > 0) all += text;
    return all;
}

const std::string kHead = "S,\"p\",1\nL,\"i\",2\n";
std::string words(const std::string& font, const std::string& size = "24") {
    return "T,\"\",\"\",1,2,0,0,0,0,0,0,0,0,\"" + font + "\"," + size + ",0,0,\"w\"\n";
}

/// A description, what is read of it, and the first fault.
struct Rule {
    const char* what;
    std::string text;
    std::string shown;
    std::string fault;
};

// clang-format off
const Rule kRules[] = {
    {"everything", "Screens,2\nS,\"p\",1\nL,\"i\",2\nA,\"n\",\"f.bmp\",1,-2,3,4,5,6,7,8,9,10\n" + words("f") + "L,\"j\",3\nS,\"q\",1\n",
        "p(i[n f.bmp 1 -2 3 4 5 8 9 10][1 2 0 w]j)q()", ""},
    {"CR LF", "S,\"p\",1\r\nL,\"i\",2\r\nA,\"\",\"\",1,2,3,4,5,6,7,8,9,10\r\n\r\n", "p(i[  1 2 3 4 5 8 9 10])", ""},
    {"no LF at the end", "S,\"p\",1\nL,\"i\",2", "p(i)", ""},
    {"commas in quotes", kHead + "A,\"a,b\",\",\",1,2,3,4,5,6,7,8,9,10\n", "p(i[a,b , 1 2 3 4 5 8 9 10])", ""},
    {"a line without a comma", kHead + "S\nL,\"j\",1\n", "p(ij)", "a:3: wanted a record, found 'S'"},
    {"an unknown tag", kHead + "B,\"\"\nL,\"j\",1\n", "p(ij)", "a:3: wanted Screens, S, L, A or T, found 'B'"},
    {"a short record", kHead + "A,\"n\",\"f\",1\nL,\"j\",7\n", "p(i[n f 1 0 0 0 0 0 0 0]j)", "a:3: wanted the number y, found the end of the line"},
    {"a record too long", kHead + "L,\"j\",1,2\n", "p(ij)", "a:3: wanted the end of the line, found '2'"},
    {"an unclosed quote", kHead + "L,\"j,1\nL,\"k\",1\n", "p(ij,1k)", "a:3: wanted a closing quote, found the end of the line"},
    {"no opening quote", kHead + "L,xj\",1\n", "p(ij)", "a:3: wanted a name in quotes, found 'xj\",1'"},
    {"text behind a quote", kHead + "A,\"n\"x,\"f\",1,2,3,4,5,6,7,8,9,10\n", "p(i[n f 1 2 3 4 5 8 9 10])", "a:3: wanted a comma, found 'x'"},
    {"huge numbers", kHead + "A,\"\",\"\",32767,32768,-32768,-32769,99999999999,,x,-99999999999,9x,\n", "p(i[  32767 32767 -32768 0 32767 -32768 9 0])",
        "a:3: wanted the number y, found '32768'"},
    {"a strip of many frames", kHead + "A,\"\",\"\",1,2,800,60000,100,6,7,8,9,10\n", "p(i[  1 2 800 60000 100 8 9 10])", ""},
    {"an item too early", "L,\"i\",1\nS,\"p\",1\n", "p()", "a:1: wanted a layout (S) before the item, found 'L'"},
    {"a picture too early", "S,\"o\",1\nL,\"i\",1\nS,\"p\",1\nA,\"n\",\"f\",1,2,3,4,5,6,7,8,9,10\n", "o(i)p()", "a:4: wanted an item (L) before the picture, found 'A'"},
    {"a text too early", "S,\"p\",1\n" + words("f"), "p()", "a:2: wanted an item (L) before the text, found 'T'"},
    {"a layout too many", times(51, "S,\"p\",1\nL,\"i\",1\n"), times(50, "p(i)"), "a:101: wanted at most 50 layouts, found 'one more'"},
    {"an item too many", "S,\"p\",1\n" + times(51, "L,\"i\",1\n") + words("f"), "p(" + times(50, "i") + ")", "a:52: wanted at most 50 items in a layout, found 'one more'"},
    {"a picture too many", kHead + times(51, "A,\"n\",\"f\",1,2,3,4,5,6,7,8,9,1\n"), "p(i" + times(50, "[n f 1 2 3 4 5 8 9 1]") + ")", "a:53: wanted at most 50 pictures in an item, found 'one more'"},
    {"a text too many", kHead + times(51, words("f")), "p(i" + times(50, "[1 2 0 w]") + ")", "a:53: wanted at most 50 texts in an item, found 'one more'"},
    {"a font too many", kHead + words("f") + words("g") + words("h") + words("i", "99999") + words("h"), "p(i[1 2 0 w][1 2 1 w][1 2 2 w][1 2 0 w][1 2 2 w])", "a:6: wanted at most 3 fonts, found 'i_99999_0'"},
};
// clang-format on

TEST(LayoutDescription, CostsOnlyWhatDamageTouches) {
    for (const Rule& rule : kRules) {
        SCOPED_TRACE(rule.what);
        std::vector<TextError> faults;
        EXPECT_EQ(shown(readLayoutDescription(rule.text, &faults)), rule.shown);
        EXPECT_EQ(faults.empty() ? "" : faults[0].in("a"), rule.fault);
    }
}

TEST(LayoutDescription, IsReadUpToAnyCut) {
    const std::string& whole = kRules[0].text;
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const SharedBuffer cut = bufferOf(bytesOf(whole.substr(0, size)));
        const auto description = readLayoutDescription({reinterpret_cast<const char*>(cut.data()), cut.size()});
        EXPECT_LE(description.layouts.size(), 2u);
        EXPECT_EQ(shown(description).starts_with("p(i[n f.bmp 1 -2 3 4 5 8 9 10"), size >= whole.find("10\n") + 2)
            << size;
    }
}

}  // namespace
}  // namespace grub
