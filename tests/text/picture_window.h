#pragma once
// A text in a window of its own on the desktop backend, for the tests that
// keep a picture of what a person would see. No main process lends the
// screen here: the test locks the public screen itself.
#include <cstdint>

struct TextRecord;
struct Screen;

// Locks the public screen and opens a sizable window of `width` x `height`
// with the text's pens and scrollers; the text is WindowOpen. Null when the
// screen or the window can't be had (a test failure is noted).
Screen* OpenPictureWindow(TextRecord* text, int16_t width, int16_t height);
// Closes the window, frees the text and unlocks the screen.
void ClosePictureWindow(TextRecord* text, Screen* screen);
