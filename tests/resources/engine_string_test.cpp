#include "engine_string.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>

namespace grub {
namespace {

using namespace std::string_view_literals;

TEST(EngineStringBounds, TakeTheSmallerOfTextAndMaximum) {
    EXPECT_EQ(EngineString("abcdef", 3).view(), "abc");
    EXPECT_EQ(EngineString("abc", 9).view(), "abc");
    EXPECT_EQ(EngineString("abc", 0).view(), "");
    EXPECT_EQ(EngineString("abcdef", 3).length(), 3u);
    EXPECT_EQ(EngineString("abcdef", 3).cStr()[3], '\0');
}

TEST(EngineStringSubstring, EndsWithTheSourceAndIsEmptyBehindIt) {
    const EngineString source("abcdef");
    EXPECT_EQ(EngineString(source, 4, 10).view(), "ef");
    EXPECT_EQ(EngineString(source, 1, 2).view(), "bc");
    EXPECT_EQ(EngineString(source, 6, 1).view(), "");
    EXPECT_EQ(EngineString("abc", 5, 1).view(), "");
    EXPECT_EQ(EngineString(source, 0xFFFFFFFF, 0xFFFFFFFF).view(), "");
}

/// Six bytes at the very end of readable memory, no NUL behind them.
class FieldAtPageEnd {
public:
    explicit FieldAtPageEnd(std::string_view bytes) {
        pages_ =
            static_cast<char*>(mmap(nullptr, 2 * page_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        mprotect(pages_ + page_, page_, PROT_NONE);
        field_ = pages_ + page_ - bytes.size();
        std::memcpy(field_, bytes.data(), bytes.size());
    }
    FieldAtPageEnd(const FieldAtPageEnd&) = delete;
    FieldAtPageEnd& operator=(const FieldAtPageEnd&) = delete;
    ~FieldAtPageEnd() { munmap(pages_, 2 * page_); }
    [[nodiscard]] const char* text() const { return field_; }

private:
    std::size_t page_ = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    char* pages_ = nullptr;
    char* field_ = nullptr;
};

TEST(EngineStringBounds, LookAtNothingBehindTheMaximum) {
    const FieldAtPageEnd field("player");
    EXPECT_EQ(EngineString(field.text(), 6).view(), "player");
    EngineString assigned("before");
    assigned.assign(field.text(), 6);
    EXPECT_EQ(assigned.view(), "player");
}

TEST(EngineStringCopy, KeepsNulsWhereAnAssignmentStopsAtTheFirst) {
    const EngineString holdsNul("ab\0cd"sv);
    ASSERT_EQ(holdsNul.length(), 5u);
    const EngineString copy(holdsNul);  // NOLINT(performance-unnecessary-copy-initialization): the copy is the subject
    EXPECT_EQ(copy.length(), 5u);
    EngineString assigned("before");
    assigned = holdsNul;
    EXPECT_EQ(assigned.view(), "ab");
}

TEST(EngineStringAssignment, OfAStringToItselfChangesNothing) {
    EngineString text("abcdef");
    const EngineString& itself = text;
    text = itself;
    EXPECT_EQ(text.view(), "abcdef");
    text.assign(text.cStr() + 2, 3);
    EXPECT_EQ(text.view(), "cde");
}

TEST(EngineStringSum, IsANewStringOfBoth) {
    const EngineString empty;
    EXPECT_STREQ(empty.cStr(), "");
    EXPECT_EQ((empty + "x").view(), "x");
    EXPECT_EQ((empty + "x").length(), 1u);
    EXPECT_EQ((EngineString("12") + "type").view(), "12type");
    EXPECT_EQ(EngineString("abc")[1], 'b');
    EXPECT_NE(EngineString("abc"), EngineString("ABC"));
}

}  // namespace
}  // namespace grub
