#include "label_pictures.h"

#include <algorithm>
#include <array>
#include <string>

#include "loading_list.h"
#include "pixel_alphabet.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr int kLabelWidth = 64;

/// The first row whose start a name has counts.
struct FamilyColour {
    std::string_view start;
    Rgb colour;
};
constexpr std::array kFamilyColours{
    FamilyColour{"steny\\", rgb(0x3b4468)},   FamilyColour{"sten_jel\\", rgb(0x35505a)},
    FamilyColour{"fon\\", rgb(0x4a4a66)},     FamilyColour{"poly\\", rgb(0x7a5a4c)},
    FamilyColour{"jelezo\\", rgb(0x6e5a50)},  FamilyColour{"lesenki\\", rgb(0x7d6640)},
    FamilyColour{"trubi\\", rgb(0x7a5c3e)},   FamilyColour{"trubproz\\", rgb(0x6a6048)},
    FamilyColour{"provoda\\", rgb(0x505a50)}, FamilyColour{"dveri\\", rgb(0x64506e)},
    FamilyColour{"bonuses\\", rgb(0x80682c)}, FamilyColour{"", rgb(0x5c5c68)},
};

/// How many pictures a strip has until it is drawn; other files have one.
struct StripLength {
    std::string_view start;
    int frames;
};
constexpr std::array kStripLengths{
    StripLength{"polkan\\", 8},
    StripLength{"tetka\\", 8},
    StripLength{"rat\\", 8},
    StripLength{"led\\", 8},
    StripLength{"bonuses\\animation", 12},
    StripLength{"jelezo\\animation", 8},
    StripLength{"dveri\\animation", 10},
    StripLength{"", 1},
};

template <class Row, std::size_t N>
const Row& rowOf(const std::array<Row, N>& rows, std::string_view name) {
    return *std::find_if(rows.begin(), rows.end(), [name](const Row& row) { return name.starts_with(row.start); });
}

/// The longest start of the text that fits into a line; it ends after an underline or a hyphen where it can.
std::string_view firstLine(std::string_view text, std::size_t letters) {
    if (text.size() <= letters) return text;
    const std::size_t end = text.substr(0, letters).find_last_of("_-");
    return text.substr(0, end == std::string_view::npos ? letters : end + 1);
}

/// A line of text in the middle between left and right.
void writeLine(Canvas& canvas, int y, std::string_view text, Rgb colour) {
    const int width = static_cast<int>(text.size()) * kLetterAdvance - 1;
    const int x = (kLabelWidth - width) / 2;  // whole pixels, or the letters blur
    canvas.flat(pixelText({static_cast<double>(x), static_cast<double>(y)}, text), colour);
}

void drawLabel(Canvas& canvas, FrameOf frame) {
    const Point size = canvas.size();
    const Rgb colour = rowOf(kFamilyColours, frame.name).colour;
    canvas.flat(rectangle(1, 1, size.x - 2, size.y - 2, 3), mix(colour, kInk, 0.5F));
    canvas.flat(rectangle(2, 2, size.x - 4, size.y - 4, 2), colour);
    constexpr std::size_t kLetters = (kLabelWidth - 4) / kLetterAdvance;
    int y = size.y < 24 ? 4 : 7;
    for (std::string_view rest = frame.name.substr(frame.name.rfind('\\') + 1); !rest.empty();) {
        const std::string_view line = firstLine(rest, kLetters);
        writeLine(canvas, y, line, rgb(0xfff1d6));
        rest.remove_prefix(line.size());
        y += kLineAdvance;
    }
    if (frame.count == 1) return;
    const std::string number = std::to_string(frame.index + 1) + "/" + std::to_string(frame.count);
    writeLine(canvas, static_cast<int>(size.y) - 6 - kLetterHeight, number, rgb(0xffc93a));
}

}  // namespace

std::vector<PictureEntry> labelsBeside(std::span<const PictureEntry> drawn) {
    std::vector<PictureEntry> labels;
    const auto named = [](const auto& entries, std::string_view name) {
        return std::any_of(entries.begin(), entries.end(), [name](const auto& entry) { return entry.name == name; });
    };
    for (const LoadEntry& file : loadingList()) {
        if (named(drawn, file.stem) || named(labels, file.stem)) continue;
        const int frames = rowOf(kStripLengths, file.stem).frames;
        labels.push_back({file.stem, kLabelWidth, file.frameHeight, frames, Ground::Clear, drawLabel});
    }
    return labels;
}

bool isLabel(const PictureEntry& entry) { return entry.draw == drawLabel; }

}  // namespace grub
