#pragma once
// What the widgets of a window report, already in the editor's terms (raw
// codes, qualifiers, positions relative to the window's top-left corner).
// Implemented by the window that owns the widgets, which turns each report
// into a message at the window's port. All calls come on the display thread
// and must not block.
#include "platform/display/intuition.h"

#include <QPoint>
#include <QStringList>

#include <cstdint>

enum class ScrollerPart { SubArrow, AddArrow, Knob, SubPage, AddPage };
enum class ScrollerAction { Down, Move, Up };

class WindowEvents {
public:
    virtual ~WindowEvents() = default;
    // `code` has the key-up bit set for a release.
    virtual void KeyEvent(uint16_t code, uint16_t qualifier, const KeyChars& keys) = 0;
    // `cls` is the message class (buttons or movement), `code` the button code.
    virtual void MouseEvent(uint32_t cls, uint16_t code, uint16_t qualifier, QPoint position) = 0;
    // `pot` is the scroller's value after the action, 0 .. 0xFFFF.
    virtual void ScrollerEvent(bool vertical, ScrollerPart part, ScrollerAction action,
                               uint16_t pot, uint16_t qualifier, QPoint position) = 0;
    // The window's inner size changed; its place on the desktop changed.
    virtual void Resized() = 0;
    virtual void Moved() = 0;
    virtual void Activated(bool active) = 0;
    virtual void Tick() = 0;
    virtual void CloseRequested() = 0;
    virtual void FilesDropped(const QStringList& paths, QPoint position) = 0;
};
