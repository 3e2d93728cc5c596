// Labels: every file of the loading list has a picture, drawn or not.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "label_pictures.h"
#include "loading_list.h"
#include "picture_registry.h"
#include "pixel_alphabet.h"
#include "strip.h"

namespace grub {
namespace {

TEST(LoadingList, FindsAPictureForEveryFileThatItsFrameHeightDivides) {
    std::set<std::string_view> files;
    for (const LoadEntry& file : loadingList()) {
        files.insert(file.stem);
        const PictureEntry* picture = findPicture(file.stem);
        ASSERT_NE(picture, nullptr) << file.stem;
        EXPECT_EQ(picture->frameHeight, file.frameHeight) << file.stem;
        EXPECT_GE(picture->frames, 1) << file.stem;
        EXPECT_TRUE(picture->width == 64 || file.frameHeight != 64) << file.stem;
    }
    EXPECT_EQ(files.size(), 285U);
    EXPECT_EQ(allPictures().size(), files.size()) << "a picture is drawn that the game never loads";
}

TEST(Labels, StandInForWhatIsNotDrawnAndForNothingElse) {
    EXPECT_EQ(labelsBeside({}).size(), 285U);
    const std::vector<PictureEntry> drawn = labelsBeside({});
    EXPECT_TRUE(labelsBeside(drawn).empty());
    const auto rest = labelsBeside(std::span(drawn).subspan(1));
    ASSERT_EQ(rest.size(), 1U);
    EXPECT_EQ(rest.front().name, drawn.front().name);
    EXPECT_TRUE(isLabel(rest.front()));
    EXPECT_FALSE(isLabel(*findPicture("grub\\ani_01")));
}

TEST(Labels, TellPicturesAndFilesApart) {
    const std::vector<PictureEntry> labels = labelsBeside({});
    const auto label = [&labels](std::string_view name) {
        return *std::find_if(labels.begin(), labels.end(), [name](const PictureEntry& l) { return l.name == name; });
    };
    const PictureEntry bonus = label("bonuses\\animation_bonus_01");
    EXPECT_NE(renderFrame(bonus, 0), renderFrame(bonus, 1));
    EXPECT_NE(renderFrame(bonus, 0), renderFrame(label("bonuses\\animation_bonus_02"), 0));
    EXPECT_EQ(label("gor").frameHeight, 16);
    EXPECT_EQ(renderStrip(label("vert")).height, 240);
}

TEST(PixelAlphabet, HasEveryLetterOfTheFileNames) {
    const auto squares = [](char c) { return pixelText({}, std::string(1, c)).segments().size(); };
    for (const LoadEntry& file : loadingList()) {
        for (const char c : file.stem) EXPECT_TRUE(c == '\\' || squares(c) > 0) << file.stem << ": " << c;
    }
    EXPECT_EQ(squares('?'), 0U);
}

TEST(PixelAlphabet, StaysOnItsGrid) {
    const VectorPath text = pixelText({3, 5}, "w8");
    for (const auto& step : text.segments()) {
        if (step.verb == VectorPath::Verb::Close) continue;
        const Point p = step.points[0];
        EXPECT_GE(p.x, 3);
        EXPECT_LE(p.x, 3 + kLetterAdvance + kLetterWidth);
        EXPECT_GE(p.y, 5);
        EXPECT_LE(p.y, 5 + kLetterHeight);
    }
}

}  // namespace
}  // namespace grub
