#pragma once
// A requester window on the desktop: a dialog modal to its own text window
// only, so that other texts stay usable; a modeless one is a window of its
// own. A layout of gadgets becomes Qt
// widgets; a file chooser is the desktop's file dialog and a font chooser
// the font dialog of fixed-width fonts. What the user does is posted to the
// requester's port as requester_window.h says.
//
// Made, changed and destroyed on the display thread; after destruction
// nothing more is posted for the record.
#include "platform/display/requester_window.h"

#include <QPoint>

class QDialog;
class QWidget;

class QtRequester final : public RequesterPeer {
public:
    // Builds and shows the dialog over `parent` (may be null); `screen` is
    // the desktop position of the screen's top-left corner.
    QtRequester(RequesterWindow* requester, QWidget* parent, QPoint screen);
    ~QtRequester() override;
    QtRequester(const QtRequester&) = delete;
    QtRequester& operator=(const QtRequester&) = delete;

    // Shows the values and the active field after the task changed them.
    void ShowValues();
    // Writes the box the user left the dialog in back to the record.
    void KeepBox();
    // Raises the window and gives it the keyboard.
    void ToFront();

private:
    class Form;
    void OpenFileDialog(RequesterGadget& chooser);
    void OpenFontDialog(RequesterGadget& chooser);
    void Place(QDialog* dialog);
    void Post(uint32_t idcmpClass, uint16_t code, uint16_t gadgetEnd = 0);

    RequesterWindow* requester_;
    QDialog* dialog_ = nullptr;
    Form* form_ = nullptr;
    QPoint screen_;
};
