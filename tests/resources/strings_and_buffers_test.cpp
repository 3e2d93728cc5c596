#include <gtest/gtest.h>

#include <vector>

#include "engine_string.h"
#include "resource_source.h"

namespace grub {
namespace {

using namespace std::string_view_literals;

TEST(EngineString, TakesAtMostWhatItIsAskedForAndReadsNothingBehind) {
    const EngineString source("abcdef");
    EXPECT_EQ(EngineString("abc", 9).view(), "abc");
    EXPECT_EQ(EngineString(source, 1, 2).view(), "bc");
    EXPECT_EQ(EngineString(source, 4, 10).view(), "ef");
    EXPECT_EQ(EngineString(source, 6, 1).view(), "");
    EXPECT_EQ(EngineString(source, 0xFFFFFFFF, 0xFFFFFFFF).view(), "");
    const std::vector<char> field{'p', 'l', 'a', 'y', 'e', 'r'};  // no NUL: a sanitizer sees a read behind it
    EXPECT_EQ(EngineString(field.data(), 5).view(), "playe");
    EngineString assigned("before");
    assigned.assign(field.data(), 6);
    EXPECT_EQ(assigned.view(), "player");
}

TEST(EngineString, KeepsNulsInACopyAndStopsAtTheFirstInAnAssignment) {
    const EngineString holdsNul("ab\0cd"sv);
    const EngineString copy(holdsNul);  // NOLINT(performance-unnecessary-copy-initialization): the copy is the subject
    EXPECT_EQ(copy.length(), 5u);
    EngineString assigned("before");
    assigned = holdsNul;
    EXPECT_EQ(assigned.view(), "ab");
}

TEST(EngineString, CanBeAssignedAPieceOfItself) {
    EngineString text("abcdef");
    const EngineString& itself = text;
    text = itself;
    text.assign(text.cStr() + 2, 3);
    EXPECT_EQ(text.view(), "cde");
}

// A sanitizer sees when the bytes go too early, or never.
TEST(SharedBuffer, LivesUntilItsLastCopyAndNoLonger) {
    SharedBuffer first = SharedBuffer::create(1000);
    first.writableData()[2] = 7;
    SharedBuffer second = first;
    SharedBuffer third;
    third = second;
    const SharedBuffer& itself = third;
    third = itself;
    first.release();
    first.release();  // the second call has nothing to release
    second = {};
    ASSERT_EQ(third.bytes()[2], 7);
    SharedBuffer view = SharedBuffer::view(third.data(), third.size());
    const SharedBuffer copy = view;
    ASSERT_EQ(view.writableData(), nullptr);
    view.release();
    ASSERT_EQ(copy.bytes()[2], 7) << "a view owns nothing";
}

}  // namespace
}  // namespace grub
