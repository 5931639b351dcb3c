#include "platform/display/qt/requester_dialog.h"

#include "platform/display/qt/key_translation.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QCloseEvent>
#include <QCursor>
#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontDialog>
#include <QFrame>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

namespace {

constexpr uint16_t kRawEnter = 0x43;
constexpr uint16_t kRawReturn = 0x44;
constexpr uint16_t kRawEsc = 0x45;

// A '_' before a key letter becomes Qt's '&', which underlines it.
QString ButtonText(const std::string& label)
{
    QString text = QString::fromLatin1(label.c_str());
    text.replace(QLatin1Char('&'), QStringLiteral("&&"));
    int mark = text.indexOf(QLatin1Char('_'));
    if (mark >= 0)
        text[mark] = QLatin1Char('&');
    return text;
}

} // namespace

// The dialog of a requester built from gadgets.
class QtRequester::Form final : public QDialog {
public:
    Form(QtRequester* owner, QWidget* parent) : QDialog(parent), owner_(owner) {}

    QWidget* Build(const RequesterGadget& gadget);
    void ShowValues(const RequesterWindow& requester);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void reject() override {}

private:
    struct Field {
        uint16_t id;
        GadgetKind kind;
        QWidget* widget;
    };
    // The field that has the keyboard, or null.
    const Field* FocusedField() const;
    // Reports the field as left by the key `gadgetEnd` and takes the
    // keyboard back.
    void LeaveField(const Field& field, uint16_t gadgetEnd);
    // Gives the keyboard to a field, as its letter does.
    void EnterField(QLineEdit* edit);
    void Store(uint16_t id, const std::string* text, const int32_t* number);
    // A check box, list row, tab or chooser entry chosen: its number is
    // stored and the gadget reported.
    void Chosen(uint16_t id, int32_t number);

    // A field or chooser with its label beside it, when it has one.
    QWidget* Labelled(const RequesterGadget& gadget, QWidget* field);

    struct TabShortcut {
        char letter;
        QTabWidget* tabs;
        int page;
    };

    QtRequester* owner_;
    std::vector<Field> fields_;
    // The letters of buttons and check boxes (clicked), of labelled fields
    // (given the keyboard) and of tabs (shown).
    std::vector<std::pair<char, QAbstractButton*>> shortcuts_;
    std::vector<std::pair<char, QWidget*>> fieldShortcuts_;
    std::vector<TabShortcut> tabShortcuts_;
};

