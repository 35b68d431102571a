#pragma once
#include <SDL.h>

// The game's own input queue. The frame loop lets one event act per frame, but a
// real mouse sends motion faster than 30 frames a second; so every frame SDL's
// queue is emptied into this one (SDL's never fills and drops keys), and a run
// of consecutive motion events is kept as its newest position, since the
// motion handlers keep only the last position anyway. Everything that is not
// a motion keeps its place and is never dropped or merged.

// Appends an event; a motion that follows a motion replaces it, with the
// relative movement of both added up.
void queueEvent(const SDL_Event& event);
// Moves every event waiting in SDL's queue into the game's, in order.
void collectSdlEvents();
// Takes the oldest event (a merged run of motions counts as one); false when
// the queue is empty.
bool takeEvent(SDL_Event& event);
// Forgets every queued event (for a fresh start, e.g. between tests).
void clearEvents();
