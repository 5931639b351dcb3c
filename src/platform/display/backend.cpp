#include "platform/display/backend.h"

#include "platform/display/window_registry.h"

#include <atomic>

namespace {

std::atomic<DisplayBackend*> installed{nullptr};

} // namespace

void SetDisplayBackend(DisplayBackend* backend)
{
    if (backend)
        OpenReplyPort();
    installed.store(backend);
    if (!backend)
        CloseReplyPort();
}

DisplayBackend* CurrentDisplayBackend()
{
    return installed.load();
}

int RunDisplay(DisplayBackend& backend, std::function<void()> mainTask)
{
    SetDisplayBackend(&backend);
    int status = backend.Run(std::move(mainTask));
    SetDisplayBackend(nullptr);
    return status;
}
