// Requester windows of the headless backend: kept as their models, printed
// and acted on by tests and the event-script driver as a user would.
#include "platform/display/headless/headless_display.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace {

class NoPeer final : public RequesterPeer {};

bool SameLabel(const std::string& label, const std::string& wanted)
{
    std::string plain = PlainLabel(label);
    return std::equal(plain.begin(), plain.end(), wanted.begin(), wanted.end(), [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
    });
}

// The first gadget of the tree that `match` accepts, or null. Of a page
// group only the page shown is looked at, as only that one can be reached.
template <typename Match>
RequesterGadget* FindFirst(RequesterGadget& root, const Match& match)
{
    if (match(root))
        return &root;
    if (root.Kind == GadgetKind::Tabs) {
        if (root.Number < 0 || root.Number >= static_cast<int32_t>(root.Children.size()))
            return nullptr;
        return FindFirst(root.Children[static_cast<size_t>(root.Number)], match);
    }
    for (RequesterGadget& child : root.Children) {
        if (RequesterGadget* found = FindFirst(child, match))
            return found;
    }
    return nullptr;
}

bool IsField(const RequesterGadget& gadget)
{
    return (gadget.Kind == GadgetKind::String || gadget.Kind == GadgetKind::Integer ||
               gadget.Kind == GadgetKind::File) &&
           !gadget.Disabled;
}

// "string: TEXT" or "integer: N", with or without a label beside the field
// (`field LABEL` reaches a field by it); "chooser LABEL: ENTRY" names its
// chooser, as `choose` does. A field that takes no input says so.
std::string FieldLine(const char* kind, const RequesterGadget& gadget, const std::string& value)
{
    std::string line = kind;
    if (gadget.Kind == GadgetKind::Chooser && !gadget.Label.empty())
        line += ' ' + PlainLabel(gadget.Label);
    line += ": " + value;
    if (gadget.Disabled)
        line += " (disabled)";
    return line;
}

void PrintGadget(const RequesterGadget& gadget, std::vector<std::string>& lines)
{
    switch (gadget.Kind) {
    case GadgetKind::Vertical:
    case GadgetKind::Horizontal:
        for (const RequesterGadget& child : gadget.Children)
            PrintGadget(child, lines);
        break;
    case GadgetKind::TextBox:
        for (const std::string& row : gadget.Rows) {
            size_t start = 0;
            do {
                size_t end = row.find('\n', start);
                std::string line = row.substr(start, end == std::string::npos ? end : end - start);
                line.erase(line.find_last_not_of(' ') + 1);
                lines.push_back('|' + line);
                start = end == std::string::npos ? end : end + 1;
            } while (start != std::string::npos);
        }
        break;
    case GadgetKind::Button:
        lines.push_back('[' + PlainLabel(gadget.Label) + ']');
        break;
    case GadgetKind::String:
        lines.push_back(FieldLine("string", gadget, gadget.Text));
        break;
    case GadgetKind::Integer:
        lines.push_back(FieldLine("integer", gadget, std::to_string(gadget.Number)));
        break;
    case GadgetKind::Check:
        lines.push_back("check " + PlainLabel(gadget.Label) + (gadget.Number ? ": on" : ": off"));
        break;
    case GadgetKind::List:
        lines.push_back("list:");
        for (size_t row = 0; row < gadget.Rows.size(); ++row)
            lines.push_back((static_cast<int>(row) == gadget.Number ? "> " : "  ") + gadget.Rows[row]);
        break;
    case GadgetKind::File:
        lines.push_back("drawer: " + gadget.Drawer);
        lines.push_back("file: " + gadget.Text);
        if (gadget.Save)
            lines.push_back("save");
        break;
    case GadgetKind::Font:
        lines.push_back("font: " + gadget.Text + '/' + std::to_string(gadget.Number));
        break;
    case GadgetKind::Tabs:
        lines.push_back("tabs:");
        for (size_t tab = 0; tab < gadget.Rows.size(); ++tab)
            lines.push_back((static_cast<int>(tab) == gadget.Number ? "> " : "  ") + PlainLabel(gadget.Rows[tab]));
        if (gadget.Number >= 0 && gadget.Number < static_cast<int32_t>(gadget.Children.size()))
            PrintGadget(gadget.Children[static_cast<size_t>(gadget.Number)], lines);
        break;
    case GadgetKind::Chooser: {
        const bool chosen = gadget.Number >= 0 && gadget.Number < static_cast<int32_t>(gadget.Rows.size());
        lines.push_back(FieldLine("chooser", gadget, chosen ? gadget.Rows[static_cast<size_t>(gadget.Number)] : ""));
        break;
    }
    }
}

