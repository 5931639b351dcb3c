#pragma once
// The desktop clipboard of the Qt backend, for clip unit 0. Text crosses as
// UTF-8 on the desktop and ISO 8859-1 in the editor; characters outside
// ISO 8859-1 are dropped on the way in. Qt's clipboard lives on the GUI
// thread: calls from there go straight to it, calls from any other thread
// wait for the GUI thread's event loop to run them, so that loop must be
// running and must never wait for the calling thread. Without a
// QGuiApplication the desktop holds no text and writes go nowhere.
#include "platform/clip/desktop_clipboard.h"

class QtDesktopClipboard final : public DesktopClipboard {
 public:
  bool ReadText(std::string& latin1) override;
  void WriteText(const std::string& latin1) override;
};

// Installs one QtDesktopClipboard for unit 0, or removes it; for the
// backend's start-up and shutdown.
void InstallQtDesktopClipboard();
void RemoveQtDesktopClipboard();
