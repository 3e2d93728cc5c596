#include "board_samples.h"

#include <array>

#include "board_looks.h"
#include "button.h"
#include "controls.h"
#include "key_cap.h"

namespace grub {

namespace {

// ---- buttons, slots and strips

Fit columnOf(Canvas& canvas, ButtonState state, std::string_view first, std::string_view second) {
    Fit fit;
    double y = 0;
    for (const std::string_view text : {first, second}) {
        fit.add(drawButton(
            canvas,
            {.area = {0, y, 226, 52},
             .state = state,
             .mark = Mark::Arrow,
             .words = {{32, y + 7, 150, 38}, Face::Display, 26, Align::Centre, Ink::Dark, BoardKind::Paper, text}}));
        y += 58;
    }
    return fit;
}

Fit planks(Canvas& canvas) { return columnOf(canvas, ButtonState::Idle, "OPTIONS", "HIGH SCORES"); }
Fit goldPlates(Canvas& canvas) { return columnOf(canvas, ButtonState::Chosen, "START", "HIGH SCORES"); }
Fit tanBoards(Canvas& canvas) { return columnOf(canvas, ButtonState::OnItsWay, "LOAD", "HIGH SCORES"); }

Fit answers(Canvas& canvas) {
    drawBoard(canvas, {.kind = BoardKind::Tray, .area = {0, 0, 380, 96}});
    Fit fit;
    const struct {
        double x;
        ButtonState state;
        std::string_view text;
    } buttons[] = {{18, ButtonState::Chosen, "QUIETLY"}, {198, ButtonState::Idle, "NOISILY"}};
    for (const auto& b : buttons) {
        fit.add(drawButton(
            canvas,
            {.area = {b.x, 22, 164, 52},
             .state = b.state,
             .mark = Mark::Spoon,
             .words = {
                 {b.x + 24, 29, 130, 38}, Face::Display, 26, Align::Centre, Ink::Dark, BoardKind::Paper, b.text}}));
    }
    return fit;
}

Fit slots(Canvas& canvas) {
    Fit fit;
    const struct {
        double x;
        double y;
        BoardKind kind;
        std::string_view digit;
    } plates[] = {{0, 0, BoardKind::Tan, "1"}, {46, 94, BoardKind::Gold, "2"}};
    for (const auto& p : plates) {
        drawBoard(canvas, {.kind = p.kind,
                           .area = {p.x, p.y, 300, 86},
                           .mark = p.kind == BoardKind::Gold ? Mark::Spoon : Mark::None});
        const Rect digit{p.x + 18, p.y + 22, 34, 42};
        fit.add(drawWords(canvas, {digit, Face::Display, 34, Align::Centre, Ink::Dark, p.kind, p.digit}));
        fit.add(drawWords(canvas,
                          {{p.x + 62, p.y + 8, 228, 40}, Face::Body, 24, Align::Left, Ink::Dark, p.kind, "Level 50"}));
        fit.add(drawWords(
            canvas,
            {{p.x + 62, p.y + 46, 228, 30}, Face::Body, 18, Align::Left, Ink::Dark, p.kind, "08/28/28 08:28:28"}));
    }
    return fit;
}

Fit sliders(Canvas& canvas) {
    Fit fit;
    for (const double y : {0.0, 56.0}) {
        const BoardKind kind = y > 0 ? BoardKind::Gold : BoardKind::Paper;
        drawBoard(canvas, {.kind = kind, .area = {0, y, 368, 48}, .mark = y > 0 ? Mark::Spoon : Mark::None});
        const Rect groove{64, y + 3, 224, 40};
        drawGroove(canvas, groove, 9);
        drawKnob(canvas, {knobX(groove, 9, y > 0 ? 8 : 3), groove.centre().y});
        const Rect digit{316, y + 4, 40, 40};
        drawDigitPlate(canvas, digit.inset(2, 4).moved({0, -1}), kind);
        fit.add(drawWords(canvas, {digit, Face::Display, 34, Align::Centre, Ink::Dark, kind, y > 0 ? "8" : "3"}));
    }
    return fit;
}

Fit tickBoxes(Canvas& canvas) {
    Fit fit;
    for (const double y : {0.0, 72.0}) {
        const BoardKind kind = y > 0 ? BoardKind::Gold : BoardKind::Paper;
        drawBoard(canvas, {.kind = kind, .area = {0, y, 368, 64}, .mark = y > 0 ? Mark::Spoon : Mark::None});
        drawTickBox(canvas, {38, y + 15, 32, 32}, y > 0);
        fit.add(drawWords(canvas, {{82, y + 4, 270, 30},
                                   Face::Body,
                                   24,
                                   Align::Left,
                                   Ink::Dark,
                                   kind,
                                   y > 0 ? "Full screen: on" : "Full screen: off"}));
        fit.add(drawWords(
            canvas, {{82, y + 34, 270, 24}, Face::Body, 18, Align::Left, Ink::Dark, kind, "as of the next start"}));
    }
    return fit;
}

// ---- notices

Fit notice(Canvas& canvas) {
    drawBoard(canvas, {.kind = BoardKind::Paper, .area = {0, 0, 432, 388}, .fastening = Fastening::Nails});
    Fit fit = drawWords(canvas, {{28, 16, 376, 84},
                                 Face::Body,
                                 20,
                                 Align::Centre,
                                 Ink::Dark,
                                 BoardKind::Paper,
                                 "The ten best go up on this wall.|"
                                 "Six signs, please. Our mason has|worn out his A, B and C."});
    for (int i = 0; i < 6; ++i) {
        const Rect cell{72.0 + 48 * i, 116, 48, 56};
        drawBoard(canvas, {.kind = BoardKind::Slate, .area = cell});
        fit.add(drawWords(canvas, {cell, Face::Display, 34, Align::Centre, Ink::Cream, BoardKind::Slate,
                                   std::string_view("GRU 7 ").substr(static_cast<std::size_t>(i), 1)}));
    }
    fit.add(drawButton(
        canvas,
        {.area = {136, 206, 160, 52},
         .state = ButtonState::OnItsWay,
         .words = {{146, 213, 140, 38}, Face::Display, 26, Align::Centre, Ink::Dark, BoardKind::Paper, "CARVE IT"},
         .held = true}));
    drawBoard(canvas, {.kind = BoardKind::Hint, .area = {20, 282, 392, 94}});
    fit.add(drawWords(canvas, {{30, 288, 372, 82},
                               Face::Body,
                               18,
                               Align::Centre,
                               Ink::Dark,
                               BoardKind::Hint,
                               "[Left] rubs out   [Right] leaves a gap|[Enter] carves it, even half a name|"
                               "Mouse: click CARVE IT"}));
    return fit;
}

Fit dialog(Canvas& canvas) {
    drawBoard(canvas, {.kind = BoardKind::Paper, .area = {0, 0, 344, 380}, .fastening = Fastening::Rings});
    Fit fit = drawWords(
        canvas, {{32, 10, 280, 48}, Face::Display, 34, Align::Centre, Ink::Dark, BoardKind::Paper, "TEA BREAK"});
    double y = 66;
    for (const std::string_view text : {"DIG ON", "SAVE", "LOAD", "QUIT"}) {
        fit.add(drawButton(
            canvas,
            {.area = {58, y, 228, 52},
             .state = text == "SAVE" ? ButtonState::Chosen : ButtonState::Idle,
             .mark = Mark::Spoon,
             .words = {{90, y + 7, 164, 38}, Face::Display, 26, Align::Centre, Ink::Dark, BoardKind::Paper, text}}));
        y += 64;
    }
    fit.add(drawWords(canvas, {{10, 324, 324, 50},
                               Face::Body,
                               18,
                               Align::Centre,
                               Ink::Dark,
                               BoardKind::Paper,
                               "[Up] [Down] choose  [Enter] do it|[Esc] back to the game"}));
    return fit;
}

Fit endBoard(Canvas& canvas) {
    drawBoard(canvas, {.kind = BoardKind::Paper, .area = {0, 26, 580, 120}, .fastening = Fastening::Chains});
    Fit fit = drawWords(
        canvas, {{20, 36, 540, 64}, Face::Display, 56, Align::Centre, Ink::Dark, BoardKind::Paper, "USE THE DOOR!"});
    fit.add(drawWords(canvas, {{20, 100, 540, 36},
                               Face::Body,
                               24,
                               Align::Centre,
                               Ink::Dark,
                               BoardKind::Paper,
                               "The lady has found Grub. Mind the rolling pin."}));
    return fit;
}

Fit helpText(Canvas& canvas) {
    drawBoard(canvas, {.kind = BoardKind::Paper, .area = {0, 0, 400, 150}});
    Fit fit = drawWords(
        canvas, {{16, 8, 290, 32}, Face::Display, 26, Align::Left, Ink::Dark, BoardKind::Paper, "Keys and the door"});
    fit.add(
        drawWords(canvas, {{306, 12, 82, 26}, Face::Body, 18, Align::Right, Ink::Dark, BoardKind::Paper, "6 of 12"}));
    fit.add(drawWords(canvas, {{16, 44, 368, 96},
                               Face::Body,
                               18,
                               Align::Left,
                               Ink::Dark,
                               BoardKind::Paper,
                               "Take every key. The last one turns the lamp on the door green and brings out hidden "
                               "ladders. Then stand in the door.",
                               true}));
    return fit;
}

Fit hints(Canvas& canvas) {
    drawBoard(canvas, {.kind = BoardKind::Hint, .area = {0, 0, 414, 40}});
    Fit fit = drawWords(canvas, {{8, 6, 398, 28},
                                 Face::Body,
                                 18,
                                 Align::Centre,
                                 Ink::Dark,
                                 BoardKind::Hint,
                                 "[Enter] new game  [Down] next  [A] leave"});
    drawBoard(canvas, {.kind = BoardKind::Hint, .area = {11, 50, 392, 64}});
    fit.add(drawWords(canvas, {{21, 54, 372, 56},
                               Face::Body,
                               18,
                               Align::Centre,
                               Ink::Dark,
                               BoardKind::Hint,
                               "[Left] [Right] choose   [Enter] load|[Up] [Down] other pages   [A] leave"}));
    return fit;
}

Fit bigCaps(Canvas& canvas) {
    drawBoard(canvas, {.kind = BoardKind::Paper, .area = {0, 0, 400, 112}});
    const struct {
        Rect area;
        std::string_view key;
    } caps[] = {{{62, 8, 44, 44}, "Up"},      {{14, 56, 44, 44}, "Left"}, {{62, 56, 44, 44}, "Down"},
                {{110, 56, 44, 44}, "Right"}, {{180, 56, 44, 44}, "Z"},   {{228, 56, 44, 44}, "X"},
                {{290, 56, 96, 44}, "Space"}, {{290, 8, 60, 44}, "Esc"}};
    const Font font(Face::Body, 24);
    for (const auto& cap : caps) drawKeyCap(canvas, cap.area, font, cap.key);
    return {};
}

// ---- comics

Fit speech(Canvas& canvas) {
    const struct {
        Rect area;
        BoardKind board;
        std::string_view text;
        Point speaker;
    } rows[] = {
        {{10, 10, 530, 34}, BoardKind::Caption, "Under the prison are the works where its bars are made.", {}},
        {{10, 54, 190, 62}, BoardKind::Balloon, "Cherry. No...|plum!", {60, 160}},
        {{220, 54, 130, 86}, BoardKind::Balloon, "One spoon.|One very|long night.", {370, 165}},
        {{380, 54, 110, 36}, BoardKind::Balloon, "Wuff.", {412, 122}},
        {{510, 54, 200, 62}, BoardKind::Balloon, "Hey! I need those|more than you do!", {745, 140}},
        {{10, 180, 250, 62}, BoardKind::Balloon, "Visitors, young man,|use the DOOR.", {300, 226}},
        {{330, 200, 170, 36}, BoardKind::Balloon, "I have a spoon!", {350, 168}},
        {{560, 190, 200, 62}, BoardKind::Balloon, "Then down|is the new up.", {520, 225}},
        {{10, 262, 438, 58},
         BoardKind::Caption,
         "Below the works there is a cellar,|and behind the cellar it is morning.",
         {}},
    };
    Fit fit;
    for (const auto& row : rows) {
        fit.add(
            drawSign(canvas, {row.area, Face::Body, 20, Align::Centre, Ink::Dark, row.board, row.text}, row.speaker));
    }
    fit.add(drawSign(
        canvas, {{620, 288, 132, 28}, Face::Body, 18, Align::Centre, Ink::Dark, BoardKind::Caption, "press any key"}));
    return fit;
}

// ---- titles

Fit logo(Canvas& canvas) {
    return drawWords(canvas,
                     {{10, 6, 410, 126}, Face::Display, 96, Align::Centre, Ink::Gold, BoardKind::Wall, "Grubaway"});
}

Fit opening(Canvas& canvas) {
    canvas.flat(Rect{0, 0, 540, 190}.path(), groundOf(BoardKind::Night));
    Fit fit = drawWords(
        canvas, {{20, 10, 500, 130}, Face::Display, 110, Align::Centre, Ink::Gold, BoardKind::Night, "Grubaway"});
    fit.add(drawWords(
        canvas,
        {{70, 146, 400, 40}, Face::Body, 24, Align::Centre, Ink::Cream, BoardKind::Night, "Fifty doors, one spoon"}));
    return fit;
}

Fit titles(Canvas& canvas) {
    Fit fit;
    double y = 8;
    for (const std::string_view text : {"HIGH SCORES", "YOUR NAME"}) {
        fit.add(
            drawWords(canvas, {{10, y, 410, 68}, Face::Display, 56, Align::Centre, Ink::Gold, BoardKind::Wall, text}));
        y += 80;
    }
    return fit;
}

constexpr std::array kSamples{
    //          name            width height
    BoardSample{"planks", 226, 110, planks},
    BoardSample{"gold plates", 226, 110, goldPlates},
    BoardSample{"tan boards", 226, 110, tanBoards},
    BoardSample{"answers", 380, 96, answers},
    BoardSample{"logo", 430, 140, logo},
    BoardSample{"titles", 430, 164, titles},
    BoardSample{"slots", 346, 180, slots},
    BoardSample{"sliders", 368, 104, sliders},
    BoardSample{"tick boxes", 368, 136, tickBoxes},
    BoardSample{"hints", 414, 114, hints},
    BoardSample{"big caps", 400, 112, bigCaps},
    BoardSample{"help text", 400, 150, helpText},
    BoardSample{"notice", 432, 388, notice},
    BoardSample{"dialog", 344, 380, dialog},
    BoardSample{"end board", 580, 150, endBoard},
    BoardSample{"opening", 540, 190, opening},
    BoardSample{"speech", 780, 330, speech},
};

}  // namespace

std::span<const BoardSample> boardSamples() { return kSamples; }

}  // namespace grub
