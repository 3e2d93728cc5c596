#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "run_grubtool.h"

namespace grub {

/// What a call of grubtool gave.
struct GrubtoolRun {
    int exitCode = 0;
    std::string out;
    std::string errors;

    /// Whether it failed with this exit code and one line on standard error that holds `text`.
    [[nodiscard]] testing::AssertionResult failed(int code, std::string_view text) const {
        const bool isOne = std::ranges::count(errors, '\n') == 1 && errors.find(text) != std::string::npos;
        if (exitCode == code && isOne) return testing::AssertionSuccess();
        return testing::AssertionFailure() << "exit code " << exitCode << ", said: " << errors << "wanted: " << text;
    }
};

/// Runs grubtool on these words.
inline GrubtoolRun grubtool(std::vector<std::string> words) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    GrubtoolRun run;
    run.exitCode = runGrubtool(std::move(words));
    run.out = testing::internal::GetCapturedStdout();
    run.errors = testing::internal::GetCapturedStderr();
    return run;
}

}  // namespace grub
