#pragma once

#include <string>

#include "testing.h"

namespace platform {

/// Writes a picture as an RGB PNG. False after one line on standard error.
bool writePng(const std::string& path, const testing::Picture& picture);

}  // namespace platform
