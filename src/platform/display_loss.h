#pragma once

// When the connection to the X display is lost (the session ends, the server
// dies, a forwarded connection drops), Xlib calls its I/O error handler and
// then `exit`; the exit handlers then run SDL_Quit, which waits on the dead
// connection for an answer that never comes and spins forever. This installs
// an I/O error handler that says so on standard error, runs `lastWords` (which
// must not draw or present anything) and ends the process at once with status
// 1, skipping the exit handlers. Does nothing when SDL does not use libX11;
// call it once the video mode is set.
void guardDisplayLoss(void (*lastWords)());