QWidget* QtRequester::Form::Build(const RequesterGadget& gadget)
{
    switch (gadget.Kind) {
    case GadgetKind::Vertical:
    case GadgetKind::Horizontal: {
        QWidget* group = gadget.Label.empty() ? new QWidget : new QGroupBox(QString::fromLatin1(gadget.Label.c_str()));
        QBoxLayout* layout = gadget.Kind == GadgetKind::Vertical ? static_cast<QBoxLayout*>(new QVBoxLayout(group))
                                                                  : new QHBoxLayout(group);
        if (gadget.Label.empty())
            layout->setContentsMargins(0, 0, 0, 0);
        for (const RequesterGadget& child : gadget.Children)
            layout->addWidget(Build(child));
        // A framed column keeps its gadgets together at the top.
        if (!gadget.Label.empty() && gadget.Kind == GadgetKind::Vertical)
            layout->addStretch(1);
        return group;
    }
    case GadgetKind::TextBox: {
        auto* box = new QFrame;
        box->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        auto* layout = new QVBoxLayout(box);
        for (const std::string& row : gadget.Rows) {
            auto* label = new QLabel(QString::fromLatin1(row.c_str()));
            label->setAlignment(Qt::AlignCenter);
            layout->addWidget(label);
        }
        return box;
    }
    case GadgetKind::Button: {
        auto* button = new QPushButton(ButtonText(gadget.Label));
        button->setAutoDefault(false);
        // A pop-up button ("...") is as narrow as its text.
        if (PlainLabel(gadget.Label) == "...")
            button->setFixedWidth(button->fontMetrics().horizontalAdvance(button->text()) * 3);
        button->setFocusPolicy(Qt::NoFocus);
        uint16_t id = gadget.Id;
        connect(button, &QPushButton::clicked, this, [this, id] { owner_->Post(IDCMP_GADGETUP, id); });
        if (char letter = ShortcutLetter(gadget.Label))
            shortcuts_.emplace_back(letter, button);
        return button;
    }
    case GadgetKind::String:
    case GadgetKind::Integer: {
        auto* edit = new QLineEdit;
        uint16_t id = gadget.Id;
        if (gadget.Kind == GadgetKind::String) {
            if (gadget.MaxChars > 0)
                edit->setMaxLength(gadget.MaxChars - 1);
            // A field of a few characters is as wide as they are.
            if (gadget.MaxChars > 0 && gadget.MaxChars <= 8)
                edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QLatin1Char('M')) * (gadget.MaxChars + 2));
            edit->setText(QString::fromLatin1(gadget.Text.c_str()));
            connect(edit, &QLineEdit::textEdited, this, [this, id](const QString& text) {
                std::string latin = text.toLatin1().toStdString();
                Store(id, &latin, nullptr);
            });
        } else {
            edit->setValidator(new QIntValidator(edit));
            edit->setText(QString::number(gadget.Number));
            connect(edit, &QLineEdit::textEdited, this, [this, id](const QString& text) {
                int32_t number = text.toInt();
                Store(id, nullptr, &number);
            });
        }
        fields_.push_back({id, gadget.Kind, edit});
        return Labelled(gadget, edit);
    }
    case GadgetKind::Check: {
        auto* box = new QCheckBox(ButtonText(gadget.Label));
        box->setFocusPolicy(Qt::NoFocus);
        box->setChecked(gadget.Number != 0);
        uint16_t id = gadget.Id;
        connect(box, &QCheckBox::toggled, this, [this, id](bool on) { Chosen(id, on); });
        fields_.push_back({id, gadget.Kind, box});
        if (char letter = ShortcutLetter(gadget.Label))
            shortcuts_.emplace_back(letter, box);
        return box;
    }
    case GadgetKind::List: {
        auto* list = new QListWidget;
        list->setFocusPolicy(Qt::NoFocus);
        for (const std::string& row : gadget.Rows)
            list->addItem(QString::fromLatin1(row.c_str()));
        list->setCurrentRow(gadget.Number);
        uint16_t id = gadget.Id;
        connect(list, &QListWidget::clicked, this, [this, id](const QModelIndex& index) { Chosen(id, index.row()); });
        fields_.push_back({id, gadget.Kind, list});
        return list;
    }
    case GadgetKind::Tabs: {
        auto* tabs = new QTabWidget;
        tabs->setFocusPolicy(Qt::NoFocus);
        for (size_t page = 0; page < gadget.Children.size(); ++page) {
            const std::string label = page < gadget.Rows.size() ? gadget.Rows[page] : std::string();
            tabs->addTab(Build(gadget.Children[page]), ButtonText(label));
            if (char letter = ShortcutLetter(label))
                tabShortcuts_.push_back({letter, tabs, static_cast<int>(page)});
        }
        tabs->setCurrentIndex(gadget.Number);
        uint16_t id = gadget.Id;
        connect(tabs, &QTabWidget::currentChanged, this, [this, id](int page) { Chosen(id, page); });
        fields_.push_back({id, gadget.Kind, tabs});
        return tabs;
    }
    case GadgetKind::Chooser: {
        auto* chooser = new QComboBox;
        chooser->setFocusPolicy(Qt::NoFocus);
        for (const std::string& row : gadget.Rows)
            chooser->addItem(QString::fromLatin1(row.c_str()));
        chooser->setCurrentIndex(gadget.Number);
        uint16_t id = gadget.Id;
        connect(chooser, &QComboBox::activated, this, [this, id](int row) { Chosen(id, row); });
        fields_.push_back({id, gadget.Kind, chooser});
        return Labelled(gadget, chooser);
    }
    case GadgetKind::File:
    case GadgetKind::Font:
        break;
    }
    return new QWidget;
}

