#pragma once
// The desktop's clipboard as the other side of clip unit 0. A display
// backend that has a desktop installs an implementation at start-up and
// removes it (null) before it goes; without one, unit 0 is a clip file like
// every other unit. Implementations may be called from any thread.
#include <string>

class DesktopClipboard {
 public:
  virtual ~DesktopClipboard() = default;
  // The desktop's text in ISO 8859-1, characters outside it dropped. False
  // when the desktop holds no text.
  virtual bool ReadText(std::string& latin1) = 0;
  // Puts ISO 8859-1 text on the desktop; "" clears the desktop clipboard.
  virtual void WriteText(const std::string& latin1) = 0;
};

// Installs `desktop` (null removes it). The object must outlive its use.
void SetDesktopClipboard(DesktopClipboard* desktop);
DesktopClipboard* GetDesktopClipboard();
