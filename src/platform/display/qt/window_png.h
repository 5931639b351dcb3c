#pragma once
// Saves what an open window of the desktop backend shows (its text area and
// scroll bars, the window's inner size) as a PNG file. For tests and for
// anyone who wants to look. Call from a task or the display thread; false
// when the window is not open on the Qt backend or the file can't be written.
#include "platform/display/intuition.h"

bool SaveWindowPng(Window* window, const char* path);
