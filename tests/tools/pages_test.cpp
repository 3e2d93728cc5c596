// Texts of pages: what they mean, what is wrong with them, and what they draw.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "bitmap_font.h"
#include "font_files.h"
#include "image_decoder.h"
#include "jpeg_file.h"
#include "layout_description.h"
#include "layout_text.h"
#include "page_checks.h"
#include "page_picture.h"
#include "page_source.h"
#include "page_states.h"

namespace grub {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

using Texts = std::map<std::string, std::string>;

TextSource in(const Texts& texts) {
    return [&texts](const std::string& file) {
        const auto text = texts.find(file);
        return text == texts.end() ? std::nullopt : std::optional(text->second);
    };
}

/// The pages of these texts, whose first is "p.txt"; an error fails the test.
PageSource pagesOf(const Texts& texts) {
    std::string error;
    const auto source = readPageSource("p.txt", in(texts), error);
    EXPECT_EQ(error, "");
    return source.value_or(PageSource{});
}
PageSource pagesOf(const std::string& text) { return pagesOf(Texts{{"p.txt", text}}); }

/// A layout with one item.
const std::string kItem = "layout l\nitem it fixed\n";

/// A page that shows one picture of 40 x 20 at (100, 50), drawn by these lines.
std::string pictureOf(const std::string& lines, const std::string& file = "a.bmp") {
    return kItem + "A a " + file + " 100 50 40 20\n" + lines;
}

TEST(PageTexts, BecomeTheDescriptionThatTheGameReads) {
    const PageSource source = pagesOf(Texts{{"p.txt",
                                             "list side left right\nmeasure top 40\nmeasure row 12\n"
                                             "block arrows\nitem arrows slide\n"
                                             "A*side to_{side} {side}.bmp 400+100i top+row*2 72 36 1 1 1 0 o\nend\n"
                                             "page one\npage two\n"},
                                            {"one.txt",
                                             "layout first\nuse arrows\nitem slots fixed\n"
                                             "A*2 slot_0{1}c slot.bmp 30 top+i*row-1 90 80 4 1 3 10 a\n"
                                             "T*2 level_{1} 46+4i 160 body_24_0 228 \"Level 50\" l\n"},
                                            {"two.txt",
                                             "# a comment\nlayout second\n"
                                             "item*2 help_{02} fixed | A sheet_{02} help_{02}.jpg 0 0 800 600\n"
                                             "item info fixed\nT line 400 20 small_18_0 300 \"33 4\" c own\n"}});
    const std::string text = layoutText(source);
    EXPECT_EQ(text,
              "Screens,2\n"
              "S,\"first\",0\n"
              "L,\"arrows\",0\n"
              "A,\"to_left\",\"left.bmp\",400,64,72,36,1,0,0,1,1,0\n"
              "A,\"to_right\",\"right.bmp\",500,64,72,36,1,0,0,1,1,0\n"
              "L,\"slots\",1\n"
              "A,\"slot_01c\",\"slot.bmp\",30,39,90,80,4,0,0,1,3,10\n"
              "A,\"slot_02c\",\"slot.bmp\",30,51,90,80,4,0,0,1,3,10\n"
              "T,\"level_1\",\"\",46,160,0,0,0,0,0,0,0,0,\"body\",24,0,0,\"\"\n"
              "T,\"level_2\",\"\",50,160,0,0,0,0,0,0,0,0,\"body\",24,0,0,\"\"\n"
              "S,\"second\",1\n"
              "L,\"help_00\",0\n"
              "A,\"sheet_00\",\"help_00.jpg\",0,0,800,600,1,0,0,1,1,0\n"
              "L,\"help_01\",1\n"
              "A,\"sheet_01\",\"help_01.jpg\",0,0,800,600,1,0,0,1,1,0\n"
              "L,\"info\",2\n"
              "T,\"line\",\"\",378,20,0,0,0,0,0,0,0,0,\"small\",18,0,0,\"33 4\"\n");
    std::vector<TextError> faults;
    EXPECT_THAT(readLayoutDescription(text, &faults).layouts, SizeIs(2));
    EXPECT_THAT(faults, IsEmpty());
    EXPECT_EQ(source.picture("slot.bmp")->element.place.page(), "one");
}

TEST(PageTexts, AreRefusedWithTheLineThatIsWrong) {
    const struct {
        std::string text;
        const char* error;
    } kFaults[] = {
        {"item it fixed\n", "p.txt:1: wanted 'layout NAME' above, found none"},
        {"layout l\nA a a.bmp 0 0 1 1\n", "p.txt:2: wanted 'item NAME MOTION' above, found none"},
        {"layout l\nitem it up\n", "p.txt:2: wanted a motion (fixed, slide, dialog), found 'up'"},
        {kItem + "A a a.gif 0 0 1 1\n", "p.txt:3: wanted a .bmp or .jpg file, found 'a.gif'"},
        {kItem + "A a a.bmp 0 0 1 4097\n", "p.txt:3: wanted a height from 1 to 4096, found '4097'"},
        {kItem + "A a a.bmp 0 0 1 9 2 1 1 0 o\n", "p.txt:3: the frames do not divide the height"},
        {kItem + "A a a.bmp 0 0 9 9\nA b a.bmp 0 0 9 8\n", "p.txt:4: a.bmp has another size in p.txt:3: there"},
        {kItem + "A a a.bmp 1+x 0 9 9\n", "p.txt:3: wanted a column, found '1+x'"},
        {kItem + "A a a.bmp 1.5 0 9 9\n", "p.txt:3: wanted a column without a fraction, found '1.500000'"},
        {kItem + "A a a.bmp 0 0 9 9 1 1 1 0 o b\n", "p.txt:3: wanted the end of the line, found 'b'"},
        {kItem + "T t 0 0 body_24 9 \"x\" l\n", "p.txt:3: wanted a font such as body_24_0, found 'body_24'"},
        {kItem + "T t 0 0 body_24_0 9 x l\n", "p.txt:3: wanted the longest text in quotes, found 'x'"},
        {"list none\n", "p.txt:1: wanted 'list NAME WORDS...', found a list without words"},
        {"list l a\nA*2 {l}\n",
         "p.txt:2: wanted {0}, {1}, {02}, {count}, {frame} or the name of a list that is long enough, found '{l}'"},
        {"A*x a\n", "p.txt:1: wanted a list or a number from 1 to 100 behind '*', found 'x'"},
        {"T \"open\n", "p.txt:1: wanted a quote at the end of the words, found the end of the line"},
        {"block b\nT\n", "p.txt: wanted 'end' of the block 'b', found the end of the file"},
        {"block b\nuse b\nend\n", "p.txt:2: wanted lines of a page inside a block, found 'use'"},
        {"use b\n", "p.txt:1: wanted the name of a block, found 'b'"},
        {"page q\n", "p.txt:1: wanted a text of a page, found 'q.txt'"},
        {"page p\n", "p.txt:1: wanted a text that has not been read yet, found 'p.txt'"},
        {pictureOf("paint a.bmp\n"), "p.txt:4: wanted a kind of line, found 'paint'"},
        {pictureOf("fill b.bmp all ffffff\n"), "p.txt:4: wanted the file of an A line, found 'b.bmp'"},
        {pictureOf("fill a.bmp all white\n"), "p.txt:4: wanted a colour of six hexadecimal digits, found 'white'"},
        {pictureOf("panel a.bmp all\n"), "p.txt:4: wanted 'end' of this panel, found the end of the text"},
        {pictureOf("end\n"), "p.txt:4: wanted a panel or a block above this 'end', found none"},
        {pictureOf("figure a.bmp grub stand pleased x1 0 0 up\n"), "p.txt:4: wanted left or right, found 'up'"},
        {pictureOf("figure a.bmp grub stand pleased x1 0 0 left fly=3\n"), "found 'fly=3'"},
        {pictureOf("set a.bmp moon all\n"), "p.txt:4: wanted a set of content/art/sets, found 'moon'"},
    };
    for (const auto& fault : kFaults) {
        SCOPED_TRACE(fault.text);
        std::string error;
        const Texts texts{{"p.txt", fault.text}};
        EXPECT_FALSE(readPageSource("p.txt", in(texts), error));
        EXPECT_THAT(error, HasSubstr(fault.error));
    }
}

/// The only picture of a page, and the faults that show when it is drawn.
PixelImage drawn(const std::string& text, std::vector<std::string>& faults) {
    const PageSource source = pagesOf(text);
    return source.pictures.empty() ? PixelImage(1, 1) : drawPicture(source.pictures[0], faults);
}
PixelImage drawn(const std::string& text) {
    std::vector<std::string> faults;
    return drawn(text, faults);
}

constexpr Pixel kRed{255, 0, 0, 255};
constexpr Pixel kBlue{0, 0, 255, 255};
constexpr Pixel kInkLine{0x2e, 0x1f, 0x33, 255};

TEST(PagePictures, ShowWhatLiesInTheirRectangleLineByLine) {
    const PixelImage image = drawn(pictureOf("fill a.bmp 90 60 20 100 0000ff\nfill a.bmp @5 @12 10 100 ff0000\n"));
    ASSERT_EQ(image.width, 40);
    EXPECT_EQ(image.at(0, 9).a, 0);
    EXPECT_EQ(image.at(0, 10), kBlue);
    EXPECT_EQ(image.at(9, 11), kBlue);
    EXPECT_EQ(image.at(9, 12), kRed);
    EXPECT_EQ(image.at(14, 19), kRed);
    EXPECT_EQ(image.at(15, 19).a, 0);
}

TEST(PagePictures, CutOffWhatLeavesAPanel) {
    const PixelImage image =
        drawn(pictureOf("fill a.bmp all 0000ff\npanel a.bmp @10 @5 20 10\nfill a.bmp @0 @0 40 20 ff0000\nend\n"));
    EXPECT_EQ(image.at(9, 10), kBlue);
    EXPECT_EQ(image.at(10, 10), kInkLine);
    EXPECT_EQ(image.at(12, 10), kInkLine);
    EXPECT_EQ(image.at(13, 10), kRed);
}

TEST(PagePictures, KnowTheNumberOfTheFrame) {
    const std::string knob = kItem + "A a a.bmp 0 0 92 90 3 1 1 0 o\nknob a.bmp 0 0 91 30 3\n";
    const PixelImage image = drawn(knob);
    for (int frame = 0; frame < 3; ++frame) {
        for (int value = 0; value < 3; ++value) {
            EXPECT_EQ(image.at(15 + 30 * value, frame * 30 + 15).a == 255, frame == value) << frame << ' ' << value;
        }
    }
}

TEST(PagePictures, TellWhatDoesNotFit) {
    const struct {
        std::string text;
        const char* fault;
    } kFaults[] = {
        {pictureOf("W a.bmp all body 18 c ink paper \"much too long for it\"\n"), "p.txt:4: the words are"},
        {pictureOf("W a.bmp all body 24 c ink caption \"g\"\n"), "px too high"},
        {pictureOf("fill a.jpg @0 @0 39 20 ffffff\n", "a.jpg"),
         "p.txt:3: a.jpg is not drawn on everywhere, as at 39, 0"},
    };
    for (const auto& fault : kFaults) {
        SCOPED_TRACE(fault.text);
        std::vector<std::string> faults;
        (void)drawn(fault.text, faults);
        EXPECT_THAT(faults, ElementsAre(HasSubstr(fault.fault)));
    }
}

TEST(JpegPictures, HaveNoHoles) {
    PixelImage image(64, 48);
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        const auto shade = static_cast<std::uint8_t>(i % 5);
        image.pixels[i] = {static_cast<std::uint8_t>(kHoleColour.r + shade - 2), kHoleColour.g, kHoleColour.b, 255};
    }
    const std::vector<std::uint8_t> file = jpegWithout(image, kHoleColour);
    const auto decoder = createImageDecoder(SharedBuffer::view(file.data(), static_cast<std::uint32_t>(file.size())));
    ASSERT_NE(decoder, nullptr);
    SharedBuffer rgb;
    SharedBuffer alpha;
    ASSERT_TRUE(decoder->decode(rgb, alpha));
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        const std::uint8_t* p = rgb.data() + i * 3;
        ASSERT_NE((Pixel{p[0], p[1], p[2], 255}), kHoleColour) << i;
        ASSERT_NEAR(p[2], kHoleColour.b, 16) << i;
    }
}

