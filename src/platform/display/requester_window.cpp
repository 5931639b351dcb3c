#include "platform/display/requester_window.h"

#include "platform/display/backend.h"
#include "platform/display/window_registry.h"

#include <algorithm>
#include <cctype>
#include <unordered_set>
#include <utility>

namespace {

// The open requester windows: a post reaches only these, and a close waits
// for a post under way.
std::mutex OpenLock;
std::unordered_set<RequesterWindow*> Open;

// Groups and text boxes carry no id of their own.
bool HasId(const RequesterGadget& gadget)
{
    return gadget.Kind != GadgetKind::Vertical && gadget.Kind != GadgetKind::Horizontal &&
           gadget.Kind != GadgetKind::TextBox;
}

void ShowChange(RequesterWindow* requester)
{
    if (DisplayBackend* backend = CurrentDisplayBackend())
        backend->RequesterChanged(requester);
}

} // namespace

const RequesterGadget* FindRequesterGadget(const RequesterGadget& root, uint16_t id)
{
    if (root.Id == id && HasId(root))
        return &root;
    for (const RequesterGadget& child : root.Children) {
        if (const RequesterGadget* found = FindRequesterGadget(child, id))
            return found;
    }
    return nullptr;
}

RequesterGadget* FindRequesterGadget(RequesterGadget& root, uint16_t id)
{
    return const_cast<RequesterGadget*>(FindRequesterGadget(std::as_const(root), id));
}

char ShortcutLetter(const std::string& label)
{
    size_t mark = label.find('_');
    if (mark == std::string::npos || mark + 1 >= label.size())
        return 0;
    return static_cast<char>(std::tolower(static_cast<unsigned char>(label[mark + 1])));
}

std::string PlainLabel(const std::string& label)
{
    std::string plain = label;
    std::erase(plain, '_');
    return plain;
}

bool OpenRequesterWindow(RequesterWindow* requester)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (!backend || !requester)
        return false;
    requester->UserPort = CreateMsgPort();
    if (!requester->UserPort)
        return false;
    {
        std::lock_guard<std::mutex> hold(OpenLock);
        Open.insert(requester);
    }
    if (backend->OpenRequester(requester))
        return true;
    CloseRequesterWindow(requester);
    return false;
}

void CloseRequesterWindow(RequesterWindow* requester)
{
    if (!requester || !requester->UserPort)
        return;
    {
        std::lock_guard<std::mutex> hold(OpenLock);
        Open.erase(requester);
    }
    if (DisplayBackend* backend = CurrentDisplayBackend(); backend && requester->Peer)
        backend->CloseRequester(requester);
    while (Message* message = GetMsg(requester->UserPort))
        ReplyMsg(message);
    DeleteMsgPort(requester->UserPort);
    requester->UserPort = nullptr;
    CollectReplies();
}

bool PostRequesterMessage(RequesterWindow* requester, const IntuiMessage& event)
{
    std::lock_guard<std::mutex> hold(OpenLock);
    if (!Open.count(requester))
        return false;
    return PostIntuiMessage(requester->UserPort, event);
}

std::string RequesterText(const RequesterWindow* requester, uint16_t id)
{
    std::lock_guard<std::mutex> hold(requester->Lock);
    const RequesterGadget* gadget = FindRequesterGadget(requester->Layout, id);
    return gadget ? gadget->Text : std::string();
}

int32_t RequesterNumber(const RequesterWindow* requester, uint16_t id)
{
    std::lock_guard<std::mutex> hold(requester->Lock);
    const RequesterGadget* gadget = FindRequesterGadget(requester->Layout, id);
    return gadget ? gadget->Number : 0;
}

std::string RequesterDrawer(const RequesterWindow* requester, uint16_t id)
{
    std::lock_guard<std::mutex> hold(requester->Lock);
    const RequesterGadget* gadget = FindRequesterGadget(requester->Layout, id);
    return gadget ? gadget->Drawer : std::string();
}

void SetRequesterText(RequesterWindow* requester, uint16_t id, const std::string& text)
{
    {
        std::lock_guard<std::mutex> hold(requester->Lock);
        RequesterGadget* gadget = FindRequesterGadget(requester->Layout, id);
        if (!gadget)
            return;
        gadget->Text = text;
        if (gadget->MaxChars > 0 && static_cast<int>(gadget->Text.size()) >= gadget->MaxChars)
            gadget->Text.resize(static_cast<size_t>(gadget->MaxChars - 1));
    }
    ShowChange(requester);
}

void SetRequesterNumber(RequesterWindow* requester, uint16_t id, int32_t number)
{
    {
        std::lock_guard<std::mutex> hold(requester->Lock);
        RequesterGadget* gadget = FindRequesterGadget(requester->Layout, id);
        if (!gadget)
            return;
        gadget->Number = number;
    }
    ShowChange(requester);
}

void SetRequesterDisabled(RequesterWindow* requester, uint16_t id, bool disabled)
{
    {
        std::lock_guard<std::mutex> hold(requester->Lock);
        if (RequesterGadget* gadget = FindRequesterGadget(requester->Layout, id))
            gadget->Disabled = disabled;
    }
    ShowChange(requester);
}

void ActivateRequesterGadget(RequesterWindow* requester, uint16_t id)
{
    {
        std::lock_guard<std::mutex> hold(requester->Lock);
        requester->ActiveGadget = id;
    }
    ShowChange(requester);
}

void RequesterToFront(RequesterWindow* requester)
{
    if (DisplayBackend* backend = CurrentDisplayBackend(); backend && requester->Peer)
        backend->RequesterToFront(requester);
}
