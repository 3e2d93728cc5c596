#include "board_samples.h"

#include <array>
#include <optional>

#include "board_looks.h"
#include "button.h"
#include "controls.h"
#include "key_cap.h"

namespace grub {

namespace {

using enum Face;
using enum Align;
using enum Ink;
using enum BoardKind;
using enum ButtonState;

struct BoardRow {
    std::string_view sample;
    Board board;
};
struct ButtonRow {
    std::string_view sample;
    Button button;
};
struct WordsRow {
    std::string_view sample;
    Words words;
};
/// Words with a board as large as they are.
struct SignRow {
    std::string_view sample;
    Words words;
    std::optional<Point> speaker = std::nullopt;
};
struct CapRow {
    std::string_view sample;
    Rect area;
    std::string_view key;
};

// clang-format off
constexpr BoardRow kBoards[] = {
    // sample      kind   area               fastening          mark
    {"answers",   {Tray,  {0, 0, 380, 96}}},
    {"slots",     {Tan,   {0, 0, 300, 86}}},
    {"slots",     {Gold,  {46, 94, 300, 86}, Fastening::None,   Mark::Spoon, 22}},
    {"sliders",   {Paper, {0, 0, 368, 48}}},
    {"sliders",   {Gold,  {0, 56, 368, 48},  Fastening::None,   Mark::Spoon, 30}},
    {"ticks",     {Paper, {0, 0, 368, 64}}},
    {"ticks",     {Gold,  {0, 72, 368, 64},  Fastening::None,   Mark::Spoon, 28}},
    {"hints",     {Hint,  {0, 0, 414, 40}}},
    {"hints",     {Hint,  {11, 50, 392, 64}}},
    {"caps",      {Paper, {0, 0, 400, 112}}},
    {"help",      {Paper, {0, 0, 400, 150}}},
    {"notice",    {Paper, {0, 0, 432, 388},  Fastening::Nails}},
    {"notice",    {Slate, {72, 116, 48, 56}}},
    {"notice",    {Slate, {120, 116, 48, 56}}},
    {"notice",    {Slate, {168, 116, 48, 56}}},
    {"notice",    {Slate, {216, 116, 48, 56}}},
    {"notice",    {Slate, {264, 116, 48, 56}}},
    {"notice",    {Slate, {312, 116, 48, 56}}},
    {"notice",    {Hint,  {20, 282, 392, 94}}},
    {"dialog",    {Paper, {0, 0, 344, 380},  Fastening::Rings}},
    {"end board", {Paper, {0, 26, 580, 120}, Fastening::Chains}},
};

constexpr ButtonRow kButtons[] = {
    // sample    area                 state     mark          area of words        face     size align  ink and board from the state, text
    {"planks",  {{0, 0, 226, 52},     Idle,     Mark::Arrow, {{32, 7, 150, 38},    Display, 26, Centre, {}, {}, "OPTIONS"}}},
    {"planks",  {{0, 58, 226, 52},    Idle,     Mark::Arrow, {{32, 65, 150, 38},   Display, 26, Centre, {}, {}, "HIGH SCORES"}}},
    {"plates",  {{0, 0, 226, 52},     Chosen,   Mark::Arrow, {{32, 7, 150, 38},    Display, 26, Centre, {}, {}, "START"}}},
    {"plates",  {{0, 58, 226, 52},    Chosen,   Mark::Arrow, {{32, 65, 150, 38},   Display, 26, Centre, {}, {}, "HIGH SCORES"}}},
    {"tan",     {{0, 0, 226, 52},     OnItsWay, Mark::Arrow, {{32, 7, 150, 38},    Display, 26, Centre, {}, {}, "LOAD"}}},
    {"tan",     {{0, 58, 226, 52},    OnItsWay, Mark::Arrow, {{32, 65, 150, 38},   Display, 26, Centre, {}, {}, "HIGH SCORES"}}},
    {"answers", {{18, 22, 164, 52},   Chosen,   Mark::Spoon, {{45, 29, 130, 38},   Display, 26, Centre, {}, {}, "QUIETLY"}, false, 28}},
    {"answers", {{198, 22, 164, 52},  Idle,     Mark::Spoon, {{215, 29, 130, 38},  Display, 26, Centre, {}, {}, "NOISILY"}}},
    {"notice",  {{136, 206, 160, 52}, OnItsWay, Mark::None,  {{146, 213, 140, 38}, Display, 26, Centre, {}, {}, "CARVE IT"}, true}},
    {"dialog",  {{58, 66, 228, 52},   Idle,     Mark::Spoon, {{90, 73, 164, 38},   Display, 26, Centre, {}, {}, "DIG ON"}}},
    {"dialog",  {{58, 130, 228, 52},  Chosen,   Mark::Spoon, {{90, 137, 164, 38},  Display, 26, Centre, {}, {}, "SAVE"}}},
    {"dialog",  {{58, 194, 228, 52},  Idle,     Mark::Spoon, {{90, 201, 164, 38},  Display, 26, Centre, {}, {}, "LOAD"}}},
    {"dialog",  {{58, 258, 228, 52},  Idle,     Mark::Spoon, {{90, 265, 164, 38},  Display, 26, Centre, {}, {}, "QUIT"}}},
};

constexpr WordsRow kWords[] = {
    // sample      area                 face   size align    ink     board  text
    {"logo",      {{10, 6, 410, 126},   Display, 96, Centre, Golden, Wall,  "Grubaway"}},
    {"titles",    {{10, 8, 410, 68},    Display, 56, Centre, Golden, Wall,  "HIGH SCORES"}},
    {"titles",    {{10, 88, 410, 68},   Display, 56, Centre, Golden, Wall,  "YOUR NAME"}},
    {"opening",   {{20, 10, 500, 130},  Display, 110, Centre, Golden, Night, "Grubaway"}},
    {"opening",   {{70, 146, 400, 40},  Body,    24, Centre, Cream,  Night, "Fifty doors, one spoon"}},
    {"slots",     {{31, 22, 30, 42},    Display, 34, Centre, Dark,   Tan,   "1"}},
    {"slots",     {{62, 8, 228, 40},    Body,    24, Left,   Dark,   Tan,   "Level 50"}},
    {"slots",     {{62, 46, 228, 30},   Body,    18, Left,   Dark,   Tan,   "08/28/28 08:28:28"}},
    {"slots",     {{77, 116, 30, 42},   Display, 34, Centre, Dark,   Gold,  "2"}},
    {"slots",     {{108, 102, 228, 40}, Body,    24, Left,   Dark,   Gold,  "Level 50"}},
    {"slots",     {{108, 140, 228, 30}, Body,    18, Left,   Dark,   Gold,  "08/28/28 08:28:28"}},
    {"sliders",   {{316, 4, 40, 40},    Display, 34, Centre, Dark,   Paper, "3"}},
    {"sliders",   {{316, 60, 40, 40},   Display, 34, Centre, Dark,   Gold,  "8"}},
    {"ticks",     {{82, 4, 270, 30},    Body,    24, Left,   Dark,   Paper, "Full screen: off"}},
    {"ticks",     {{82, 34, 270, 24},   Body,    18, Left,   Dark,   Paper, "as of the next start"}},
    {"ticks",     {{82, 76, 270, 30},   Body,    24, Left,   Dark,   Gold,  "Full screen: on"}},
    {"ticks",     {{82, 106, 270, 24},  Body,    18, Left,   Dark,   Gold,  "as of the next start"}},
    {"hints",     {{8, 6, 398, 28},     Body,    18, Centre, Dark,   Hint,  "[Enter] new game  [Down] next  [A] leave"}},
    {"hints",     {{21, 54, 372, 56},   Body,    18, Centre, Dark,   Hint,  "[Left] [Right] choose   [Enter] load|"
                                                                            "[Up] [Down] other pages   [A] leave"}},
    {"help",      {{16, 8, 290, 32},    Display, 26, Left,   Dark,   Paper, "Keys and the door"}},
    {"help",      {{306, 12, 82, 26},   Body,    18, Right,  Dark,   Paper, "6 of 12"}},
    {"help",      {{16, 44, 368, 96},   Body,    18, Left,   Dark,   Paper, "Take every key. The last one turns the lamp on "
                                                                            "the door green and brings out hidden ladders. "
                                                                            "Then stand in the door.", true}},
    {"notice",    {{28, 16, 376, 84},   Body,    20, Centre, Dark,   Paper, "The ten best go up on this wall.|"
                                                                            "Six signs, please. Our mason has|"
                                                                            "worn out his A, B and C."}},
    {"notice",    {{72, 116, 48, 56},   Display, 34, Centre, Cream,  Slate, "G"}},
    {"notice",    {{120, 116, 48, 56},  Display, 34, Centre, Cream,  Slate, "R"}},
    {"notice",    {{168, 116, 48, 56},  Display, 34, Centre, Cream,  Slate, "U"}},
    {"notice",    {{30, 288, 372, 82},  Body,    18, Centre, Dark,   Hint,  "[Left] rubs out   [Right] leaves a gap|"
                                                                            "[Enter] carves it, even half a name|"
                                                                            "Mouse: click CARVE IT"}},
    {"dialog",    {{32, 10, 280, 48},   Display, 34, Centre, Dark,   Paper, "TEA BREAK"}},
    {"dialog",    {{10, 324, 324, 50},  Body,    18, Centre, Dark,   Paper, "[Up] [Down] choose  [Enter] do it|"
                                                                            "[Esc] back to the game"}},
    {"end board", {{20, 36, 540, 64},   Display, 56, Centre, Dark,   Paper, "USE THE DOOR!"}},
    {"end board", {{20, 100, 540, 36},  Body,    24, Centre, Dark,   Paper, "The lady has found Grub. Mind the rolling pin."}},
};

constexpr SignRow kSigns[] = {
    // sample   area                 face size align  ink   board    text                                           speaker
    {"speech", {{10, 10, 530, 34},   Body, 20, Centre, Dark, Caption, "Under the prison are the works where its bars are made."}},
    {"speech", {{10, 54, 190, 62},   Body, 20, Centre, Dark, Balloon, "Cherry. No...|plum!"},                     {{60, 160}}},
    {"speech", {{220, 54, 130, 86},  Body, 20, Centre, Dark, Balloon, "One spoon.|One very|long night."},         {{370, 165}}},
    {"speech", {{380, 54, 110, 36},  Body, 20, Centre, Dark, Balloon, "Wuff."},                                   {{412, 122}}},
    {"speech", {{510, 54, 200, 62},  Body, 20, Centre, Dark, Balloon, "Hey! I need those|more than you do!"},     {{745, 140}}},
    {"speech", {{10, 180, 250, 62},  Body, 20, Centre, Dark, Balloon, "Visitors, young man,|use the DOOR."},      {{300, 226}}},
    {"speech", {{330, 200, 170, 36}, Body, 20, Centre, Dark, Balloon, "I have a spoon!"},                         {{350, 168}}},
    {"speech", {{560, 190, 200, 62}, Body, 20, Centre, Dark, Balloon, "Then down|is the new up."},                {{520, 225}}},
    {"speech", {{10, 262, 438, 58},  Body, 20, Centre, Dark, Caption, "Below the works there is a cellar,|"
                                                                      "and behind the cellar it is morning."}},
    {"speech", {{620, 288, 132, 28}, Body, 18, Centre, Dark, Caption, "press any key"}},
};

constexpr CapRow kCaps[] = {
    {"caps", {62, 8, 44, 44},   "Up"},    {"caps", {14, 56, 44, 44},  "Left"}, {"caps", {62, 56, 44, 44},  "Down"},
    {"caps", {110, 56, 44, 44}, "Right"}, {"caps", {180, 56, 44, 44}, "Z"},    {"caps", {228, 56, 44, 44}, "X"},
    {"caps", {290, 56, 96, 44}, "Space"}, {"caps", {290, 8, 60, 44},  "Esc"},
};

constexpr BoardSample kSamples[] = {
    // name     size of the picture
    {"planks",    226, 110}, {"plates",    226, 110}, {"tan",     226, 110}, {"answers", 380,  96},
    {"logo",      430, 140}, {"titles",    430, 164}, {"slots",   346, 180},
    {"sliders",   368, 104}, {"ticks",     368, 136}, {"hints",   414, 114},
    {"notice",    432, 388}, {"dialog",    344, 380}, {"help",    400, 150},
    {"end board", 580, 150}, {"caps",      400, 112},
    {"speech",    780, 330}, {"opening",   540, 190},
};
// clang-format on

/// What no row describes.
void drawControls(Canvas& canvas, std::string_view sample) {
    if (sample == "sliders") {
        for (const auto& [y, value, kind] : {std::tuple{0, 3, Paper}, std::tuple{56, 8, Gold}}) {
            const Rect groove{64, y + 3.0, 224, 40};
            drawGroove(canvas, groove, 9);
            drawKnob(canvas, {knobX(groove, 9, value), groove.centre().y});
            drawDigitPlate(canvas, {318, y + 7.0, 36, 32}, kind);
        }
    }
    if (sample == "ticks") {
        drawTickBox(canvas, {38, 15, 32, 32}, false);
        drawTickBox(canvas, {38, 87, 32, 32}, true);
    }
    if (sample == "opening") canvas.flat(Rect{0, 0, 540, 190}.path(), groundOf(Night));
}

}  // namespace

std::span<const BoardSample> boardSamples() { return kSamples; }

Fit drawSample(Canvas& canvas, const BoardSample& sample) {
    const auto wanted = [&sample](const auto& row) { return row.sample == sample.name; };
    Fit fit;
    for (const BoardRow& row : kBoards) {
        if (wanted(row)) drawBoard(canvas, row.board);
    }
    drawControls(canvas, sample.name);
    for (const ButtonRow& row : kButtons) {
        if (wanted(row)) fit.add(drawButton(canvas, row.button));
    }
    for (const WordsRow& row : kWords) {
        if (wanted(row)) fit.add(drawWords(canvas, row.words));
    }
    for (const SignRow& row : kSigns) {
        if (wanted(row)) fit.add(drawSign(canvas, row.words, row.speaker));
    }
    for (const CapRow& row : kCaps) {
        if (wanted(row)) drawKeyCap(canvas, row.area, Font(Body, 24), row.key);
    }
    return fit;
}

}  // namespace grub
