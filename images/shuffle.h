#pragma once

#include "model/project.h"

#include <functional>

// The image shuffle: the pictures of one board put into a random order, each picture used once,
// the panes' texts, labels and URLs staying where they are.

// A uniform number in [0, 1).
using RandomSource = std::function<double()>;

// The program's random source: the generator is re-seeded from the clock before every draw. The
// previous draw goes into the seed as well, so draws within one clock tick still differ.
double ClockSeededRandom();

// Draws a permutation of the panes of board boardIndex (0-based) without replacement and writes
// it, as pane numbers in their new order, into DialogReply 1 to gridSide x gridSide, which the
// caller has dimensioned. Returns the pane before the board's first one (boardIndex x n).
qint16 ShufflePanes(Project& project, qint16 gridSide, int boardIndex, const RandomSource& random);

// Gives pane base + i the picture of pane DialogReply(i), for i = 1 to n: the working and source
// files, the stem and both flips travel together.
void MoveShuffledPictures(Project& project, qint16 base, qint16 n);
