#include "platform/display/backend.h"
#include "platform/display/window_registry.h"

#include <cstring>
#include <mutex>
#include <new>
#include <unordered_set>
#include <vector>

struct AppWindow {
    Window* window = nullptr;   // null once the window closed
    MsgPort* port = nullptr;
    uint32_t id = 0;
    uintptr_t userData = 0;
};

namespace {

// Posted messages are told apart by their node name, which the exec layer
// leaves alone.
const char kIntuiTag[] = "IntuiMessage";
const char kDropTag[] = "AppMessage";

// An AppMessage with its one argument and the argument's strings.
struct DropBlock {
    AppMessage message;
    WBArg argument;
    char* directory;
    char* name;
};

struct Registry {
    std::mutex lock;
    std::unordered_set<Window*> open;
    std::vector<AppWindow*> appWindows;
    MsgPort* replyPort = nullptr;
};

Registry& TheRegistry()
{
    static Registry registry;
    return registry;
}

char* CopyString(const char* text)
{
    if (!text)
        return nullptr;
    size_t length = std::strlen(text);
    char* copy = new (std::nothrow) char[length + 1];
    if (copy)
        std::memcpy(copy, text, length + 1);
    return copy;
}

void FreeRepliedLocked(Registry& registry)
{
    if (!registry.replyPort)
        return;
    while (Message* message = GetMsg(registry.replyPort))
        FreePostedMessage(message);
}

void StampTime(uint32_t* seconds, uint32_t* micros)
{
    if (*seconds != 0 || *micros != 0)
        return;
    if (DisplayBackend* backend = CurrentDisplayBackend())
        backend->CurrentTime(seconds, micros);
}

// Puts a copy of `event` at `port`, to be replied at the registry's port.
// The registry's lock is held.
bool PutCopyLocked(Registry& registry, MsgPort* port, const IntuiMessage& event, Window* window)
{
    if (!registry.replyPort)
        return false;
    auto* message = new (std::nothrow) IntuiMessage(event);
    if (!message)
        return false;
    message->ExecMessage = Message{};
    message->ExecMessage.mn_Node.ln_Name = kIntuiTag;
    message->ExecMessage.mn_ReplyPort = registry.replyPort;
    message->ExecMessage.mn_Length = sizeof(IntuiMessage);
    message->IDCMPWindow = window;
    StampTime(&message->Seconds, &message->Micros);
    PutMsg(port, &message->ExecMessage);
    return true;
}

} // namespace

void OpenReplyPort()
{
    Registry& registry = TheRegistry();
    std::lock_guard<std::mutex> hold(registry.lock);
    if (!registry.replyPort)
        registry.replyPort = CreateMsgPort();
}

void CloseReplyPort()
{
    Registry& registry = TheRegistry();
    std::lock_guard<std::mutex> hold(registry.lock);
    FreeRepliedLocked(registry);
    DeleteMsgPort(registry.replyPort);
    registry.replyPort = nullptr;
}

void RegisterWindow(Window* window)
{
    Registry& registry = TheRegistry();
    std::lock_guard<std::mutex> hold(registry.lock);
    registry.open.insert(window);
}

void UnregisterWindow(Window* window)
{
    Registry& registry = TheRegistry();
    std::lock_guard<std::mutex> hold(registry.lock);
    registry.open.erase(window);
    for (AppWindow* appWindow : registry.appWindows) {
        if (appWindow->window == window)
            appWindow->window = nullptr;
    }
}

void FreePostedMessage(Message* message)
{
    if (message->mn_Node.ln_Name == kIntuiTag) {
        delete reinterpret_cast<IntuiMessage*>(message);
    } else if (message->mn_Node.ln_Name == kDropTag) {
        auto* block = reinterpret_cast<DropBlock*>(message);
        delete[] block->directory;
        delete[] block->name;
        delete block;
    }
}

bool PostWindowMessage(Window* window, const IntuiMessage& event)
{
    Registry& registry = TheRegistry();
    std::lock_guard<std::mutex> hold(registry.lock);
    FreeRepliedLocked(registry);
    if (!window || !registry.open.count(window))
        return false;
    if ((window->IDCMPFlags & event.Class) == 0)
        return false;
    return PutCopyLocked(registry, window->UserPort, event, window);
}

bool PostIntuiMessage(MsgPort* port, const IntuiMessage& event)
{
    Registry& registry = TheRegistry();
    std::lock_guard<std::mutex> hold(registry.lock);
    FreeRepliedLocked(registry);
    return port && PutCopyLocked(registry, port, event, nullptr);
}

bool PostDrop(Window* window, const char* directory, const char* name, int x, int y)
{
    Registry& registry = TheRegistry();
    std::lock_guard<std::mutex> hold(registry.lock);
    FreeRepliedLocked(registry);
    if (!window || !name || !registry.replyPort || !registry.open.count(window))
        return false;
    AppWindow* target = nullptr;
    for (AppWindow* appWindow : registry.appWindows) {
        if (appWindow->window == window)
            target = appWindow;
    }
    if (!target)
        return false;
    auto* block = new (std::nothrow) DropBlock{};
    if (!block)
        return false;
    block->directory = CopyString(directory);
    block->name = CopyString(name);
    if (!block->name || (directory && !block->directory)) {
        delete[] block->directory;
        delete[] block->name;
        delete block;
        return false;
    }
    block->argument.wa_Directory = block->directory;
    block->argument.wa_Name = block->name;
    AppMessage& message = block->message;
    message.am_Message.mn_Node.ln_Name = kDropTag;
    message.am_Message.mn_ReplyPort = registry.replyPort;
    message.am_Message.mn_Length = sizeof(AppMessage);
    message.am_UserData = target->userData;
    message.am_ID = target->id;
    message.am_NumArgs = 1;
    message.am_ArgList = &block->argument;
    message.am_MouseX = static_cast<int16_t>(x);
    message.am_MouseY = static_cast<int16_t>(y);
    StampTime(&message.am_Seconds, &message.am_Micros);
    PutMsg(target->port, &message.am_Message);
    return true;
}

void CollectReplies()
{
    Registry& registry = TheRegistry();
    std::lock_guard<std::mutex> hold(registry.lock);
    FreeRepliedLocked(registry);
}

AppWindow* AddAppWindow(uint32_t id, uintptr_t userData, Window* window, MsgPort* port)
{
    if (!window || !port || !CurrentDisplayBackend())
        return nullptr;
    Registry& registry = TheRegistry();
    std::lock_guard<std::mutex> hold(registry.lock);
    if (!registry.open.count(window))
        return nullptr;
    auto* appWindow = new (std::nothrow) AppWindow{window, port, id, userData};
    if (appWindow)
        registry.appWindows.push_back(appWindow);
    return appWindow;
}

bool RemoveAppWindow(AppWindow* appWindow)
{
    if (!appWindow)
        return false;
    Registry& registry = TheRegistry();
    std::lock_guard<std::mutex> hold(registry.lock);
    std::erase(registry.appWindows, appWindow);
    delete appWindow;
    return true;
}