// The row of `rows` whose label, its '_' left out, is `wanted` (case
// ignored); -1 for none.
int32_t RowLabelled(const std::vector<std::string>& rows, const std::string& wanted);

// Edits a field by one key as a one-line editor does; a number field takes
// digits and '-', which flips the sign. False: the key is not the field's
// (it goes to the requester).
bool EditField(RequesterGadget& field, uint16_t code, const char* chars, int count)
{
    bool printable = count == 1 && static_cast<unsigned char>(chars[0]) >= 0x20 && chars[0] != 0x7F;
    if (field.Kind == GadgetKind::Integer) {
        if (code == RAWKEY_BACKSPACE)
            field.Number /= 10;
        else if (printable && std::isdigit(static_cast<unsigned char>(chars[0])))
            field.Number = field.Number * 10 + (field.Number < 0 ? -1 : 1) * (chars[0] - '0');
        else if (printable && chars[0] == '-')
            field.Number = -field.Number;
        else
            return false;
        return true;
    }
    if (code == RAWKEY_BACKSPACE) {
        if (!field.Text.empty())
            field.Text.pop_back();
        return true;
    }
    if (!printable)
        return false;
    if (field.MaxChars <= 0 || static_cast<int>(field.Text.size()) + 1 < field.MaxChars)
        field.Text += chars[0];
    return true;
}

int32_t RowLabelled(const std::vector<std::string>& rows, const std::string& wanted)
{
    for (size_t row = 0; row < rows.size(); ++row) {
        if (SameLabel(rows[row], wanted))
            return static_cast<int32_t>(row);
    }
    return -1;
}

// The key that leaves a field, as GadgetEnd gives it, or 0: Return and
// Enter, Tab, and in a modeless window Esc.
uint16_t FieldEndKey(uint16_t code, bool modeless)
{
    if (code == RAWKEY_RETURN || code == RAWKEY_ENTER)
        return 13;
    if (code == RAWKEY_TAB)
        return 9;
    if (code == RAWKEY_ESC && modeless)
        return 27;
    return 0;
}

} // namespace

bool HeadlessDisplay::OpenRequester(RequesterWindow* requester)
{
    std::lock_guard<std::mutex> hold(lock_);
    requester->Peer = new NoPeer;
    requesters_.push_back(requester);
    // A window of its own opens active, as on a desktop.
    if (requester->Modeless)
        activeModeless_ = requester;
    return true;
}

void HeadlessDisplay::CloseRequester(RequesterWindow* requester)
{
    std::lock_guard<std::mutex> hold(lock_);
    std::erase(requesters_, requester);
    if (activeModeless_ == requester)
        activeModeless_ = nullptr;
    delete requester->Peer;
    requester->Peer = nullptr;
}

void HeadlessDisplay::RequesterChanged(RequesterWindow*) {}

void HeadlessDisplay::RequesterToFront(RequesterWindow* requester)
{
    if (requester->Modeless)
        ActivateRequester(requester);
}

