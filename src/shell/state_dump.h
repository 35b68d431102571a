#pragma once
#include <string>

// One line of JSON with every GameState field, the command window's state and
// the ship's values and holds, for `state` lines of scripted runs. What a
// program steering the game needs is there too: the system's planet cells,
// the landing site, the rover and the nearest deposit the sensors have shown.
// A frame number of 0 or more leads the line as "frame".
std::string gameStateJson(long frame = -1);