QWidget* QtRequester::Form::Labelled(const RequesterGadget& gadget, QWidget* field)
{
    if (gadget.Label.empty())
        return field;
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(ButtonText(gadget.Label));
    label->setBuddy(field);
    layout->addWidget(label);
    // A field of fixed width stands beside its label; others take the row.
    const bool grows = field->maximumWidth() == QWIDGETSIZE_MAX;
    layout->addWidget(field, grows ? 1 : 0);
    if (!grows)
        layout->addStretch(1);
    if (char letter = ShortcutLetter(gadget.Label))
        fieldShortcuts_.emplace_back(letter, field);
    return row;
}

void QtRequester::Form::ShowValues(const RequesterWindow& requester)
{
    std::lock_guard<std::mutex> hold(requester.Lock);
    for (const Field& field : fields_) {
        const RequesterGadget* gadget = FindRequesterGadget(requester.Layout, field.id);
        if (!gadget)
            continue;
        QSignalBlocker quiet(field.widget);
        field.widget->setEnabled(!gadget->Disabled);
        if (auto* edit = qobject_cast<QLineEdit*>(field.widget)) {
            QString text = field.kind == GadgetKind::String ? QString::fromLatin1(gadget->Text.c_str())
                                                            : QString::number(gadget->Number);
            if (edit->text() != text)
                edit->setText(text);
            if (field.id == requester.ActiveGadget) {
                edit->setFocus();
                edit->selectAll();
            }
        } else if (auto* box = qobject_cast<QCheckBox*>(field.widget)) {
            box->setChecked(gadget->Number != 0);
        } else if (auto* list = qobject_cast<QListWidget*>(field.widget)) {
            list->setCurrentRow(gadget->Number);
        } else if (auto* tabs = qobject_cast<QTabWidget*>(field.widget)) {
            tabs->setCurrentIndex(gadget->Number);
        } else if (auto* chooser = qobject_cast<QComboBox*>(field.widget)) {
            chooser->setCurrentIndex(gadget->Number);
        }
    }
    if (requester.ActiveGadget == 0 && FocusedField())
        setFocus();
}

void QtRequester::Form::Store(uint16_t id, const std::string* text, const int32_t* number)
{
    RequesterWindow* requester = owner_->requester_;
    std::lock_guard<std::mutex> hold(requester->Lock);
    RequesterGadget* gadget = FindRequesterGadget(requester->Layout, id);
    if (!gadget)
        return;
    if (text)
        gadget->Text = *text;
    if (number)
        gadget->Number = *number;
}

void QtRequester::Form::Chosen(uint16_t id, int32_t number)
{
    Store(id, nullptr, &number);
    owner_->Post(IDCMP_GADGETUP, id);
}

const QtRequester::Form::Field* QtRequester::Form::FocusedField() const
{
    for (const Field& field : fields_) {
        if ((field.kind == GadgetKind::String || field.kind == GadgetKind::Integer) && field.widget->hasFocus())
            return &field;
    }
    return nullptr;
}

void QtRequester::Form::LeaveField(const Field& field, uint16_t gadgetEnd)
{
    {
        std::lock_guard<std::mutex> hold(owner_->requester_->Lock);
        owner_->requester_->ActiveGadget = 0;
    }
    setFocus();
    owner_->Post(IDCMP_GADGETUP, field.id, gadgetEnd);
}

void QtRequester::Form::EnterField(QLineEdit* edit)
{
    for (const Field& field : fields_) {
        if (field.widget != edit)
            continue;
        std::lock_guard<std::mutex> hold(owner_->requester_->Lock);
        owner_->requester_->ActiveGadget = field.id;
    }
    edit->setFocus();
    edit->selectAll();
}

