#pragma once
#include "universe/star_map.h"

struct ViewNode {
  int x = 0;
  int y = 0;
  ViewNode* next = nullptr;
};

// Every cell's list of the objects within five cells, in column-major order.
void buildViewingTree(StarMap& map);
// Empties the map's view lists and gives back the nodes they used.
void releaseViewingTree(StarMap& map);
// How far a cell sees: objects up to this many cells away in both directions.
constexpr int viewReach = 5;
