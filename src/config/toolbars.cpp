#include "config/toolbars.h"

#include "platform/display/intuition.h"
#include "platform/exec/memory.h"
#include "requesters/message_requesters.h"

List ToolbarWindowList;

namespace {

// True when the node went.
bool CloseToolbar(ToolbarNode* node)
{
    if (node->UseCount != 0)
        return false;
    if (node->Window)
        CloseWindow(node->Window);
    if (node->Pool)
        DeletePool(node->Pool);
    Remove(&node->Links);
    FreeVec(node);
    return true;
}

} // namespace

void InitToolbars()
{
    NewList(&ToolbarWindowList);
}

void CloseToolbars()
{
    while (Node* first = ToolbarWindowList.First()) {
        if (!CloseToolbar(reinterpret_cast<ToolbarNode*>(first)))
            return;
    }
}

void HandleRaiseToolbars(CommandMessage*, int16_t*)
{
    for (Node* node = ToolbarWindowList.First(); node; node = NextNode(node)) {
        auto* toolbar = reinterpret_cast<ToolbarNode*>(node);
        if (toolbar->Window)
            WindowToFront(toolbar->Window);
    }
}

const char* FirstToolbarName()
{
    Node* first = ToolbarWindowList.First();
    return first ? reinterpret_cast<ToolbarNode*>(first)->Name : "";
}

void LoadToolbarCommand(TextRecord* record)
{
    MessageRequester(record, 1, "Not yet implemented");
}
