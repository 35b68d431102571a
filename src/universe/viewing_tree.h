#pragma once
#include "universe/star_map.h"

struct ViewNode {
  int x = 0;
  int y = 0;
  ViewNode* next = nullptr;
};

// Every cell's list of the objects within five cells, in column-major order.
void buildViewingTree(StarMap& map);