/// Ink of a font's picture in these columns of a cell.
bool hasInk(const PixelImage& image, const Glyph& glyph, int height, int from, int to) {
    for (int y = glyph.cellY; y < glyph.cellY + height; ++y) {
        for (int x = glyph.cellX + from; x < std::min(glyph.cellX + to, image.width); ++x) {
            if (image.at(x, y).a > 0) return true;
        }
    }
    return false;
}

TEST(GameFonts, HoldEveryLetterWholeInItsCell) {
    const struct {
        FontKey key;
        int digit;   // pixels from digit to digit
        int letter;  // as wide is each letter; 0: as it is
    } kFonts[] = {{{"body", 24, 0}, 0, 0}, {{"small", 18, 0}, 11, 0}, {{"name", 34, 48}, 48, 48}};
    for (const auto& font : kFonts) {
        SCOPED_TRACE(font.key.text());
        const FontFiles files = drawFont(font.key);
        const GlyphTable table = readGlyphTable(files.table);
        ASSERT_EQ(table.first, 32);
        ASSERT_EQ(table.last, 126);
        for (int code = 33; code <= 126; ++code) {
            const Glyph& glyph = *table.find(static_cast<char>(code));
            EXPECT_TRUE(hasInk(files.picture, glyph, table.cellHeight, 0, glyph.cellWidth)) << code;
            EXPECT_FALSE(hasInk(files.picture, glyph, table.cellHeight, glyph.cellWidth, glyph.cellWidth + 2)) << code;
            if (font.letter > 0) {
                EXPECT_EQ(glyph.advance, font.letter) << code;
            }
        }
        for (const char digit : std::string("0123456789 ")) {
            if (font.digit > 0) {
                EXPECT_EQ(table.find(digit)->lead + table.find(digit)->advance, font.digit) << digit;
            }
        }
        int pen = -table.find('L')->lead;
        for (const char c : std::string("Level 50")) pen += table.find(c)->lead + table.find(c)->advance;
        EXPECT_EQ(writtenWidth(font.key, "Level 50"), pen);
    }
}

