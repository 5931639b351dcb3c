#include "frame/process/search_window.h"

#include "config/shared_copy.h"
#include "frame/process/main_handlers.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "platform/display/input_codes.h"
#include "platform/display/intuition.h"
#include "platform/display/requester_window.h"
#include "platform/exec/memory.h"
#include "platform/utility/strings.h"
#include "requesters/requester_layout.h"
#include "text/record/text_record.h"

#include <cstring>

namespace {

// The gadgets by id, as the window's events name them.
constexpr uint16_t FindPreviousGadget = 1;
constexpr uint16_t FindNextGadget = 2;
constexpr uint16_t ReplacePreviousGadget = 3;
constexpr uint16_t ReplaceNextGadget = 4;
constexpr uint16_t CaseGadget = 5;
constexpr uint16_t ReplaceGadget = 6;
constexpr uint16_t SearchGadget = 7;
constexpr uint16_t RestoreGadget = 8;
constexpr uint16_t OtherSearchGadget = 9;
constexpr uint16_t OtherReplaceGadget = 10;

constexpr MessageId WindowTitle{159};
constexpr MessageId SearchLabel{160};
constexpr MessageId FindPreviousLabel{161};
constexpr MessageId FindNextLabel{162};
constexpr MessageId OtherSearchLabel{163};
constexpr MessageId CaseLabel{164};
constexpr MessageId ReplaceLabel{165};
constexpr MessageId ReplacePreviousLabel{166};
constexpr MessageId ReplaceNextLabel{167};
constexpr MessageId OtherReplaceLabel{168};
constexpr MessageId RestoreLabel{169};

// The keys that leave a field without a command.
constexpr uint16_t TabEnd = 9;
constexpr uint16_t EscEnd = 27;

// Null while closed. Touched by the main process alone.
RequesterWindow* SearchWindow = nullptr;

RequesterGadget StringField(uint16_t id, MessageId label, const char* text)
{
    RequesterGadget field = Labelled(GadgetKind::String, id, GetString(label));
    field.MaxChars = FindTextSize;
    field.Text = text;
    return field;
}

// Two rows: the find text with its buttons and the case box, then the
// replacement with its buttons and "Restaure".
RequesterGadget SearchLayout(bool ignoreCase)
{
    RequesterGadget caseBox = Labelled(GadgetKind::Check, CaseGadget, GetString(CaseLabel));
    caseBox.Number = ignoreCase;
    return Column({
        Row({StringField(SearchGadget, SearchLabel, Globals.SearchText), Button(FindPreviousGadget, FindPreviousLabel),
            Button(FindNextGadget, FindNextLabel), Button(OtherSearchGadget, OtherSearchLabel), caseBox}),
        Row({StringField(ReplaceGadget, ReplaceLabel, Globals.ReplaceText),
            Button(ReplacePreviousGadget, ReplacePreviousLabel), Button(ReplaceNextGadget, ReplaceNextLabel),
            Button(OtherReplaceGadget, OtherReplaceLabel), Button(RestoreGadget, RestoreLabel)}),
    });
}

// Opens the window with the case option of the text that asked, or
// brings the open one to the front; either way the find field gets the
// keyboard.
bool ShowSearchWindow(bool ignoreCase)
{
    if (SearchWindow) {
        RequesterToFront(SearchWindow);
        ActivateRequesterGadget(SearchWindow, SearchGadget);
        return true;
    }
    auto* window = new RequesterWindow;
    window->Title = GetString(WindowTitle);
    window->Layout = SearchLayout(ignoreCase);
    window->Modeless = true;
    window->Place = RequesterPlace::ScreenTopLeft;
    window->ActiveGadget = SearchGadget;
    if (!OpenRequesterWindow(window)) {
        delete window;
        DisplayBeep(Globals.Screen);
        return false;
    }
    SearchWindow = window;
    return true;
}

// The active text, when it can take a command now; else a beep and null.
TextRecord* ReadyText()
{
    TextRecord* text = Globals.ActiveText;
    if (text && !(text->TextState & Busy))
        return text;
    DisplayBeep(Globals.Screen);
    return nullptr;
}

// Hands `strings` (null when memory ran out) with the window's case option
// to the active text; a beep when either is missing.
void SendWithCase(int16_t code, char* strings)
{
    if (!strings) {
        DisplayBeep(Globals.Screen);
        return;
    }
    TextRecord* text = ReadyText();
    if (!text) {
        FreeVec(strings);
        return;
    }
    SendToText(text, CMD_SET_CASE, RequesterNumber(SearchWindow, CaseGadget));
    if (!SendToText(text, code, reinterpret_cast<intptr_t>(strings)))
        FreeVec(strings);
}

// Ids 1, 2 and 7: the find text becomes SearchText and goes to the active
// text as its own copy.
void FindFromWindow(int16_t code)
{
    Strlcpy(Globals.SearchText, RequesterText(SearchWindow, SearchGadget).c_str(), FindTextSize);
    SendWithCase(code, SharedCopy(Globals.SearchText));
}

// Ids 3, 4 and 6: both texts are kept, and travel in one block, the
// replacement behind the find text's terminator.
void ReplaceFromWindow(int16_t code)
{
    Strlcpy(Globals.SearchText, RequesterText(SearchWindow, SearchGadget).c_str(), FindTextSize);
    Strlcpy(Globals.ReplaceText, RequesterText(SearchWindow, ReplaceGadget).c_str(), FindTextSize);
    size_t findSize = std::strlen(Globals.SearchText) + 1;
    size_t replaceSize = std::strlen(Globals.ReplaceText) + 1;
    auto* block = static_cast<char*>(AllocVec(findSize + replaceSize, MEMF_SHARED));
    if (block) {
        std::memcpy(block, Globals.SearchText, findSize);
        std::memcpy(block + findSize, Globals.ReplaceText, replaceSize);
    }
    SendWithCase(code, block);
}

void EmptyField(uint16_t id)
{
    SetRequesterText(SearchWindow, id, "");
    ActivateRequesterGadget(SearchWindow, id);
}

void ServeGadget(uint16_t id)
{
    switch (id) {
    case FindPreviousGadget:
        FindFromWindow(CMD_FIND_PREV);
        break;
    case FindNextGadget:
    case SearchGadget:
        FindFromWindow(CMD_FIND_NEXT);
        break;
    case ReplacePreviousGadget:
        ReplaceFromWindow(CMD_REPLACE_PREV);
        break;
    case ReplaceNextGadget:
    case ReplaceGadget:
        ReplaceFromWindow(CMD_REPLACE_NEXT);
        break;
    case CaseGadget:
        BroadcastToTexts(CMD_SET_CASE, RequesterNumber(SearchWindow, CaseGadget));
        break;
    case OtherSearchGadget:
        EmptyField(SearchGadget);
        break;
    case OtherReplaceGadget:
        EmptyField(ReplaceGadget);
        break;
    case RestoreGadget:
        if (TextRecord* text = ReadyText())
            SendToText(text, CMD_RESTORE_LINE, 0);
        break;
    default:
        break;
    }
}

// Tab leaves a field for the other one, without a command.
void CycleField(uint16_t left)
{
    ActivateRequesterGadget(SearchWindow, left == SearchGadget ? ReplaceGadget : SearchGadget);
}

// A key pressed while no field has the keyboard; true: close the window.
bool ServeKey(uint16_t code)
{
    switch (code) {
    case RAWKEY_RETURN:
        ActivateRequesterGadget(SearchWindow, SearchGadget);
        return false;
    case RAWKEY_ENTER:
        ActivateRequesterGadget(SearchWindow, ReplaceGadget);
        return false;
    default:
        return code == RAWKEY_ESC;
    }
}

} // namespace

