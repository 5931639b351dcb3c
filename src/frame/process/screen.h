#pragma once
// The public screen, held by the main process for all texts. The screen is
// locked while any text or title window is open on it (ScreenUseCount) and
// given up when the last one closes, so that hidden texts hold no screen.
#include <mutex>

// Locks the screen if none is held: the one named by PubScreenName if it
// exists, else the default public screen. Takes its size into Settings
// (the window size is cut down to it) and places the first iconified title
// window. Screen stays null when no screen can be had.
void ObtainScreen();

// Gives the screen up; it comes back with the next ObtainScreen.
void ReleaseScreen();

// Held while ObtainScreen cuts the settings' window box down to the screen
// and while a new text copies the settings into its record: the texts of
// the command line make their records while main takes its first screen.
std::mutex& ScreenSettingsLock();
