#pragma once

// The window's title "Star Prospector" and its icon, the picture of `iconPath`
// (an image SDL_image reads; its transparent colour stays clear). The window
// manager reads both when the video mode opens the window, so this comes
// first. The icon is optional: without the file the window keeps the default
// one; a file that cannot be read is named on standard error, and the game
// goes on either way.
void nameWindow(const char* iconPath);
