#include "platform/display/qt/menu_bar.h"

#include "platform/display/qt/key_translation.h"

#include <QKeyEvent>
#include <QMenu>

namespace {

constexpr uint8_t FirstControllable = '@';
constexpr uint8_t LastControllable = '_';

// The key that gives a command: Ctrl with a character from '@' to '_', a
// letter of either case. Other commands have no key on this keyboard.
QString ShortcutText(char command)
{
    auto c = static_cast<uint8_t>(command);
    if (c >= 'a' && c <= 'z')
        c = static_cast<uint8_t>(c - 'a' + 'A');
    if (c < FirstControllable || c > LastControllable)
        return {};
    return QStringLiteral("Ctrl+") + QChar(c);
}

MenuEntryPicture PictureOfItem(const MenuItem* item, MenuNumber number)
{
    MenuEntryPicture entry;
    entry.number = number;
    if (!item->Label)
        return entry;
    entry.label = QString::fromLatin1(item->Label);
    entry.shortcut = ShortcutText(item->Command);
    const uint16_t flags = item->Flags;
    entry.checkable = flags & CHECKIT;
    entry.checked = flags & CHECKED;
    uint16_t sub = 0;
    for (const MenuItem* subItem = item->SubItem; subItem; subItem = subItem->NextItem, ++sub)
        entry.subItems.push_back(
            PictureOfItem(subItem, FULLMENUNUM(MENUNUM(number), ITEMNUM(number), sub)));
    return entry;
}

// A menu that reports Help pressed on its highlighted item.
class HelpMenu : public QMenu {
public:
    HelpMenu(const QString& title, QWidget* parent, WindowMenuBar::Report help)
        : QMenu(title, parent), help_(std::move(help)) {}

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const TranslatedKey key =
            TranslateKey(event->key(), event->modifiers(), event->text(), event->isAutoRepeat());
        QAction* highlighted = activeAction();
        if (key.known && key.code == RAWKEY_HELP && highlighted && highlighted->data().isValid()) {
            help_(MenuNumber(highlighted->data().toUInt()));
            return;
        }
        QMenu::keyPressEvent(event);
    }

private:
    WindowMenuBar::Report help_;
};

bool SameEntries(const std::vector<MenuEntryPicture>& a, const std::vector<MenuEntryPicture>& b)
{
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i].label != b[i].label || a[i].shortcut != b[i].shortcut ||
            a[i].checkable != b[i].checkable || !SameEntries(a[i].subItems, b[i].subItems))
            return false;
    }
    return true;
}

// Equal but for check marks.
bool SameShape(const MenuStripPicture& a, const MenuStripPicture& b)
{
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (a[i].title != b[i].title || !SameEntries(a[i].items, b[i].items)) return false;
    return true;
}

// Labels show as they are: an '&' is no keyboard accelerator here.
QString Escaped(const QString& label)
{
    QString text = label;
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace

int MenuBarHeight()
{
    QMenuBar bar;
    bar.setNativeMenuBar(false);
    bar.addMenu(QStringLiteral(" "));
    return bar.sizeHint().height();
}

MenuStripPicture PictureOfStrip(const Menu* strip)
{
    MenuStripPicture picture;
    uint16_t menuIndex = 0;
    for (const Menu* menu = strip; menu; menu = menu->NextMenu, ++menuIndex) {
        MenuPicture column;
        column.title = QString::fromLatin1(menu->MenuName);
        uint16_t itemIndex = 0;
        for (const MenuItem* item = menu->FirstItem; item; item = item->NextItem, ++itemIndex)
            column.items.push_back(PictureOfItem(item, FULLMENUNUM(menuIndex, itemIndex, NOSUB)));
        picture.push_back(std::move(column));
    }
    return picture;
}

WindowMenuBar::WindowMenuBar(QMenuBar* bar, Report picked, Report help)
    : bar_(bar), picked_(std::move(picked)), help_(std::move(help))
{
}

void WindowMenuBar::Show(const MenuStripPicture& picture)
{
    // A window without its strip (locked while a command runs) keeps the
    // menus in sight, greyed; they usually come back unchanged.
    if (picture.empty()) {
        bar_->setEnabled(false);
        return;
    }
    bar_->setEnabled(true);
    if (SameShape(picture, shown_)) {
        for (const MenuPicture& column : picture)
            for (const MenuEntryPicture& entry : column.items)
                if (entry.checkable) SetChecked(entry.number, entry.checked);
        return;
    }
    Build(picture);
}

void WindowMenuBar::Build(const MenuStripPicture& picture)
{
    bar_->clear();
    checkable_.clear();
    shown_ = picture;
    for (const MenuPicture& column : picture) {
        auto* menu = new HelpMenu(Escaped(column.title), bar_, help_);
        AddEntries(menu, column.items);
        bar_->addMenu(menu);
    }
}

void WindowMenuBar::AddEntries(QMenu* menu, const std::vector<MenuEntryPicture>& entries)
{
    for (const MenuEntryPicture& entry : entries) {
        if (entry.label.isEmpty() && entry.subItems.empty()) {
            menu->addSeparator();
            continue;
        }
        if (!entry.subItems.empty()) {
            auto* sub = new HelpMenu(Escaped(entry.label), menu, help_);
            AddEntries(sub, entry.subItems);
            menu->addMenu(sub);
            continue;
        }
        QString text = Escaped(entry.label);
        // Text behind a tab is the shortcut column of a menu: shown only.
        if (!entry.shortcut.isEmpty()) text += QLatin1Char('\t') + entry.shortcut;
        QAction* action = menu->addAction(text);
        action->setData(uint(entry.number));
        if (entry.checkable) {
            action->setCheckable(true);
            action->setChecked(entry.checked);
            checkable_.emplace_back(entry.number, action);
        }
        const MenuNumber number = entry.number;
        QObject::connect(action, &QAction::triggered, bar_, [this, number] { picked_(number); });
    }
}

void WindowMenuBar::SetChecked(MenuNumber number, bool checked)
{
    for (auto& [itemNumber, action] : checkable_)
        if (itemNumber == number) action->setChecked(checked);
}
