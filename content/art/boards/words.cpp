#include "words.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "board_looks.h"
#include "key_cap.h"
#include "title.h"

namespace grub {

namespace {

/// What must stay free inside a caption or a balloon.
constexpr double kSpareX = 8;
constexpr double kSpareY = 4;

/// Two caps below one another do not touch.
constexpr double kCapPitch = kCapHeight + 2;

/// Boards are darker along their lower edge, so their middle seems to lie this much higher.
constexpr double kBoardLift = 1;

/// Letters below the baseline count for so much, in ems, when a sentence is centred: it looks centred then.
constexpr double kVisualDepth = 0.05;

/// A piece of a line: letters, or what a cap bears.
struct Run {
    bool cap;
    std::string_view text;
};

/// Brackets that do not close are letters.
std::vector<Run> runsOf(std::string_view line) {
    std::vector<Run> runs;
    while (!line.empty()) {
        const std::size_t open = line.find('[');
        const std::size_t close = open == std::string_view::npos ? open : line.find(']', open);
        if (close == std::string_view::npos) {
            runs.push_back({false, line});
            break;
        }
        if (open > 0) runs.push_back({false, line.substr(0, open)});
        runs.push_back({true, line.substr(open + 1, close - open - 1)});
        line.remove_prefix(close + 1);
    }
    return runs;
}

double widthOf(const Font& font, const Run& run) {
    return run.cap ? keyCapWidth(font, run.text) : font.width(run.text);
}

double widthOf(const Font& font, std::string_view line) {
    double sum = 0;
    for (const Run& run : runsOf(line)) sum += widthOf(font, run);
    return sum;
}

std::vector<std::string> linesOf(const Font& font, const Words& words) {
    std::string text(words.text);
    std::ranges::replace(text, '|', '\n');
    return font.wrapped(text, words.flowing ? words.area.width : HUGE_VAL);
}

/// How the lines of some words stand one below the other.
struct Block {
    std::vector<std::string> lines;
    bool caps;
    double pitch;
    /// From the upper edge to the first baseline, and from the last baseline to the lower edge.
    double rise;
    double depth;
    double longest;

    double height() const { return rise + depth + pitch * static_cast<double>(lines.size() - 1); }
};

Block blockOf(const Font& font, const Words& words) {
    Block block{
        linesOf(font, words), words.text.find('[') != std::string_view::npos, font.pitch(), font.capHeight(), 0, 0};
    if (block.caps) {
        block.pitch = std::max(block.pitch, kCapPitch);
        block.rise = font.capHeight() / 2 + kCapFaceMiddle;
    }
    for (const std::string& line : block.lines) block.longest = std::max(block.longest, widthOf(font, line));
    block.depth = block.caps ? kCapHeight - block.rise : font.depth(block.lines.back());
    return block;
}

double firstBaseline(const Font& font, const Words& words, const Block& block) {
    if (words.flowing) return std::round(words.area.y + block.rise);
    const double visualDepth = block.caps ? block.depth : block.depth > 0 ? kVisualDepth * font.size() : 0;
    const double height = block.height() - block.depth + visualDepth;
    const bool onBoard = words.board != BoardKind::Wall && words.board != BoardKind::Night;
    return std::round(words.area.centre().y - (onBoard ? kBoardLift : 0) - height / 2 + block.rise);
}

Fit fitOf(const Font& font, const Words& words, const Block& block) {
    const bool framed = words.board == BoardKind::Caption || words.board == BoardKind::Balloon;
    std::string letters;
    for (const std::string& line : block.lines) letters += line;
    return {std::max(0.0, block.longest - (words.area.width - (framed ? 2 * kSpareX : 0))),
            std::max(0.0, block.height() - (words.area.height - (framed ? 2 * kSpareY : 0))), font.missing(letters)};
}

/// Letters of one line in their ink.
void drawLetters(Canvas& canvas, const VectorPath& letters, const Words& words) {
    if (words.ink == Ink::Dark) {
        const bool cut = words.board == BoardKind::Gold || words.board == BoardKind::Tan;
        if (cut) {
            const auto lower = canvas.placed({0, 1.1});
            canvas.flat(letters, words.board == BoardKind::Gold ? kGoldPlate.light : kTanWood.light, {.alpha = 0.75F});
        }
        canvas.flat(letters, kBoardInk);
        return;
    }
    const Material cream = boardMaterial(0xfff1cf, 0xe2b878, 0xffffff, 0.2F, 0.1F, 0, 0);
    canvas.part(letters, cream, {.bevel = words.size * 0.06, .line = 0.9, .shadow = 0.55F});
}

double startOf(const Words& words, double width) {
    return std::round(words.area.x + (words.area.width - width) * shareBefore(words.align));
}

void drawLine(Canvas& canvas, const Font& font, const Words& words, std::string_view line, double baseline) {
    double pen = startOf(words, widthOf(font, line));
    for (const Run& run : runsOf(line)) {
        const double width = widthOf(font, run);
        const double top = baseline - std::round(font.capHeight() / 2 + kCapFaceMiddle);
        if (run.cap) {
            drawKeyCap(canvas, {pen, top, width, kCapHeight}, font, run.text);
        } else {
            drawLetters(canvas, font.line(run.text, {pen, baseline}), words);
        }
        pen += width;
    }
}

}  // namespace

void Fit::add(const Fit& other) {
    tooWide = std::max(tooWide, other.tooWide);
    tooHigh = std::max(tooHigh, other.tooHigh);
    missing += other.missing;
}

Fit drawWords(Canvas& canvas, const Words& words) {
    if (words.ink == Ink::Golden) return drawTitle(canvas, words);
    const Font font(words.face, words.size);
    const Block block = blockOf(font, words);
    double baseline = firstBaseline(font, words, block);
    for (const std::string& line : block.lines) {
        drawLine(canvas, font, words, line, baseline);
        baseline += block.pitch;
    }
    return fitOf(font, words, block);
}

Fit drawSign(Canvas& canvas, const Words& words, std::optional<Point> speaker) {
    drawBoard(canvas, {.kind = words.board, .area = words.area, .speaker = speaker});
    return drawWords(canvas, words);
}

}  // namespace grub
