#include "frame/window/text_window_scrollers.h"

#include "text/record/text_record.h"

#include <algorithm>
#include <new>
#include <type_traits>

namespace {

constexpr uint16_t VertPropFlags = AUTOKNOB | FREEVERT | PROPBORDERLESS | PROPNEWLOOK;
constexpr uint16_t HorizPropFlags = AUTOKNOB | FREEHORIZ | PROPBORDERLESS | PROPNEWLOOK;
constexpr uint16_t ArrowFlags = GFLG_GADGHIMAGE | GFLG_GADGIMAGE | GFLG_RELBOTTOM | GFLG_RELRIGHT;

// Id, type, flags and activation of each gadget, in link order.
struct GadgetKind {
    uint16_t Id, Type, Flags, Activation;
};
constexpr GadgetKind GadgetKinds[6] = {
    {GADGETID_VERTSCROLLER, GTYP_PROPGADGET, GFLG_RELRIGHT | GFLG_RELHEIGHT, 0x1B},
    {GADGETID_ARROWUP, GTYP_BOOLGADGET, ArrowFlags, 0x13},
    {GADGETID_ARROWDOWN, GTYP_BOOLGADGET, ArrowFlags, 0x13},
    {GADGETID_HORIZSCROLLER, GTYP_PROPGADGET, GFLG_RELBOTTOM | GFLG_RELWIDTH, 0x1B},
    {GADGETID_ARROWLEFT, GTYP_BOOLGADGET, ArrowFlags, 0x13},
    {GADGETID_ARROWRIGHT, GTYP_BOOLGADGET, ArrowFlags, 0x83},
};
// The images of the arrows, in the order of ArrowImages and of the
// gadgets 1, 2, 5 and 4.
constexpr uint32_t ArrowKinds[4] = {UPIMAGE, DOWNIMAGE, RIGHTIMAGE, LEFTIMAGE};
constexpr int ArrowGadget[4] = {1, 2, 5, 4};

const ScrollerBlock& Template()
{
    static const ScrollerBlock block = [] {
        ScrollerBlock made;
        for (int i = 0; i < 6; ++i) {
            made.Gadgets[i].GadgetID = GadgetKinds[i].Id;
            made.Gadgets[i].GadgetType = GadgetKinds[i].Type;
            made.Gadgets[i].Flags = GadgetKinds[i].Flags;
            made.Gadgets[i].Activation = GadgetKinds[i].Activation;
        }
        for (PropInfo* info : {&made.VertInfo, &made.HorizInfo}) {
            info->HorizPot = MAXPOT;
            info->VertPot = MAXPOT;
            info->HorizBody = MAXBODY;
            info->VertBody = MAXBODY;
        }
        made.VertInfo.Flags = VertPropFlags;
        made.HorizInfo.Flags = HorizPropFlags;
        return made;
    }();
    return block;
}

// Border measures from the screen's images; where an image can't be made
// its measure keeps the default.
struct BorderMeasures {
    int16_t w = 16, h = 8, d = 10, u = 9, a = 16;
};

void SetBox(Gadget* gadget, int left, int top, int width, int height)
{
    gadget->LeftEdge = static_cast<int16_t>(left);
    gadget->TopEdge = static_cast<int16_t>(top);
    gadget->Width = static_cast<int16_t>(width);
    gadget->Height = static_cast<int16_t>(height);
}

Gadget* FindGadget(const Window* window, uint16_t id)
{
    for (Gadget* gadget = window ? window->FirstGadget : nullptr; gadget; gadget = gadget->NextGadget)
        if (gadget->GadgetID == id)
            return gadget;
    return nullptr;
}

// The scroller of that id when the text is WindowOpen, its drawing isn't
// held and the user isn't holding the scroller. Held drawing notes that
// the scrollers wait, and the release moves them once.
Gadget* FreeScroller(TextRecord* record, uint16_t id)
{
    if (!(record->TextState & WindowOpen))
        return nullptr;
    if (record->DrawingHeld > 0) {
        record->DrawingMissed = 1;
        return nullptr;
    }
    Gadget* gadget = FindGadget(record->Window, id);
    return gadget && !(gadget->Flags & GFLG_SELECTED) ? gadget : nullptr;
}

uint16_t Share(uint64_t part, uint64_t whole)
{
    return static_cast<uint16_t>(std::min<uint64_t>(part * MAXPOT / whole, MAXPOT));
}

} // namespace

static_assert(std::is_standard_layout_v<ScrollerBlock>);

