#pragma once
#include <string>

// One line of JSON with every GameState field, the command window's state and
// the ship's values and holds, for `state` lines of scripted runs.
std::string gameStateJson();