TEST(PageChecks, FindWhatThePlayerWouldMiss) {
    const std::string fill = "fill a.bmp all ffffff\n";
    std::string fifty = kItem;
    for (int i = 0; i <= 50; ++i) fifty += "A a a.bmp 0 0 9 9\n";
    const struct {
        std::string text;
        const char* fault;
    } kFaults[] = {
        {kItem + "A a a.bmp 0 0 9 9\n", "p.txt:3: a.bmp has no drawing lines"},
        {kItem, "p.txt:2: it has no elements"},
        {kItem + "A a a.bmp 700 0 60 9 1 3 1 60 o\n" + fill, "p.txt:3: a does not lie on the screen"},
        {"layout l\nitem it slide\nA a a.bmp 349 0 9 9\n" + fill, "p.txt:3: a slides"},
        {"layout l\nitem it dialog\nA a a.bmp 0 392 9 9\n" + fill, "p.txt:3: a belongs to a dialog"},
        {fifty + fill, "p.txt:2: more than 50 elements in an item"},
        {kItem + "T t 0 0 body_24_0 60 \"Level 50\" l\n", "p.txt:3: t needs"},
        {kItem + "T t 0 0 body_25_0 60 \"Level 50\" l\n", "p.txt:3: there is no font body_25_0"},
        {pictureOf("W a.bmp 100 50 41 20 body 18 l ink paper \"a\"\n"), "p.txt:4: the words leave their picture"},
        {pictureOf("panel a.bmp 100 50 20 20\nW a.bmp 100 50 21 20 body 18 l ink paper \"a\"\nend\n"),
         "p.txt:5: the words leave their panel"},
        {pictureOf("W a.bmp all body 18 l cream paper \"a\"\n"), "p.txt:4: the words are hard to read on that board"},
        {pictureOf("W*2 a.bmp 100 50+9i 40 10 body 18 l ink paper \"a\"\n"),
         "p.txt:4: these words lie on those of line 4"},
    };
    for (const auto& fault : kFaults) {
        SCOPED_TRACE(fault.text);
        EXPECT_THAT(pageFaults(pagesOf(fault.text)), ElementsAre(HasSubstr(fault.fault)));
    }
}

