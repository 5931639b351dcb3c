#pragma once
// A window's menu strip on the desktop: a QMenuBar made from a picture of
// the strip's records.
//
// The picture is taken on the task that owns the strip (the records are
// its own), and shown on the display thread. Shortcuts are shown beside
// their items, never bound: the editor reads Ctrl + letter itself. A
// picked item and Help pressed on a highlighted item are reported with
// their menu number.
#include "platform/display/menus.h"

#include <QMenuBar>
#include <QString>

#include <functional>
#include <vector>

struct MenuEntryPicture {
    QString label;              // empty for a separator
    QString shortcut;           // "Ctrl+S", or empty
    bool checkable = false;
    bool checked = false;
    MenuNumber number = MENUNULL;
    std::vector<MenuEntryPicture> subItems;
};

struct MenuPicture {
    QString title;
    std::vector<MenuEntryPicture> items;
};

using MenuStripPicture = std::vector<MenuPicture>;

// The height of a window's menu bar with titles in it. Display thread.
int MenuBarHeight();

// Any thread that may read the strip; an empty picture for null.
MenuStripPicture PictureOfStrip(const Menu* strip);

// The bar of one window. Display thread.
class WindowMenuBar {
public:
    using Report = std::function<void(MenuNumber number)>;
    WindowMenuBar(QMenuBar* bar, Report picked, Report help);

    // Shows `picture`; when only check marks differ from what is shown, only
    // they change. An empty picture (a window without strip) greys the bar.
    void Show(const MenuStripPicture& picture);
    // The check mark of an item as its record now has it.
    void SetChecked(MenuNumber number, bool checked);

private:
    void Build(const MenuStripPicture& picture);
    void AddEntries(class QMenu* menu, const std::vector<MenuEntryPicture>& entries);

    QMenuBar* bar_;
    Report picked_;
    Report help_;
    MenuStripPicture shown_;
    std::vector<std::pair<MenuNumber, class QAction*>> checkable_;
};
