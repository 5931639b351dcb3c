#pragma once
// A gadget of a requester window's layout, for the tests that build one.
#include "platform/display/requester_window.h"

inline RequesterGadget MakeGadget(GadgetKind kind, uint16_t id, const char* label)
{
    RequesterGadget gadget;
    gadget.Kind = kind;
    gadget.Id = id;
    gadget.Label = label;
    return gadget;
}
