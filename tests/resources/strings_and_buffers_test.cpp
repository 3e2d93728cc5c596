#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <thread>

#include "engine_string.h"
#include "shared_buffer.h"

namespace grub {
namespace {

using namespace std::string_view_literals;

TEST(EngineString, TakesAtMostWhatItIsAskedFor) {
    const EngineString source("abcdef");
    EXPECT_EQ(EngineString("abcdef", 3).view(), "abc");
    EXPECT_EQ(EngineString("abc", 9).view(), "abc");
    EXPECT_EQ(EngineString(source, 1, 2).view(), "bc");
    EXPECT_EQ(EngineString(source, 4, 10).view(), "ef");
    EXPECT_EQ(EngineString(source, 6, 1).view(), "");
    EXPECT_EQ(EngineString(source, 0xFFFFFFFF, 0xFFFFFFFF).view(), "");
}

/// Six bytes at the very end of readable memory, with no NUL behind them.
class FieldAtPageEnd {
public:
    explicit FieldAtPageEnd(std::string_view bytes)
        : pages_(
              static_cast<char*>(mmap(nullptr, 2 * page_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))),
          field_(pages_ + page_ - bytes.size()) {
        mprotect(pages_ + page_, page_, PROT_NONE);
        std::memcpy(field_, bytes.data(), bytes.size());
    }
    FieldAtPageEnd(const FieldAtPageEnd&) = delete;
    FieldAtPageEnd& operator=(const FieldAtPageEnd&) = delete;
    ~FieldAtPageEnd() { munmap(pages_, 2 * page_); }
    [[nodiscard]] const char* text() const { return field_; }

private:
    std::size_t page_ = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    char* pages_;
    char* field_;
};

TEST(EngineString, ReadsNothingBehindTheMaximum) {
    const FieldAtPageEnd field("player");
    EXPECT_EQ(EngineString(field.text(), 6).view(), "player");
    EngineString assigned("before");
    assigned.assign(field.text(), 6);
    EXPECT_EQ(assigned.view(), "player");
}

TEST(EngineString, KeepsNulsInACopyAndStopsAtTheFirstInAnAssignment) {
    const EngineString holdsNul("ab\0cd"sv);
    const EngineString copy(holdsNul);  // NOLINT(performance-unnecessary-copy-initialization): the copy is the subject
    EXPECT_EQ(copy.length(), 5u);
    EngineString assigned("before");
    assigned = holdsNul;
    EXPECT_EQ(assigned.view(), "ab");
    EXPECT_EQ((EngineString() + holdsNul + "x").length(), 6u);
}

TEST(EngineString, CanBeAssignedAPieceOfItself) {
    EngineString text("abcdef");
    const EngineString& itself = text;
    text = itself;
    EXPECT_EQ(text.view(), "abcdef");
    text.assign(text.cStr() + 2, 3);
    EXPECT_EQ(text.view(), "cde");
}

TEST(SharedBuffer, WithoutBytesIsNotTheEmptyBuffer) {
    EXPECT_TRUE(SharedBuffer().empty());
    const SharedBuffer withoutBytes = SharedBuffer::create(0);
    EXPECT_FALSE(withoutBytes.empty());
    EXPECT_EQ(withoutBytes.size(), 0u);
}

/// Bytes that this process has from malloc; does not change under a sanitizer, which looks for leaks itself.
std::size_t bytesInUse() {
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

TEST(SharedBuffer, LivesUntilItsLastCopyAndNoLonger) {
    const std::size_t before = bytesInUse();
    for (int i = 0; i < 100; ++i) {
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
    EXPECT_LT(bytesInUse(), before + 20 * 1000) << "malloc keeps a few freed blocks, but not the 100 of leaked buffers";
}

TEST(SharedBuffer, CanBeCopiedInSeveralThreads) {
    constexpr int kRounds = 20000;
    SharedBuffer shared = SharedBuffer::create(1);
    shared.writableData()[0] = 9;
    int sums[2] = {0, 0};
    const auto copyOften = [copy = shared](int& sum) {
        for (int i = 0; i < kRounds; ++i) {
            SharedBuffer another;
            another = copy;
            sum += another.bytes()[0];
        }
    };
    std::thread one(copyOften, std::ref(sums[0]));
    std::thread two(copyOften, std::ref(sums[1]));
    shared.release();
    one.join();
    two.join();
    EXPECT_EQ(sums[0], 9 * kRounds);
    EXPECT_EQ(sums[1], 9 * kRounds);
}

}  // namespace
}  // namespace grub
