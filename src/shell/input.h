#pragma once
#include <SDL.h>

// True when exactly one Ctrl key is held, whatever other modifiers are.
bool singleCtrlHeld();
void onKeyDown(int key);
void onKeyUp(int key);
void onMouseMotion(int x, int y);
void onMouseButtonDown(int x, int y);
void onMouseButtonUp(int x, int y);
// Hands one SDL event to the handler of its type; the quit event calls exit(0).
void dispatchEvent(const SDL_Event& event);