uint32_t SearchWindowSignal()
{
    return SearchWindow ? PortSignal(SearchWindow->UserPort) : 0;
}

void HandleSearchWindow()
{
    bool close = false;
    while (SearchWindow && !close) {
        Message* message = GetMsg(SearchWindow->UserPort);
        if (!message)
            break;
        const IntuiMessage event = *reinterpret_cast<IntuiMessage*>(message);
        ReplyMsg(message);
        if (event.Class == IDCMP_CLOSEWINDOW)
            close = true;
        else if (event.Class == IDCMP_RAWKEY)
            close = ServeKey(event.Code);
        else if (event.Class == IDCMP_GADGETUP && event.GadgetEnd == TabEnd)
            CycleField(event.Code);
        else if (event.Class == IDCMP_GADGETUP && event.GadgetEnd != EscEnd)
            ServeGadget(event.Code);
    }
    if (close)
        CloseSearchWindow();
}

void CloseSearchWindow()
{
    if (!SearchWindow)
        return;
    CloseRequesterWindow(SearchWindow);
    delete SearchWindow;
    SearchWindow = nullptr;
}

void ShowSearchText()
{
    if (SearchWindow)
        SetRequesterText(SearchWindow, SearchGadget, Globals.SearchText);
}

void ShowReplaceText()
{
    if (SearchWindow)
        SetRequesterText(SearchWindow, ReplaceGadget, Globals.ReplaceText);
}

void HandleOpenSearch(CommandMessage* message, int16_t*)
{
    bool ignoreCase = message->Sender && (message->Sender->Options & IgnoreCase);
    message->Argument = ShowSearchWindow(ignoreCase) ? reinterpret_cast<intptr_t>(SearchWindow) : 0;
}

void HandleCloseSearch(CommandMessage*, int16_t*)
{
    CloseSearchWindow();
}

void HandleCaseChanged(CommandMessage* message, int16_t*)
{
    if (SearchWindow)
        SetRequesterNumber(SearchWindow, CaseGadget, message->Argument != 0);
}