bool AddScrollers(TextRecord* record)
{
    Window* window = record->Window;
    auto* block = new (std::nothrow) ScrollerBlock(Template());
    if (!block)
        return false;
    BorderMeasures m;
    DrawInfo* info = GetScreenDrawInfo(window->WScreen);
    if (info && info->dri_Font) {
        record->CharHeight = info->dri_Font->tf_YSize;
        record->CharWidth = std::max<int32_t>(info->dri_Font->tf_XSize, 8);
    }
    if (Image* depth = NewSysImage(info, DEPTHIMAGE, window->BorderTop)) {
        m.d = depth->Height;
        DisposeObject(depth);
    }
    if (Image* size = NewSysImage(info, SIZEIMAGE, 0)) {
        m.w = size->Width;
        m.h = size->Height;
        DisposeObject(size);
    }
    for (int i = 0; i < 4; ++i) {
        Image* image = NewSysImage(info, ArrowKinds[i], 0);
        record->ArrowImages[i] = image;
        block->Gadgets[ArrowGadget[i]].GadgetRender = image;
        block->Gadgets[ArrowGadget[i]].SelectRender = image;
    }
    if (record->ArrowImages[0])
        m.u = record->ArrowImages[0]->Height;
    if (record->ArrowImages[2])
        m.a = record->ArrowImages[2]->Width;
    FreeScreenDrawInfo(window->WScreen, info);

    Gadget* g = block->Gadgets;
    SetBox(&g[0], 4 - m.w, m.d + 1, m.w - 6, -2 - (m.d + m.h + 2 * m.u));
    SetBox(&g[1], 1 - m.w, 1 - m.h - 2 * m.u, m.w, m.u);
    SetBox(&g[2], 1 - m.w, 1 - m.h - m.u, m.w, m.u);
    SetBox(&g[3], window->BorderLeft, 3 - m.h, -(2 * m.a + m.w + 4), m.h - 4);
    SetBox(&g[4], 1 - m.w - 2 * m.a, 1 - m.h, m.a, m.h - 1);
    SetBox(&g[5], 1 - m.w - m.a, 1 - m.h, m.a, m.h - 1);
    for (int i = 0; i < 5; ++i)
        g[i].NextGadget = &g[i + 1];
    g[0].SpecialInfo = &block->VertInfo;
    g[0].GadgetRender = &block->VertKnob;
    g[0].UserData = block;
    g[3].SpecialInfo = &block->HorizInfo;
    g[3].GadgetRender = &block->HorizKnob;

    AddGList(window, g, -1, -1, nullptr);
    RefreshGList(g, window, nullptr, 6);
    return true;
}

ScrollerBlock* FindScrollers(const Window* window)
{
    Gadget* vertical = FindGadget(window, GADGETID_VERTSCROLLER);
    return vertical ? static_cast<ScrollerBlock*>(vertical->UserData) : nullptr;
}

void FreeScrollers(TextRecord* record, ScrollerBlock* block)
{
    for (Image*& image : record->ArrowImages) {
        DisposeObject(image);
        image = nullptr;
    }
    delete block;
}

void UpdateVertScroller(TextRecord* record)
{
    Gadget* gadget = FreeScroller(record, GADGETID_VERTSCROLLER);
    if (!gadget)
        return;
    uint16_t pot = 0;
    uint16_t body = MAXBODY;
    int64_t lines = record->LineCount, rows = record->VisibleRows, top = record->TopLine;
    if (lines > rows) {
        pot = Share(static_cast<uint64_t>(top), static_cast<uint64_t>(lines - rows));
        body = Share(static_cast<uint64_t>(top + rows > lines ? std::max<int64_t>(lines - top, 0) : rows), static_cast<uint64_t>(lines));
    }
    NewModifyProp(gadget, record->Window, nullptr, VertPropFlags, MAXPOT, pot, MAXBODY, body, 1);
    record->LastVertPot = pot;
}

void UpdateHorizScroller(TextRecord* record)
{
    Gadget* gadget = FreeScroller(record, GADGETID_HORIZSCROLLER);
    if (!gadget)
        return;
    uint16_t pot = 0;
    uint16_t body = MAXBODY;
    int64_t longest = record->MaxLineLength, columns = record->VisibleColumns;
    if (columns < longest) {
        pot = Share(static_cast<uint64_t>(std::max(record->LeftColumn, 0)), static_cast<uint64_t>(longest - columns));
        body = Share(static_cast<uint64_t>(columns), static_cast<uint64_t>(longest));
    }
    NewModifyProp(gadget, record->Window, nullptr, HorizPropFlags, pot, MAXPOT, body, MAXBODY, 1);
    record->LastHorizPot = static_cast<PropInfo*>(gadget->SpecialInfo)->HorizPot;
}
