#include "kest_interface.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

#include "control/testing.h"
#include "glyph_writer.h"
#include "log_file.h"
#include "memory_source.h"
#include "named_pictures.h"
#include "package_writer.h"
#include "scratch_directory.h"
#include "whole_file.h"

namespace grub {
namespace {

/// A picture record: element, file, place and file size, frames, grid.
std::string picture(const std::string& name, const std::string& file, const std::string& numbers,
                    const std::string& grid = "1,1,0") {
    return "A,\"" + name + "\",\"" + file + "\"," + numbers + ",0,0," + grid + "\n";
}
std::string words(const std::string& place, const std::string& font = "f", const std::string& text = "!") {
    return "T,\"\",\"\"," + place + ",0,0,0,0,0,0,0,0,\"" + font + "\",1,0,0,\"" + text + "\"\n";
}
std::string page(const std::string& name, const std::string& elements) {
    return "S,\"" + name + "\",1\nL,\"item\",1\n" + elements;
}

class Interface : public testing::Test {
protected:
    Interface() {
        put("two.bmp", pictureOf("ab", 2));
        put("one.bmp", pictureOf("c", 4));
        put("f_1_0.bmp", pictureOf("F", 1));
        put("f_1_0.bmp.dat", writeGlyphTable('!', '!', 1, {{0, 2, 0}}));
    }
    void put(const std::string& file, const Bytes& bytes) { files_["ui\\" + file] = bytes; }

    /// The interface with this description.
    KestInterface& described(const std::string& description) {
        data_.put("data\\ui._i_2", description);
        auto package = std::make_unique<MemorySource>();
        for (const auto& [name, bytes] : files_) package->put(name, bytes);
        interface_.emplace(data_, "ui", std::move(package));
        return *interface_;
    }

