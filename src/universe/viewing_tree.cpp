#include "universe/viewing_tree.h"
// placeholder
void buildViewingTree(StarMap&) {}