void QtRequester::Form::keyPressEvent(QKeyEvent* event)
{
    TranslatedKey key = TranslateKey(event->key(), event->modifiers(), event->text(), event->isAutoRepeat());
    if (!key.known)
        return;
    if (const Field* field = FocusedField()) {
        if (key.code == kRawReturn || key.code == kRawEnter)
            LeaveField(*field, 13);
        else if (key.code == kRawEsc && owner_->requester_->Modeless)
            LeaveField(*field, 27);
        return;
    }
    bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    QString text = event->text();
    if (plain && text.size() == 1) {
        char letter = static_cast<char>(text.at(0).toLower().toLatin1());
        for (const auto& [shortcut, button] : shortcuts_) {
            if (shortcut == letter && button->isVisible() && button->isEnabled()) {
                button->click();
                return;
            }
        }
        for (const TabShortcut& tab : tabShortcuts_) {
            if (tab.letter == letter) {
                tab.tabs->setCurrentIndex(tab.page);
                return;
            }
        }
        for (const auto& [shortcut, field] : fieldShortcuts_) {
            if (shortcut == letter && field->isVisible() && field->isEnabled()) {
                if (auto* chooser = qobject_cast<QComboBox*>(field))
                    chooser->showPopup();
                else if (auto* edit = qobject_cast<QLineEdit*>(field))
                    EnterField(edit);
                else
                    field->setFocus();
                return;
            }
        }
    }
    owner_->Post(IDCMP_RAWKEY, key.code);
}

bool QtRequester::Form::focusNextPrevChild(bool next)
{
    if (const Field* field = FocusedField()) {
        LeaveField(*field, 9);
        return true;
    }
    return QDialog::focusNextPrevChild(next);
}

void QtRequester::Form::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton)
        owner_->Post(IDCMP_MOUSEBUTTONS, IECODE_RBUTTON);
    else if (event->button() == Qt::MiddleButton)
        owner_->Post(IDCMP_MOUSEBUTTONS, IECODE_MBUTTON);
}

void QtRequester::Form::closeEvent(QCloseEvent* event)
{
    // The task decides; the window goes when it closes the requester.
    event->ignore();
    owner_->Post(IDCMP_CLOSEWINDOW, 0);
}

QtRequester::QtRequester(RequesterWindow* requester, QWidget* parent, QPoint screen)
    : requester_(requester), screen_(screen)
{
    requester->Peer = this;
    RequesterGadget* chooser = nullptr;
    for (RequesterGadget& child : requester->Layout.Children) {
        if (child.Kind == GadgetKind::File || child.Kind == GadgetKind::Font)
            chooser = &child;
    }
    if (chooser && chooser->Kind == GadgetKind::File) {
        dialog_ = new QFileDialog(parent);
        OpenFileDialog(*chooser);
    } else if (chooser) {
        dialog_ = new QFontDialog(parent);
        OpenFontDialog(*chooser);
    } else {
        form_ = new Form(this, parent);
        dialog_ = form_;
        auto* layout = new QVBoxLayout(form_);
        layout->addWidget(form_->Build(requester->Layout));
        if (requester->WidthChars > 0)
            form_->setMinimumWidth(form_->fontMetrics().horizontalAdvance(QLatin1Char('x')) * requester->WidthChars);
        for (QListWidget* list : form_->findChildren<QListWidget*>())
            list->setMinimumHeight(list->sizeHintForRow(0) * std::max(requester->MinVisibleRows, 4));
    }
    dialog_->setWindowTitle(QString::fromLatin1(requester->Title.c_str()));
    dialog_->setWindowModality(parent ? Qt::WindowModal : Qt::NonModal);
    dialog_->setAttribute(Qt::WA_DeleteOnClose, false);
    if (form_) {
        form_->adjustSize();
        if (requester->Widens)
            form_->setFixedHeight(form_->sizeHint().height());
        else
            form_->setFixedSize(form_->sizeHint());
    }
    Place(dialog_);
    dialog_->show();
    dialog_->raise();
    dialog_->activateWindow();
    if (form_)
        ShowValues();
}

QtRequester::~QtRequester()
{
    if (dialog_) {
        dialog_->disconnect();
        dialog_->hide();
        dialog_->deleteLater();
    }
    requester_->Peer = nullptr;
}

