#include "text/input/scroller_gadgets.h"

#include "frame/window/status.h"
#include "frame/window/text_window_scrollers.h"
#include "platform/display/intuition.h"
#include "text/edit/viewport.h"
#include "text/record/text_record.h"

namespace {

bool IsVertical(const Gadget* gadget)
{
    return gadget->GadgetID == GADGETID_VERTSCROLLER || gadget->GadgetID == GADGETID_ARROWUP || gadget->GadgetID == GADGETID_ARROWDOWN;
}

// The proportional gadget of the window in the direction of `gadget`.
PropInfo* ScrollerInfo(const TextRecord* record, bool vertical)
{
    uint16_t id = vertical ? GADGETID_VERTSCROLLER : GADGETID_HORIZSCROLLER;
    for (Gadget* gadget = record->Window->FirstGadget; gadget; gadget = gadget->NextGadget) {
        if (gadget->GadgetID == id && gadget->GadgetType == GTYP_PROPGADGET)
            return static_cast<PropInfo*>(gadget->SpecialInfo);
    }
    return nullptr;
}

// The knob held moves the text to the knob's value; a click beside the
// knob (the display moved the value toward the click) pages that way.
void ScrollerStep(TextRecord* record, const PropInfo* info, bool vertical)
{
    uint16_t pot = vertical ? info->VertPot : info->HorizPot;
    uint16_t last = vertical ? record->LastVertPot : record->LastHorizPot;
    if (info->Flags & KNOBHIT) {
        if (pot == last)
            return;
        if (vertical)
            ScrollToVertPot(record, pot);
        else
            ScrollToHorizPot(record, pot);
        return;
    }
    if (pot == last)
        return;
    int32_t direction = pot > last ? 1 : -1;
    if (vertical)
        ScrollPage(record, direction);
    else
        ScrollPageSideways(record, direction, pot);
}

void Step(TextRecord* record, const Gadget* gadget)
{
    switch (gadget->GadgetID) {
    case GADGETID_ARROWLEFT:
        ScrollColumnLeft(record);
        break;
    case GADGETID_ARROWRIGHT:
        ScrollColumnRight(record);
        break;
    case GADGETID_ARROWDOWN:
        ScrollLineDown(record);
        break;
    case GADGETID_ARROWUP:
        ScrollLineUp(record);
        break;
    case GADGETID_VERTSCROLLER:
    case GADGETID_HORIZSCROLLER:
        if (const auto* info = static_cast<const PropInfo*>(gadget->SpecialInfo))
            ScrollerStep(record, info, gadget->GadgetID == GADGETID_VERTSCROLLER);
        break;
    default:
        break;
    }
}

bool Held(const Gadget* gadget)
{
    return (gadget->Flags & GFLG_SELECTED) != 0;
}

// The scroller of the released gadget and the text agree again: a value
// the user left differs from what the text last set and is followed;
// otherwise the scroller is set from the text.
void Settle(TextRecord* record, bool vertical)
{
    const PropInfo* info = record->Window ? ScrollerInfo(record, vertical) : nullptr;
    if (!info)
        return;
    uint16_t pot = vertical ? info->VertPot : info->HorizPot;
    if (vertical) {
        if (pot != record->LastVertPot)
            ScrollToVertPot(record, pot);
        else
            UpdateVertScroller(record);
        record->LastVertPot = pot;
    } else {
        if (pot != record->LastHorizPot)
            ScrollToHorizPot(record, pot);
        else
            UpdateHorizScroller(record);
        record->LastHorizPot = pot;
    }
}

} // namespace

void HandleScrollerGadget(TextRecord* record, Gadget* gadget)
{
    ClearBusyPointer(record);
    if (!gadget || !record->Window)
        return;
    bool vertical = IsVertical(gadget);
    Step(record, gadget);
    // The window's messages are taken here while the gadget is held: each
    // tick repeats the step, each pointer move follows the knob, and the
    // gadget's release ends the hold. Anything else is dropped.
    MsgPort* port = record->Window->UserPort;
    for (;;) {
        Message* received = GetMsg(port);
        if (!received) {
            if (!Held(gadget))
                break;
            WaitPort(port);
            continue;
        }
        IntuiMessage event = *reinterpret_cast<IntuiMessage*>(received);
        ReplyMsg(received);
        if (event.Class == IDCMP_GADGETUP)
            break;
        if ((event.Class == IDCMP_INTUITICKS || event.Class == IDCMP_MOUSEMOVE) && Held(gadget))
            Step(record, gadget);
    }
    Settle(record, vertical);
}
