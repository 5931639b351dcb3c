#include "platform/clip/desktop_clipboard.h"

#include <atomic>

namespace {
std::atomic<DesktopClipboard*> installed{nullptr};
}

void SetDesktopClipboard(DesktopClipboard* desktop) { installed.store(desktop); }

DesktopClipboard* GetDesktopClipboard() { return installed.load(); }
