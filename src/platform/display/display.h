#pragma once
// The display layer as the editor sees it: screens, windows, gadgets, window
// messages, drawing, keys and file drops. Backends and the program's entry
// are in backend.h.
#include "platform/display/app_window.h"
#include "platform/display/graphics.h"
#include "platform/display/input_codes.h"
#include "platform/display/intuition.h"
#include "platform/display/keys.h"
#include "platform/display/menus.h"
