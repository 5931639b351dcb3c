#pragma once
// The plain system requester: a title, a text and a row of buttons, shown
// modally over everything and answered by the user. It needs no window of
// the caller's, so any task may ask, before or after its own windows exist.
#include <cstdint>

struct Window;

struct EasyStruct {
    uint32_t es_StructSize = sizeof(EasyStruct);
    uint32_t es_Flags = 0;
    const char* es_Title = nullptr;
    // Shown as it stands: no placeholders are filled in.
    const char* es_TextFormat = nullptr;
    // Button labels separated by '|', e.g. "Yes|No".
    const char* es_GadgetFormat = nullptr;
};

// Blocks the calling task until a button is chosen. The buttons are
// numbered 1, 2, ... from the left, and the rightmost is 0 (so with one
// button the answer is 0). Without a display the answer is 0 at once.
// `window` (may be null) names the window the requester belongs to.
int EasyRequestArgs(Window* window, const EasyStruct* easy);
