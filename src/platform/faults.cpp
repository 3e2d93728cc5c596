#include "faults.h"

#include <array>
#include <atomic>
#include <cstddef>

namespace platform {
namespace {

constexpr int kNeverFails = -1;

/// How many more times each call succeeds; kNeverFails where no test interferes.
std::atomic<int>& successesLeft(testing::Call call) {
    static auto* left = [] {
        auto* counts = new std::array<std::atomic<int>, 7>;
        for (auto& count : *counts) count = kNeverFails;
        return counts;
    }();
    return (*left)[static_cast<std::size_t>(call)];
}

}  // namespace

bool callFails(testing::Call call) {
    auto& left = successesLeft(call);
    int now = left.load();
    while (now > 0 && !left.compare_exchange_weak(now, now - 1)) {
    }
    return now == 0;
}

testing::FailingCall::FailingCall(Call call, int successes) : call_(call) { successesLeft(call) = successes; }

testing::FailingCall::~FailingCall() { successesLeft(call_) = kNeverFails; }

}  // namespace platform