RequesterWindow* HeadlessDisplay::FrontRequester() const
{
    std::lock_guard<std::mutex> hold(lock_);
    if (activeModeless_)
        return activeModeless_;
    for (auto it = requesters_.rbegin(); it != requesters_.rend(); ++it) {
        if (active_ && (*it)->RefWindow == active_ && !(*it)->Modeless)
            return *it;
    }
    for (auto it = requesters_.rbegin(); it != requesters_.rend(); ++it) {
        if (!(*it)->RefWindow && !(*it)->Modeless)
            return *it;
    }
    return nullptr;
}

RequesterWindow* HeadlessDisplay::ModelessRequester() const
{
    std::lock_guard<std::mutex> hold(lock_);
    for (auto it = requesters_.rbegin(); it != requesters_.rend(); ++it) {
        if ((*it)->Modeless)
            return *it;
    }
    return nullptr;
}

bool HeadlessDisplay::ActivateRequester(RequesterWindow* requester)
{
    std::lock_guard<std::mutex> hold(lock_);
    if (!requester->Modeless || std::find(requesters_.begin(), requesters_.end(), requester) == requesters_.end())
        return false;
    activeModeless_ = requester;
    return true;
}

std::vector<std::string> HeadlessDisplay::RequesterLines(const RequesterWindow* requester) const
{
    std::vector<std::string> lines{"requester: " + requester->Title};
    std::lock_guard<std::mutex> hold(requester->Lock);
    PrintGadget(requester->Layout, lines);
    return lines;
}

IntuiMessage HeadlessDisplay::RequesterEvent(uint32_t idcmpClass, uint16_t code, uint16_t qualifier,
                                             uint16_t gadgetEnd) const
{
    std::lock_guard<std::mutex> hold(lock_);
    IntuiMessage event = Event(idcmpClass, code, qualifier);
    event.GadgetEnd = gadgetEnd;
    return event;
}

bool HeadlessDisplay::ReleaseLabelled(GadgetKind kind, const std::string& label, bool flip, std::string* error)
{
    RequesterWindow* requester = FrontRequester();
    if (!requester) {
        *error = "no requester";
        return false;
    }
    uint16_t id = 0;
    {
        std::lock_guard<std::mutex> hold(requester->Lock);
        RequesterGadget* gadget = FindFirst(requester->Layout, [&](const RequesterGadget& candidate) {
            return candidate.Kind == kind && SameLabel(candidate.Label, label);
        });
        if (!gadget) {
            *error = (kind == GadgetKind::Check ? "no check box " : "no button ") + label;
            return false;
        }
        if (flip)
            gadget->Number = !gadget->Number;
        id = gadget->Id;
    }
    return PostRequesterMessage(requester, RequesterEvent(IDCMP_GADGETUP, id, 0));
}

bool HeadlessDisplay::PressRequesterButton(const std::string& label, std::string* error)
{
    return ReleaseLabelled(GadgetKind::Button, label, false, error);
}

bool HeadlessDisplay::InputRequester(const std::string& text, std::string* error)
{
    RequesterWindow* requester = FrontRequester();
    if (!requester) {
        *error = "no requester";
        return false;
    }
    std::lock_guard<std::mutex> hold(requester->Lock);
    RequesterGadget* field = requester->ActiveGadget ? FindRequesterGadget(requester->Layout, requester->ActiveGadget)
                                                     : nullptr;
    if (!field || !IsField(*field))
        field = FindFirst(requester->Layout, IsField);
    if (!field) {
        *error = "the requester has no field to type in";
        return false;
    }
    switch (field->Kind) {
    case GadgetKind::Integer: {
        char* end = nullptr;
        long number = std::strtol(text.c_str(), &end, 10);
        if (text.empty() || *end) {
            *error = "not a number: " + text;
            return false;
        }
        field->Number = static_cast<int32_t>(number);
        break;
    }
    case GadgetKind::File: {
        size_t slash = text.rfind('/');
        if (slash == std::string::npos) {
            field->Text = text;
        } else {
            std::string drawer = text.substr(0, slash);
            field->Drawer = text[0] == '/' ? (drawer.empty() ? "/" : drawer)
                                           : (field->Drawer.empty() ? drawer : field->Drawer + '/' + drawer);
            field->Text = text.substr(slash + 1);
        }
        break;
    }
    default:
        field->Text = text;
        if (field->MaxChars > 0 && static_cast<int>(field->Text.size()) >= field->MaxChars)
            field->Text.resize(static_cast<size_t>(field->MaxChars - 1));
        break;
    }
    return true;
}

