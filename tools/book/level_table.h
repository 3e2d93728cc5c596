#pragma once

#include <string>
#include <vector>

#include "book_level.h"

namespace grub {

/// The document with the table of all levels. Each world that has a recorded win shows its curve, NAME-WORLD.png, where
/// NAME is the document's own name.
[[nodiscard]] std::string levelTable(const std::vector<BookLevel>& book, const std::string& name);

/// Where a document's curve of a world lies, seen from the document.
[[nodiscard]] std::string curveFile(const std::string& name, std::string_view world);

/// The words that stand above a world's curve and table.
[[nodiscard]] std::string worldTitle(std::string_view world);

}  // namespace grub
