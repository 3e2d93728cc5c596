#pragma once

#include "board.h"

namespace grub {

/// A slider's groove, as long as `area`, in the middle of its height, with a notch for each of the `values`; the first
/// and last stand where `knobX` says.
void drawGroove(Canvas& canvas, const Rect& area, int values);

/// Middle of the knob for a value from 0 on, across a groove that takes the pointer's share of its width times
/// `values`.
double knobX(const Rect& groove, int values, int value);

/// The knob, a small miner's lamp of 22 px.
void drawKnob(Canvas& canvas, Point centre);

/// A square box with a tick in it, or without.
void drawTickBox(Canvas& canvas, const Rect& area, bool ticked);

/// A small round-cornered plate for one or two digits, let into a board of that kind: its colour stays the board's own.
void drawDigitPlate(Canvas& canvas, const Rect& area, BoardKind board);

/// A loudspeaker with two waves, and two notes on one beam, in ink and `size` high.
void drawSpeaker(Canvas& canvas, Point centre, double size);
void drawNote(Canvas& canvas, Point centre, double size);

}  // namespace grub
