#include "shell/main_loop.h"

int main(int argc, char** argv) { return gameMain(argc, argv); }
