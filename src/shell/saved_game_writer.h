#pragma once
#include <string>

// The game as it stands, in the saved-game format that loadGame reads: the
// same lines in the same order, with comments naming them. Reading the text
// back gives the same ship, names, cells, planet slot, mode and holds. The
// position is kept as cells (the reader places the ship at a cell's corner).
// Hold amounts are written so that the reader accepts every one: a non-finite
// or negative amount is written as 0, and an amount that the hold's running
// single-precision sum would push past its capacity by rounding alone is cut
// by those last bits.
std::string savedGameText();