void QtRequester::Place(QDialog* dialog)
{
    if (requester_->Width > 0) {
        dialog->setGeometry(screen_.x() + requester_->Left, screen_.y() + requester_->Top, requester_->Width,
                            requester_->Height);
        return;
    }
    QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    QSize size = dialog->sizeHint();
    switch (requester_->Place) {
    case RequesterPlace::ScreenTopLeft:
        dialog->move(area.topLeft());
        break;
    case RequesterPlace::FollowMouse:
        dialog->move(QCursor::pos() - QPoint(size.width() / 2, size.height() / 2));
        break;
    case RequesterPlace::WindowCenter:
        if (dialog->parentWidget()) {
            QRect over = dialog->parentWidget()->frameGeometry();
            dialog->move(over.center() - QPoint(size.width() / 2, size.height() / 2));
            break;
        }
        [[fallthrough]];
    case RequesterPlace::ScreenCenter:
        dialog->move(area.center() - QPoint(size.width() / 2, size.height() / 2));
        break;
    }
}

void QtRequester::OpenFileDialog(RequesterGadget& chooser)
{
    auto* files = static_cast<QFileDialog*>(dialog_);
    files->setDirectory(QString::fromLocal8Bit(chooser.Drawer.c_str()));
    files->selectFile(QString::fromLocal8Bit(chooser.Text.c_str()));
    files->setAcceptMode(chooser.Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    files->setFileMode(chooser.Save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    files->setOption(QFileDialog::DontConfirmOverwrite);
    for (const RequesterGadget& gadget : requester_->Layout.Children) {
        for (const RequesterGadget& button : gadget.Children) {
            QString label = QString::fromLatin1(PlainLabel(button.Label).c_str());
            files->setLabelText(button.Id == chooser.Id ? QFileDialog::Accept : QFileDialog::Reject, label);
        }
    }
    uint16_t id = chooser.Id;
    QObject::connect(files, &QFileDialog::accepted, files, [this, files, id] {
        QStringList chosen = files->selectedFiles();
        QFileInfo info(chosen.isEmpty() ? QString() : chosen.first());
        {
            std::lock_guard<std::mutex> hold(requester_->Lock);
            if (RequesterGadget* gadget = FindRequesterGadget(requester_->Layout, id)) {
                gadget->Drawer = info.absolutePath().toStdString();
                gadget->Text = info.fileName().toStdString();
            }
        }
        KeepBox();
        Post(IDCMP_GADGETUP, id);
    });
    QObject::connect(files, &QFileDialog::rejected, files, [this] { Post(IDCMP_CLOSEWINDOW, 0); });
}

void QtRequester::OpenFontDialog(RequesterGadget& chooser)
{
    auto* fonts = static_cast<QFontDialog*>(dialog_);
    fonts->setOption(QFontDialog::MonospacedFonts);
    QFont start = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    std::string name = chooser.Text;
    if (!name.ends_with(".font"))
        start.setFamily(QString::fromLatin1(name.c_str()));
    if (chooser.Number > 0)
        start.setPointSize(chooser.Number);
    fonts->setCurrentFont(start);
    uint16_t id = chooser.Id;
    QObject::connect(fonts, &QFontDialog::accepted, fonts, [this, fonts, id] {
        QFont font = fonts->selectedFont();
        {
            std::lock_guard<std::mutex> hold(requester_->Lock);
            if (RequesterGadget* gadget = FindRequesterGadget(requester_->Layout, id)) {
                gadget->Text = font.family().toLatin1().toStdString();
                gadget->Number = font.pointSize();
            }
        }
        Post(IDCMP_GADGETUP, id);
    });
    QObject::connect(fonts, &QFontDialog::rejected, fonts, [this] { Post(IDCMP_CLOSEWINDOW, 0); });
}

void QtRequester::ShowValues()
{
    if (form_)
        form_->ShowValues(*requester_);
}

void QtRequester::KeepBox()
{
    QRect box = dialog_->geometry();
    requester_->Left = box.x() - screen_.x();
    requester_->Top = box.y() - screen_.y();
    requester_->Width = box.width();
    requester_->Height = box.height();
}

void QtRequester::Post(uint32_t idcmpClass, uint16_t code, uint16_t gadgetEnd)
{
    IntuiMessage event;
    event.Class = idcmpClass;
    event.Code = code;
    event.GadgetEnd = gadgetEnd;
    PostRequesterMessage(requester_, event);
}

void QtRequester::ToFront()
{
    dialog_->show();
    dialog_->raise();
    dialog_->activateWindow();
}