TEST(PageChecks, HoldNamesToWhatTheGameAsksFor) {
    const std::string text =
        "layout in_gamemenu\nitem in_splash dialog\nA*4 buttonup_0{1} a.bmp 0 50i 228 48\n"
        "item button_down dialog\nA*3 buttondown_0{1} a.bmp 0 50i 228 48\nfill a.bmp all ffffff\n"
        "layout win\nitem lost fixed\nA win a.bmp 0 0 228 48\n";
    std::string error;
    const Texts texts{{"make_z64.txt", text}};
    const auto source = readPageSource("make_z64.txt", in(texts), error);
    ASSERT_TRUE(source) << error;
    const std::vector<std::string> faults = pageFaults(*source);
    for (const char* fault :
         {"make_z64.txt:4: the game draws 4 pictures and 0 texts of item button_down of layout in_gamemenu",
          "make_z64: the game draws item loss of layout win, which is missing",
          "make_z64: the game draws item fon of layout zast, which is missing",
          "make_z64.txt:8: the game never draws lost"}) {
        EXPECT_THAT(faults, testing::Contains(fault));
    }
    EXPECT_THAT(faults, testing::Not(testing::Contains(HasSubstr("buttonup_01"))));
}

TEST(PageStates, TellWhatCoversWhat) {
    const std::string page =
        "layout l\n"
        "item text fixed\nT t 10 10 body_24_0 100 \"longest\" l\n"
        "item half fixed\nA h h.bmp 50 0 50 50\nfill h.bmp all ffffff\n"
        "item whole fixed\nA w w.bmp 0 0 200 60\nfill w.bmp all ffffff\n"
        "item holes fixed\nA o o.bmp 0 0 200 60 1 1 1 0 a\nfill o.bmp all ffffff\n"
        "item words fixed\nA s s.bmp 0 20 100 30 1 1 1 0 o\nW s.bmp all body 18 l ink paper \"said\"\n";
    const struct {
        const char* draws;
        const char* fault;  // null when all is well
    } kStates[] = {
        {"half text \"now\"", nullptr},
        {"text \"now\" half", "p.txt:1: state s: h hides a part of \"longest\""},
        {"text \"now\" half@60", nullptr},
        {"text \"now\" whole half", nullptr},
        {"text \"now\" holes", "p.txt:1: state s: o hides a part of \"longest\""},
        {"words text \"now\"", "p.txt:1: state s: \"longest\" lies on \"said\""},
        {"text:0 \"now\" text:1 \"none\"", nullptr},
        {"gone", "p.txt:1: state s: there is no item gone"},
    };
    const PageSource source = pagesOf(page);
    for (const auto& state : kStates) {
        SCOPED_TRACE(state.draws);
        std::string error;
        const Texts texts{{"p.txt", "state s p l " + std::string(state.draws) + '\n'}};
        const auto states = readPageStates("p.txt", in(texts), error);
        ASSERT_TRUE(states) << error;
        std::vector<std::string> faults;
        checkStates(source, *states, faults);
        const auto expected =
            state.fault == nullptr ? std::vector<std::string>{} : std::vector<std::string>{state.fault};
        EXPECT_EQ(faults, expected);
    }
}

}  // namespace
}  // namespace grub
