#pragma once
// Small builders for the layouts of requester windows, so that each
// requester reads as the window it shows.
#include "platform/display/requester_window.h"
#include "services/messages.h"

#include <initializer_list>
#include <string>
#include <vector>

// Gadget ids that every requester uses for the same thing.
constexpr uint16_t NoGadget = 0;     // "_NO"
constexpr uint16_t YesGadget = 1;    // "_YES", "OK !", the first choice
constexpr uint16_t CancelGadget = 4; // "Cancel" beside other answers
constexpr uint16_t NumberGadget = 5;
constexpr uint16_t ListGadget = 6;
constexpr uint16_t FunctionListGadget = 7;
constexpr uint16_t OtherGadget = 29; // "Oth_er" of "Goto line"
constexpr uint16_t RelativeGadget = 30;
constexpr uint16_t StringGadget = 31;
constexpr uint16_t ChooserGadget = 1; // a file or font chooser answers as "_YES"

inline RequesterGadget Group(GadgetKind kind, std::initializer_list<RequesterGadget> children)
{
    RequesterGadget group;
    group.Kind = kind;
    group.Children = children;
    return group;
}

inline RequesterGadget Column(std::initializer_list<RequesterGadget> children)
{
    return Group(GadgetKind::Vertical, children);
}

inline RequesterGadget Row(std::initializer_list<RequesterGadget> children)
{
    return Group(GadgetKind::Horizontal, children);
}

inline RequesterGadget TextBox(std::vector<std::string> lines)
{
    RequesterGadget box;
    box.Kind = GadgetKind::TextBox;
    box.Rows = std::move(lines);
    return box;
}

inline RequesterGadget Labelled(GadgetKind kind, uint16_t id, const char* label)
{
    RequesterGadget gadget;
    gadget.Kind = kind;
    gadget.Id = id;
    gadget.Label = label;
    return gadget;
}

inline RequesterGadget Button(uint16_t id, MessageId label)
{
    return Labelled(GadgetKind::Button, id, GetString(label));
}

// The row "_YES" (1), "_NO" (0).
inline RequesterGadget YesNoRow()
{
    return Row({Button(YesGadget, MessageId::Yes), Button(NoGadget, MessageId::No)});
}