bool HeadlessDisplay::PickRow(int row, std::string* error)
{
    RequesterWindow* requester = FrontRequester();
    if (!requester) {
        *error = "no requester";
        return false;
    }
    uint16_t id = 0;
    {
        std::lock_guard<std::mutex> hold(requester->Lock);
        RequesterGadget* list =
            FindFirst(requester->Layout, [](const RequesterGadget& gadget) { return gadget.Kind == GadgetKind::List; });
        if (!list || row < 1 || row > static_cast<int>(list->Rows.size())) {
            *error = list ? "no row " + std::to_string(row) : "the requester has no list";
            return false;
        }
        list->Number = row - 1;
        id = list->Id;
    }
    return PostRequesterMessage(requester, RequesterEvent(IDCMP_GADGETUP, id, 0));
}

bool HeadlessDisplay::FlipCheckBox(const std::string& label, std::string* error)
{
    return ReleaseLabelled(GadgetKind::Check, label, true, error);
}

bool HeadlessDisplay::CloseFrontRequester()
{
    RequesterWindow* requester = FrontRequester();
    return requester && PostRequesterMessage(requester, RequesterEvent(IDCMP_CLOSEWINDOW, 0, 0));
}

bool HeadlessDisplay::CloseAnyRequester()
{
    RequesterWindow* newest = nullptr;
    {
        std::lock_guard<std::mutex> hold(lock_);
        if (!requesters_.empty())
            newest = requesters_.back();
    }
    return newest && PostRequesterMessage(newest, RequesterEvent(IDCMP_CLOSEWINDOW, 0, 0));
}

bool HeadlessDisplay::RequesterKey(RequesterWindow* requester, const KeyStroke& stroke)
{
    IntuiMessage down = RequesterEvent(IDCMP_RAWKEY, stroke.Code, stroke.Qualifier);
    down.Keys = stroke.Keys;
    char chars[8];
    int count = KeyToText(&down, chars, sizeof chars);
    bool plain = (stroke.Qualifier & (IEQUALIFIER_CONTROL | IEQUALIFIER_ALT | IEQUALIFIER_LCOMMAND)) == 0;
    // Ids start at 0 ("_NO"), so a released gadget has its own flag.
    uint16_t gadgetUp = 0;
    uint16_t gadgetEnd = 0;
    bool released = false;
    bool taken = false;
    {
        std::lock_guard<std::mutex> hold(requester->Lock);
        RequesterGadget* field = requester->ActiveGadget
                                     ? FindRequesterGadget(requester->Layout, requester->ActiveGadget)
                                     : nullptr;
        if (field && IsField(*field)) {
            gadgetEnd = FieldEndKey(stroke.Code, requester->Modeless);
            if (gadgetEnd) {
                // Leaving the field reports it; the next Return is the requester's.
                requester->ActiveGadget = 0;
                gadgetUp = field->Id;
                released = taken = true;
            } else {
                taken = plain && EditField(*field, stroke.Code, chars, count);
            }
        } else if (plain && count == 1) {
            char letter = static_cast<char>(std::tolower(static_cast<unsigned char>(chars[0])));
            RequesterGadget* gadget = FindFirst(requester->Layout, [&](const RequesterGadget& candidate) {
                return (candidate.Kind == GadgetKind::Button || candidate.Kind == GadgetKind::Check ||
                           IsField(candidate)) &&
                       ShortcutLetter(candidate.Label) == letter;
            });
            if (gadget && IsField(*gadget)) {
                requester->ActiveGadget = gadget->Id;
                taken = true;
            } else if (gadget) {
                if (gadget->Kind == GadgetKind::Check)
                    gadget->Number = !gadget->Number;
                gadgetUp = gadget->Id;
                released = taken = true;
            }
        }
    }
    if (taken)
        return !released ||
               PostRequesterMessage(requester, RequesterEvent(IDCMP_GADGETUP, gadgetUp, 0, gadgetEnd));
    IntuiMessage up = down;
    up.Code = static_cast<uint16_t>(stroke.Code | IECODE_UP_PREFIX);
    bool posted = PostRequesterMessage(requester, down);
    PostRequesterMessage(requester, up);
    return posted;
}

