// Input that tests and the event-script driver give the headless display.
#include "platform/display/headless/headless_display.h"

#include "platform/display/headless/headless_peer.h"
#include "platform/display/headless/latin1_text.h"
#include "platform/display/headless/menu_labels.h"

#include <filesystem>

namespace {

uint16_t ButtonQualifier(uint16_t button)
{
    switch (button & ~IECODE_UP_PREFIX) {
    case IECODE_LBUTTON:
        return IEQUALIFIER_LEFTBUTTON;
    case IECODE_RBUTTON:
        return IEQUALIFIER_RBUTTON;
    case IECODE_MBUTTON:
        return IEQUALIFIER_MIDBUTTON;
    default:
        return 0;
    }
}

PropInfo* PropOf(Gadget* gadget)
{
    if (gadget->GadgetType != GTYP_PROPGADGET)
        return nullptr;
    return static_cast<PropInfo*>(gadget->SpecialInfo);
}

} // namespace

IntuiMessage HeadlessDisplay::Event(uint32_t idcmpClass, uint16_t code, uint16_t qualifier) const
{
    IntuiMessage event;
    event.Class = idcmpClass;
    event.Code = code;
    event.Qualifier = qualifier;
    event.MouseX = static_cast<int16_t>(pointerX_);
    event.MouseY = static_cast<int16_t>(pointerY_);
    uint64_t now = clockMicros_.load();
    event.Seconds = static_cast<uint32_t>(now / 1000000);
    event.Micros = static_cast<uint32_t>(now % 1000000);
    return event;
}

bool HeadlessDisplay::PostToActive(IntuiMessage event)
{
    Window* target = nullptr;
    {
        std::lock_guard<std::mutex> hold(lock_);
        target = active_;
    }
    return target && PostWindowMessage(target, event);
}

void HeadlessDisplay::SetPointer(int column, int row)
{
    pointerX_ = kBorderLeft + column * kFontWidth;
    pointerY_ = kBorderTop + row * (kFontHeight + 1);
}

Gadget* HeadlessDisplay::FindGadget(uint16_t gadgetId) const
{
    if (!active_)
        return nullptr;
    for (Gadget* gadget = active_->FirstGadget; gadget; gadget = gadget->NextGadget) {
        if (gadget->GadgetID == gadgetId)
            return gadget;
    }
    return nullptr;
}

bool HeadlessDisplay::Activate(Window* window)
{
    Window* old = nullptr;
    IntuiMessage event;
    {
        std::lock_guard<std::mutex> hold(lock_);
        if (!Find(window))
            return false;
        old = active_;
        active_ = window;
        activeModeless_ = nullptr;
        event = Event(IDCMP_INACTIVEWINDOW, 0, 0);
    }
    if (old && old != window)
        PostWindowMessage(old, event);
    // A busy window becomes active without hearing of it.
    event.Class = IDCMP_ACTIVEWINDOW;
    PostWindowMessage(window, event);
    return true;
}

bool HeadlessDisplay::PressKey(const KeyStroke& stroke)
{
    if (RequesterWindow* requester = FrontRequester())
        return RequesterKey(requester, stroke);
    IntuiMessage down;
    {
        std::lock_guard<std::mutex> hold(lock_);
        down = Event(IDCMP_RAWKEY, stroke.Code, static_cast<uint16_t>(stroke.Qualifier | heldButtons_));
    }
    down.Keys = stroke.Keys;
    IntuiMessage up = down;
    up.Code = static_cast<uint16_t>(stroke.Code | IECODE_UP_PREFIX);
    bool posted = PostToActive(down);
    PostToActive(up);
    return posted;
}

bool HeadlessDisplay::PressKey(const std::string& name, std::string* error)
{
    KeyStroke stroke;
    if (!ParseKeyStroke(name, &stroke, error))
        return false;
    return PressKey(stroke);
}

bool HeadlessDisplay::Type(const std::string& text)
{
    bool posted = true;
    for (char character : Latin1FromUtf8(text))
        posted = PressKey(StrokeForChar(static_cast<unsigned char>(character))) && posted;
    return posted;
}

bool HeadlessDisplay::PickMenu(const std::string& path, uint16_t qualifier, bool help)
{
    std::lock_guard<std::mutex> hold(lock_);
    Peer* peer = Find(active_);
    MenuNumber number = MENUNULL;
    if (!peer || !FindMenuNumber(peer->menus, Latin1FromUtf8(path), &number))
        return false;
    // The strip stays while the lock is held: its owner takes it out of the
    // window through MenuStripChanged before freeing it.
    return help ? PostMenuHelp(active_, peer->menus, number, qualifier)
                : PostMenuPick(active_, peer->menus, number, qualifier);
}

bool HeadlessDisplay::PressButton(int column, int row, uint16_t qualifier, uint16_t button)
{
    IntuiMessage event;
    {
        std::lock_guard<std::mutex> hold(lock_);
        SetPointer(column, row);
        heldButtons_ |= ButtonQualifier(button);
        pressQualifier_ = qualifier;
        event = Event(IDCMP_MOUSEBUTTONS, button, static_cast<uint16_t>(qualifier | heldButtons_));
    }
    return PostToActive(event);
}

