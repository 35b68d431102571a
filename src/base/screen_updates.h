#pragma once
#include <SDL.h>

// While the frame loop draws a frame, the windows that show themselves at once
// (the message strip, the log) leave showing the screen to the frame's own
// present at its end: one present a frame instead of one more per message,
// which in a scaled window costs a whole frame each.
void holdScreenUpdates(bool hold);
// Shows the whole screen (SDL_Flip when fullScreen is 1, else SDL_UpdateRect)
// unless updates are held.
void updateWholeScreen(SDL_Surface* screen, int fullScreen);