bool HeadlessDisplay::RequesterButton(RequesterWindow* requester, uint16_t button)
{
    IntuiMessage down = RequesterEvent(IDCMP_MOUSEBUTTONS, button, 0);
    IntuiMessage up = down;
    up.Code = static_cast<uint16_t>(button | IECODE_UP_PREFIX);
    bool posted = PostRequesterMessage(requester, down);
    PostRequesterMessage(requester, up);
    return posted;
}

bool HeadlessDisplay::ShowTab(const std::string& label, std::string* error)
{
    RequesterWindow* requester = FrontRequester();
    if (!requester) {
        *error = "no requester";
        return false;
    }
    uint16_t id = 0;
    {
        std::lock_guard<std::mutex> hold(requester->Lock);
        RequesterGadget* tabs = FindFirst(requester->Layout, [&](const RequesterGadget& gadget) {
            return gadget.Kind == GadgetKind::Tabs && RowLabelled(gadget.Rows, label) >= 0;
        });
        if (!tabs) {
            *error = "no tab " + label;
            return false;
        }
        tabs->Number = RowLabelled(tabs->Rows, label);
        id = tabs->Id;
    }
    return PostRequesterMessage(requester, RequesterEvent(IDCMP_GADGETUP, id, 0));
}

bool HeadlessDisplay::ChooseEntry(const std::string& label, const std::string& entry, std::string* error)
{
    RequesterWindow* requester = FrontRequester();
    if (!requester) {
        *error = "no requester";
        return false;
    }
    uint16_t id = 0;
    {
        std::lock_guard<std::mutex> hold(requester->Lock);
        RequesterGadget* chooser = FindFirst(requester->Layout, [&](const RequesterGadget& gadget) {
            return gadget.Kind == GadgetKind::Chooser && !gadget.Disabled && SameLabel(gadget.Label, label);
        });
        const int32_t row = chooser ? RowLabelled(chooser->Rows, entry) : -1;
        if (row < 0) {
            *error = chooser ? "no entry " + entry : "no chooser " + label;
            return false;
        }
        chooser->Number = row;
        id = chooser->Id;
    }
    return PostRequesterMessage(requester, RequesterEvent(IDCMP_GADGETUP, id, 0));
}

bool HeadlessDisplay::ActivateField(const std::string& label, std::string* error)
{
    RequesterWindow* requester = FrontRequester();
    if (!requester) {
        *error = "no requester";
        return false;
    }
    std::lock_guard<std::mutex> hold(requester->Lock);
    // Labels padded for alignment (" F1") are found without their blanks.
    auto trimmed = [](const std::string& text) {
        const size_t first = text.find_first_not_of(' ');
        return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(' ') - first + 1);
    };
    RequesterGadget* field = FindFirst(requester->Layout, [&](const RequesterGadget& gadget) {
        return IsField(gadget) && !gadget.Label.empty() && SameLabel(trimmed(gadget.Label), label);
    });
    if (!field) {
        *error = "no field " + label;
        return false;
    }
    requester->ActiveGadget = field->Id;
    return true;
}