bool HeadlessDisplay::ReleaseButton(int column, int row, uint16_t button)
{
    IntuiMessage event;
    {
        std::lock_guard<std::mutex> hold(lock_);
        SetPointer(column, row);
        heldButtons_ &= static_cast<uint16_t>(~ButtonQualifier(button));
        event = Event(IDCMP_MOUSEBUTTONS, static_cast<uint16_t>(button | IECODE_UP_PREFIX),
                      static_cast<uint16_t>(pressQualifier_ | heldButtons_));
        if (!heldButtons_)
            pressQualifier_ = 0;
    }
    return PostToActive(event);
}

bool HeadlessDisplay::Click(int column, int row, uint16_t qualifier, uint16_t button)
{
    RequesterWindow* requester = button != IECODE_LBUTTON ? FrontRequester() : nullptr;
    if (requester)
        return RequesterButton(requester, button);
    bool pressed = PressButton(column, row, qualifier, button);
    bool released = ReleaseButton(column, row, button);
    return pressed && released;
}

bool HeadlessDisplay::MovePointer(int column, int row)
{
    IntuiMessage event;
    {
        std::lock_guard<std::mutex> hold(lock_);
        SetPointer(column, row);
        event = Event(IDCMP_MOUSEMOVE, IECODE_NOBUTTON, static_cast<uint16_t>(pressQualifier_ | heldButtons_));
    }
    return PostToActive(event);
}

bool HeadlessDisplay::Tick(int count)
{
    bool posted = ActiveWindow() != nullptr;
    for (int i = 0; i < count; ++i)
        posted = Post(IDCMP_INTUITICKS, 0, 0) && posted;
    return posted;
}

bool HeadlessDisplay::Drop(const std::string& path, int column, int row)
{
    std::error_code failure;
    std::filesystem::path full = std::filesystem::absolute(path, failure);
    if (failure || !full.has_filename())
        return false;
    Window* target = nullptr;
    int x = 0;
    int y = 0;
    {
        std::lock_guard<std::mutex> hold(lock_);
        SetPointer(column, row);
        target = active_;
        x = pointerX_;
        y = pointerY_;
    }
    return target && PostDrop(target, full.parent_path().c_str(), full.filename().c_str(), x, y);
}

bool HeadlessDisplay::PressCloseGadget()
{
    return Post(IDCMP_CLOSEWINDOW, 0, 0);
}

bool HeadlessDisplay::Resize(int width, int height)
{
    Window* target = ActiveWindow();
    if (!target)
        return false;
    ::ChangeWindowBox(target, target->LeftEdge, target->TopEdge, width, height);
    return true;
}

bool HeadlessDisplay::PressGadget(uint16_t gadgetId, bool knobHit)
{
    IntuiMessage event;
    Gadget* gadget = nullptr;
    {
        std::lock_guard<std::mutex> hold(lock_);
        gadget = FindGadget(gadgetId);
        if (!gadget)
            return false;
        gadget->Flags |= GFLG_SELECTED;
        if (PropInfo* prop = PropOf(gadget)) {
            if (knobHit)
                prop->Flags |= KNOBHIT;
            else
                prop->Flags &= static_cast<uint16_t>(~KNOBHIT);
        }
        event = Event(IDCMP_GADGETDOWN, 0, static_cast<uint16_t>(heldButtons_ | IEQUALIFIER_LEFTBUTTON));
    }
    event.IAddress = gadget;
    return !(gadget->Activation & GACT_IMMEDIATE) || PostToActive(event);
}

bool HeadlessDisplay::MoveKnob(uint16_t gadgetId, uint16_t pot)
{
    IntuiMessage event;
    Gadget* gadget = nullptr;
    {
        std::lock_guard<std::mutex> hold(lock_);
        gadget = FindGadget(gadgetId);
        PropInfo* prop = gadget ? PropOf(gadget) : nullptr;
        if (!prop)
            return false;
        if (prop->Flags & FREEVERT)
            prop->VertPot = pot;
        else
            prop->HorizPot = pot;
        event = Event(IDCMP_MOUSEMOVE, IECODE_NOBUTTON, static_cast<uint16_t>(heldButtons_ | IEQUALIFIER_LEFTBUTTON));
    }
    event.IAddress = gadget;
    return !(gadget->Activation & GACT_FOLLOWMOUSE) || PostToActive(event);
}

bool HeadlessDisplay::ReleaseGadget(uint16_t gadgetId)
{
    IntuiMessage event;
    Gadget* gadget = nullptr;
    {
        std::lock_guard<std::mutex> hold(lock_);
        gadget = FindGadget(gadgetId);
        if (!gadget)
            return false;
        gadget->Flags &= static_cast<uint16_t>(~GFLG_SELECTED);
        if (PropInfo* prop = PropOf(gadget))
            prop->Flags &= static_cast<uint16_t>(~KNOBHIT);
        event = Event(IDCMP_GADGETUP, 0, heldButtons_);
    }
    event.IAddress = gadget;
    return !(gadget->Activation & GACT_RELVERIFY) || PostToActive(event);
}

bool HeadlessDisplay::Post(uint32_t idcmpClass, uint16_t code, uint16_t qualifier, void* address)
{
    IntuiMessage event;
    {
        std::lock_guard<std::mutex> hold(lock_);
        event = Event(idcmpClass, code, static_cast<uint16_t>(qualifier | heldButtons_));
    }
    event.IAddress = address;
    return PostToActive(event);
}

void HeadlessDisplay::Sleep(uint32_t milliseconds)
{
    clockMicros_ += static_cast<uint64_t>(milliseconds) * 1000;
}
