#include "save_slots.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "bytes.h"
#include "control/call_controls.h"
#include "scratch_directory.h"

namespace grub {
namespace {

namespace fs = std::filesystem;
using platform::Call;
using platform::testing::CallControls;
using platform::testing::FailingCall;
using testing::AnyOf;
using testing::ElementsAre;

constexpr GameProgress kOld{.levelIndex = 7, .lives = 3, .score = 66'000};
constexpr GameProgress kNew{.levelIndex = 49, .lives = 1, .score = 0};

Bytes oldFile() {
    std::tm time{};
    ::strptime("2004-03-07 09:05:03", "%F %T", &time);
    const auto bytes = slotBytes(kOld, time);
    return {bytes.begin(), bytes.end()};
}

class Slots : public testing::Test {
protected:
    void SetUp() override { fs::current_path(scratch_.path()); }
    void TearDown() override { fs::current_path(before_); }

    ScratchDirectory scratch_;
    fs::path before_ = fs::current_path();
    SaveSlots slots_;
};

TEST_F(Slots, KeepNumbersTimeAndDate) {
    Bytes expected;
    append(expected, {{7, 4}, {3, 4}, {66'000, 4}});
    for (const std::string text : {"09:05:03", "03/07/04"})
        std::ranges::copy(text + std::string(12, '\0'), std::back_inserter(expected));
    EXPECT_EQ(oldFile(), expected);
}

TEST_F(Slots, AreLabelledWithLevelAndLocalTime) {
    ::setenv("TZ", "IST-5:30", 1);
    const auto indianTime = [] {
        const std::time_t ahead = std::time(nullptr) + 19'800;
        char text[20];
        return std::string(text, std::strftime(text, sizeof text, "%m/%d/%y %H:%M:%S", std::gmtime(&ahead)));
    };
    const std::string before = indianTime();
    EXPECT_TRUE(slots_.saveGame(2, kOld));
    slots_.refreshSlotInfo();
    EXPECT_EQ(slots_.info(2).levelLabel.view(), "Level 8");
    EXPECT_THAT(slots_.info(2).dateTimeLabel.cStr(), AnyOf(before, indianTime()));
    EXPECT_FALSE(slots_.info(1).exists);
}

TEST_F(Slots, AreEmptyWhenPlayCannotHaveWrittenThem) {
    struct Damage {
        const char* what;
        bool isStillGood;
        void (*make)(Bytes&);
    };
    for (const Damage& damage : {
             Damage{"none", true, [](Bytes&) {}},
             {"more bytes", true, [](Bytes& b) { b.push_back(1); }},
             {"bytes behind the texts", true, [](Bytes& b) { b[21] = b[51] = 'x'; }},
             {"a byte short", false, [](Bytes& b) { b.pop_back(); }},
             {"level -1", false, [](Bytes& b) { put(b, 0, 0xFFFFFFFF, 4); }},
             {"level 50", false, [](Bytes& b) { put(b, 0, 50, 4); }},
             {"no life", false, [](Bytes& b) { put(b, 4, 0, 4); }},
             {"lives that cannot grow", false, [](Bytes& b) { put(b, 4, 0x7FFFFFFF, 4); }},
             {"score -1", false, [](Bytes& b) { put(b, 8, 0xFFFFFFFF, 4); }},
             {"a score that cannot grow", false, [](Bytes& b) { put(b, 8, 0x7FFFFFFF, 4); }},
             {"a time without an end", false, [](Bytes& b) { std::fill_n(&b[20], 12, '0'); }},
             {"a short time", false, [](Bytes& b) { b[19] = 0; }},
             {"a letter in the time", false, [](Bytes& b) { b[19] = 'x'; }},
             {"a date with colons", false, [](Bytes& b) { b[34] = b[37] = ':'; }},
         }) {
        SCOPED_TRACE(damage.what);
        Bytes bytes = oldFile();
        damage.make(bytes);
        scratch_.write("slot1.sav", bytes);
        slots_.refreshSlotInfo();
        EXPECT_EQ(slots_.info(1).exists, damage.isStillGood);
        EXPECT_EQ(slots_.loadGame(1), damage.isStillGood ? std::optional(kOld) : std::nullopt);
    }
    fs::create_directory("slot0.sav");
    fs::create_symlink("/proc/self/mem", "slot2.sav");  // it opens, but its first bytes cannot be read
    for (const int slot : {0, 2}) EXPECT_EQ(slots_.loadGame(slot), std::nullopt);
}

/// Ends the process in the place of a call.
struct KillingCall : CallControls {
    explicit KillingCall(Call at) {
        observe([at](Call call, DWORD) { return call == at ? ::raise(SIGKILL) : S_OK; });
    }
};

TEST_F(Slots, HoldTheOldGameUntilTheNewOneIsOnTheDisk) {
    const auto save = [&] { return slots_.saveGame(1, kNew); };
    const auto expectOldGame = [&](bool isKilled, const std::function<bool()>& stoppedSave) {
        EXPECT_TRUE(slots_.saveGame(1, kOld)) << "over what the stop before has left";
        const pid_t child = ::fork();
        if (child == 0) ::_exit(stoppedSave() ? 1 : 0);
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(isKilled ? WIFSIGNALED(status) : status == 0 && !fs::exists("slot1.sav.new"));
        EXPECT_EQ(slots_.loadGame(1), kOld);
    };
    const auto fullDisk = [&](auto whenFull) {
        const rlimit part{20, 20};  // bytes that a file can have
        ::setrlimit(RLIMIT_FSIZE, &part);
        std::signal(SIGXFSZ, whenFull);
        return save();
    };
    std::vector<Call> calls;
    const CallControls record;
    EXPECT_TRUE(save());
    for (const auto& call : record.calls()) calls.push_back(call.function);
    EXPECT_THAT(calls, ElementsAre(Call::CreateFile, Call::WriteFile, Call::FlushFile, Call::MoveFile));
    for (const Call call : calls) {
        SCOPED_TRACE(static_cast<int>(call));
        expectOldGame(false, [&] { return FailingCall(call), save(); });
        expectOldGame(true, [&] { return KillingCall(call), save(); });
    }
    expectOldGame(false, [&] { return fullDisk(SIG_IGN); });
    expectOldGame(true, [&] { return fullDisk(SIG_DFL); });
    EXPECT_TRUE(save());
    EXPECT_EQ(slots_.loadGame(1), kNew);
}

}  // namespace
}  // namespace grub