    FakeRenderer renderer_;
    MemorySource data_;
    std::map<std::string, Bytes> files_;
    std::optional<KestInterface> interface_;
};

TEST_F(Interface, DrawsTheElementThatANumberMeans) {
    const struct {
        int element;
        int dy;
        std::string drawn;
    } kRows[] = {
        {-1, 40, "b15,60 c105,70 c125,70 F6,141 F7,142 F8,143 F9,144"},
        {-1, -40, "b15,20 c105,30 c125,30 F6,61 F7,62 F8,63 F9,64"},
        {-2, 40, ""},
        {0, 40, "b15,100"},
        {1, -40, "c105,30 c125,30"},
        {2, 40, "F8,143"},
        {3, -40, "F9,64"},
        {4, 40, ""},
    };
    auto& pages =
        described(page("p", picture("", "two.bmp", "10,60,2,4,2") + picture("", "one.bmp", "100,70,2,4,1", "2,1,20") +
                                words("1,101") + words("2,102") + words("3,103") + words("4,104")));
    pages.openLayout("p");
    for (const auto& row : kRows) {
        pages.drawItem("item", 5, row.dy, row.element, 1);
        EXPECT_EQ(takeDrawn(renderer_), row.drawn) << row.element;
    }
    pages.drawText("item", "!!", 0, 5, 1);
    pages.drawText("item", "!", 0, 5, 4);
    EXPECT_EQ(takeDrawn(renderer_), "F2,107 F4,107");
    pages.drawText("item", "!", 0, 5, -1);
    EXPECT_EQ(takeDrawn(renderer_), "F1,106 F2,107 F3,108 F4,109");
}

TEST_F(Interface, DrawsOnlyTheCellsOfAGridThatShow) {
    const struct {
        const char* grid;
        std::size_t count;
        const char* first;
    } kRows[] = {
        {"3,2,20", 6, "c0,0 c20,0 c40,0 c0,20 "},
        {"0,2,20", 0, ""},
        {"3,-1,20", 0, ""},
        {"99999,99999,20", 1200, "c0,0 c20,0"},
        {"99999,99999,-1", 8, "c0,0 c-1,0 c0,-1"},
        {"99999,99999,0", 10'000, "c0,0 c0,0"},
        {"99999,99999,1", 10'000, "c0,0 c1,0"},
    };
    for (const auto& row : kRows) {
        auto& pages = described(page("p", picture("", "one.bmp", "0,0,2,4,1", row.grid)));
        pages.openLayout("p");
        pages.drawItem("item", 0, 0, 0, 0);
        EXPECT_EQ(renderer_.drawn.size(), row.count) << row.grid;
        EXPECT_TRUE(takeDrawn(renderer_).starts_with(row.first)) << row.grid;
    }
}

TEST_F(Interface, SharesThePictureOfAFileAndItsFrame) {
    auto& pages = described(page("p", picture("", "two.bmp", "1,10,2,4,2") + picture("", "two.bmp", "2,20,640,4,1")));
    pages.openLayout("p");
    EXPECT_EQ(renderer_.textures.size(), 2u) << "the first element decides: two frames, with a colour key";
    EXPECT_EQ(renderer_.textures.at(0)->keys, std::vector{kBrown});
    pages.drawItem("item", 0, 0, 0, 1);
    pages.drawItem("item", 0, 0, 1, 2);
    EXPECT_EQ(takeDrawn(renderer_), "b1,10 b2,20") << "a frame that it does not have keeps that of the other element";
    pages.stopAnimations();
    EXPECT_FALSE(renderer_.textures.empty()) << "in use twice";
    pages.stopAnimations();
    EXPECT_TRUE(renderer_.textures.empty());
    pages.drawItem("item", 0, 0, 0, 0);
    EXPECT_EQ(takeDrawn(renderer_), "a1,10") << "drawing takes it into use";
    pages.stopAnimations();
    EXPECT_TRUE(renderer_.textures.empty());
    pages.startAnimations();
    EXPECT_EQ(renderer_.textures.size(), 2u);
}

TEST_F(Interface, LoadsThePicturesOfTheLayoutsThatAreAskedFor) {
    auto& pages =
        described(page("p", picture("", "one.bmp", "0,0,2,4,1")) + page("q", picture("", "two.bmp", "0,0,2,4,2")));
    pages.prepareLayout("q");
    EXPECT_EQ(renderer_.textures.size(), 2u);
    pages.drawItem("item", 0, 0, 0, 0);
    EXPECT_EQ(takeDrawn(renderer_), "") << "no layout is selected";
    pages.openLayout("p");
    EXPECT_EQ(renderer_.textures.size(), 1u) << "opening stops the others";
    pages.prepareAll();
    EXPECT_EQ(renderer_.textures.size(), 3u);
    pages.drawItem("item", 0, 0, 0, 0);
    EXPECT_EQ(takeDrawn(renderer_), "c0,0") << "the selected layout stays";
    pages.selectLayout("none");
    pages.drawItem("item", 0, 0, 0, 0);
    pages.prepareLayout("none");
    EXPECT_EQ(takeDrawn(renderer_), "");
}

TEST_F(Interface, TakesTheKeyColourFromNarrowPicturesOnly) {
    for (const char* width : {"319", "320", "639", "640", "800"}) {
        auto& pages = described(page("p", picture("", "one.bmp", std::string("0,0,") + width + ",4,1")));
        pages.openLayout("p");
        const bool fillsScreen = width == std::string("320") || width == std::string("640");
        EXPECT_EQ(renderer_.textures.at(0)->keys.empty(), fillsScreen) << width;
    }
}

TEST_F(Interface, DrawsNothingOfFrameHeightsThatDoNotFit) {
    for (const char* numbers : {"0,0,2,0,1", "0,0,2,4,9", "0,0,2,-4,1", "0,0,2,9,1"}) {
        auto& pages = described(page("p", picture("", "one.bmp", numbers)));
        pages.openLayout("p");
        pages.drawItem("item", 0, 0, 0, 0);
        EXPECT_EQ(takeDrawn(renderer_), "") << numbers;
    }
}

TEST_F(Interface, HoldsTwoHundredPictures) {
    std::string items = "S,\"p\",1\n";
    for (int i = 0; i <= 200; ++i) {
        const std::string file = std::to_string(i) + ".bmp";
        put(file, pictureOf("n", 1));
        items += (i % 50 == 0 ? "L,\"" + std::to_string(i) + "\",1\n" : "") + picture("", file, "0,0,2,1,1");
    }
    auto& pages = described(items);
    pages.openLayout("p");
    EXPECT_EQ(renderer_.textures.size(), 200u);
    pages.drawItem("200", 0, 0, 0, 0);
    EXPECT_EQ(takeDrawn(renderer_), "");
    pages.drawItem("150", 0, 0, 49, 0);
    EXPECT_EQ(takeDrawn(renderer_), "n0,0");
}

TEST_F(Interface, HitsWhatLiesInsideTheFirstFrame) {
    const struct {
        const char* element;
        Position point;
        bool isHit;
        Position relative;
    } kRows[] = {
        {"e", {11, 21}, true, {1, 1}},      {"e", {10, 25}, false, {0, 5}},      {"e", {11, 20}, false, {1, 0}},
        {"e", {39, 29}, true, {29, 9}},     {"e", {40, 29}, false, {30, 9}},     {"e", {39, 30}, false, {29, 10}},
        {"zero", {-39, 19}, true, {1, 19}}, {"zero", {-39, 20}, false, {1, 20}}, {"none", {11, 21}, false, {-1, -1}},
    };
    auto& pages =
        described(page("p", picture("e", "one.bmp", "10,20,30,20,2") + picture("e", "one.bmp", "0,0,99,99,1")) +
                  "L,\"other\",1\n" + picture("zero", "one.bmp", "-40,0,30,20,0"));
    EXPECT_FALSE(pages.hitTest("e", {11, 21})) << "no layout is selected";
    pages.selectLayout("p");
    for (const auto& row : kRows) {
        EXPECT_EQ(pages.hitTest(row.element, row.point), row.isHit) << row.element << row.point.x << "," << row.point.y;
        EXPECT_EQ(pages.relativePosition(row.element, row.point), row.relative);
    }
}

TEST_F(Interface, DrawsTheFourthFontAsTheFirstAndAMissingOneNotAtAll) {
    put("g_1_0.bmp", pictureOf("G", 1));
    put("g_1_0.bmp.dat", writeGlyphTable('!', '!', 1, {{0, 2, 0}}));
    auto& pages =
        described(page("p", words("0,10") + words("0,20", "none") + words("0,30", "g") + words("0,40", "four")));
    pages.selectLayout("p");
    pages.drawItem("item", 0, 0, -1, 0);
    EXPECT_EQ(takeDrawn(renderer_), "F0,10 G0,30 F0,40");
    EXPECT_EQ(pages.font(1), nullptr);
    EXPECT_EQ(pages.font(3), nullptr);
    ASSERT_NE(pages.font(2), nullptr);
}

using InterfaceDeathTest = Interface;  // runs before the others, since the log opens once in a process

TEST_F(InterfaceDeathTest, OpensThePackageOfItsNameAndLogsWhatThatLacks) {
    const ScratchDirectory scratch;
    scratch.write("ui.pak", PackageWriter().add("ui\\one.bmp", pictureOf("c", 4)).package());
    data_.put("data\\ui._i_2",
              page("p", picture("", "%s.bmp", "0,0,2,4,1") + picture("", "one.bmp", "7,8,2,4,1") + words("0,0")));
    const auto run = [&] {
        std::filesystem::current_path(scratch.path());
        openLog();
        const platform::testing::MessageBoxRecorder messages;
        KestInterface pages(data_, "ui");
        pages.openLayout("p");
        pages.drawItem("item", 0, 0, -1, 0);
        KestInterface nothing(data_, "absent");
        nothing.openLayout("p");
        std::exit(takeDrawn(renderer_) == "c7,8" && messages.boxes().size() == 1 ? 0 : 1);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
    EXPECT_EQ(readWholeText(scratch.file("nimbo.log")),
              "DATA NOT PRESENT !\nKestInterface::AddAnimation. Invalid: ui\\%s.bmp\n");
}

}  // namespace
}  // namespace grub
