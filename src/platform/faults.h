#pragma once

#include "testing.h"

namespace platform {

/// Whether a test wants this call to fail now. Asked once for each call.
[[nodiscard]] bool callFails(testing::Call call);

}  // namespace platform
