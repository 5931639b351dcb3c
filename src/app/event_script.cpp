#include "app/event_script.h"

#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/idle.h"
#include "frame/protocol/send.h"
#include "platform/display/headless/headless_display.h"
#include "platform/display/requester_window.h"
#include "platform/exec/semaphores.h"
#include "platform/rexx/script_server.h"
#include "text/record/text_record.h"

#include <chrono>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

// One line of the script: its command word, the words after it, and the
// rest of the line as it stands (for commands that take text).
struct ScriptLine {
    std::string command;
    std::vector<std::string> args;
    std::string rest;
};

class Driver {
public:
    Driver(HeadlessDisplay& display, std::ostream& out)
        : display_(display),
          out_(out) { }

    // Empty on success, else the error's text.
    std::string Run(const std::string& line);
    void WaitForRest();
    void WaitForInput();

private:
    using Handler = std::string (Driver::*)(const ScriptLine& line);
    struct Command {
        const char* name;
        Handler handler;
    };
    static const Command Commands[];

    std::string Key(const ScriptLine& line);
    std::string Type(const ScriptLine& line);
    std::string Pointer(const ScriptLine& line);
    std::string Sleep(const ScriptLine& line);
    std::string Tick(const ScriptLine& line);
    std::string Drop(const ScriptLine& line);
    std::string Activate(const ScriptLine& line);
    std::string Wait(const ScriptLine& line);
    std::string Dump(const ScriptLine& line);
    std::string Requester(const ScriptLine& line);
    std::string Button(const ScriptLine& line);
    std::string Input(const ScriptLine& line);
    std::string Pick(const ScriptLine& line);
    std::string Check(const ScriptLine& line);
    std::string Tab(const ScriptLine& line);
    std::string Choose(const ScriptLine& line);
    std::string Field(const ScriptLine& line);
    std::string Beeps(const ScriptLine& line);
    std::string Menu(const ScriptLine& line);
    std::string PickMenu(const std::string& path);

    std::string Posted(bool posted, const char* what);
    // Runs a requester action once the program could take input, so that
    // the requester it acts on is up.
    template <typename Action>
    std::string OnRequester(const Action& action);
    std::vector<TextRecord*> Texts();
    static bool Number(const std::string& word, int* value);

    HeadlessDisplay& display_;
    std::ostream& out_;
};

// One row a command; a new command is one row and one member.
const Driver::Command Driver::Commands[] = {
    {"key", &Driver::Key},
    {"type", &Driver::Type},
    {"click", &Driver::Pointer},
    {"double", &Driver::Pointer},
    {"press", &Driver::Pointer},
    {"move", &Driver::Pointer},
    {"release", &Driver::Pointer},
    {"middle", &Driver::Pointer},
    {"right", &Driver::Pointer},
    {"sleep", &Driver::Sleep},
    {"tick", &Driver::Tick},
    {"drop", &Driver::Drop},
    {"activate", &Driver::Activate},
    {"wait", &Driver::Wait},
    {"dump", &Driver::Dump},
    {"menu", &Driver::Menu},
    {"requester", &Driver::Requester},
    {"button", &Driver::Button},
    {"input", &Driver::Input},
    {"pick", &Driver::Pick},
    {"check", &Driver::Check},
    {"tab", &Driver::Tab},
    {"choose", &Driver::Choose},
    {"field", &Driver::Field},
    {"beeps", &Driver::Beeps},
};

// At rest: every loop sleeps and no script is at work; a script that
// waits for an answer from a text showing a requester rests too.
void Driver::WaitForRest()
{
    while (!display_.ProgramEnded() && (!ProgramIsIdle() || ScriptsAtWork() != 0))
        std::this_thread::sleep_for(std::chrono::microseconds(100));
}

// Keys wait until the program could take them from a user: everything at
// rest, or a text running a loop that watches its window for the stop key,
// which a key pressed now must reach.
void Driver::WaitForInput()
{
    while (!display_.ProgramEnded() && (!ProgramTakesInput() || ScriptsAtWork() != 0))
        std::this_thread::sleep_for(std::chrono::microseconds(100));
}

bool Driver::Number(const std::string& word, int* value)
{
    std::istringstream in(word);
    in >> *value;
    return !in.fail() && in.eof();
}

std::vector<TextRecord*> Driver::Texts()
{
    std::vector<TextRecord*> texts;
    ObtainSemaphoreShared(&Globals.TextListLock);
    for (TextRecord* text = Globals.Texts.First; text; text = text->NextText)
        texts.push_back(text);
    ReleaseSemaphore(&Globals.TextListLock);
    return texts;
}

std::string Driver::Posted(bool posted, const char* what)
{
    if (posted)
        return {};
    return display_.ActiveWindow() ? std::string(what) + " refused by the window" : "no active window";
}

template <typename Action>
std::string Driver::OnRequester(const Action& action)
{
    WaitForInput();
    std::string error;
    if (!action(&error))
        return error;
    return {};
}

std::string Driver::Key(const ScriptLine& line)
{
    if (line.args.size() != 1)
        return "key needs one key name";
    // A key may open a requester that takes the next one.
    WaitForInput();
    if (!display_.ActiveWindow() && !display_.FrontRequester())
        return "no active window";
    std::string error;
    if (!display_.PressKey(line.args[0], &error))
        return error.empty() ? "key refused by the window" : error;
    return {};
}

std::string Driver::Type(const ScriptLine& line)
{
    WaitForRest();
    if (!display_.FrontRequester())
        return Posted(display_.Type(line.rest), "type");
    // A character may close the requester; the next one goes where the
    // user would see it go.
    for (size_t i = 0; i < line.rest.size();) {
        // A character of ISO 8859-1 above 0x7F comes as two UTF-8 bytes.
        size_t length = (static_cast<unsigned char>(line.rest[i]) & 0xE0) == 0xC0 ? 2 : 1;
        display_.Type(line.rest.substr(i, length));
        i += length;
        WaitForRest();
    }
    return {};
}

std::string Driver::Pointer(const ScriptLine& line)
{
    const std::string& command = line.command;
    const std::vector<std::string>& args = line.args;
    int column = 0, row = 0;
    uint16_t qualifier = 0;
    if (args.size() < 2 || !Number(args[0], &column) || !Number(args[1], &row))
        return command + " needs a column and a row";
    // Qualifiers after the cell, as in key names: "Shift", "Ctrl+Alt".
    if (args.size() >= 3) {
        KeyStroke stroke;
        std::string error;
        if (!ParseKeyStroke(args[2] + "+Space", &stroke, &error))
            return "bad qualifiers " + args[2];
        qualifier = stroke.Qualifier;
    }
    if (command == "click")
        return Posted(display_.Click(column, row, qualifier), "click");
    if (command == "double")
        return Posted(display_.Click(column, row, 0) && display_.Click(column, row, 0), "double");
    if (command == "press")
        return Posted(display_.PressButton(column, row, qualifier), "press");
    if (command == "move")
        return Posted(display_.MovePointer(column, row), "move");
    if (command == "release")
        return Posted(display_.ReleaseButton(column, row), "release");
    WaitForRest();
    uint16_t button = command == "middle" ? IECODE_MBUTTON : IECODE_RBUTTON;
    return Posted(display_.Click(column, row, 0, button), command.c_str());
}

std::string Driver::Sleep(const ScriptLine& line)
{
    int milliseconds = 0;
    if (line.args.size() != 1 || !Number(line.args[0], &milliseconds) || milliseconds < 0)
        return "sleep needs a number of milliseconds";
    display_.Sleep(static_cast<uint32_t>(milliseconds));
    return {};
}

std::string Driver::Tick(const ScriptLine& line)
{
    int count = 1;
    if (line.args.size() > 1 || (line.args.size() == 1 && (!Number(line.args[0], &count) || count < 1)))
        return "tick takes a positive count";
    return Posted(display_.Tick(count), "tick");
}

std::string Driver::Drop(const ScriptLine& line)
{
    int column = 0, row = 0;
    if (line.args.size() != 3 || !Number(line.args[1], &column) || !Number(line.args[2], &row))
        return "drop needs a file, a column and a row";
    return Posted(display_.Drop(line.args[0], column, row), "drop");
}

// "activate N", or "activate search": the search window, the one modeless
// window, takes the keys and the requester commands until a text window
// is activated or it closes.
std::string Driver::Activate(const ScriptLine& line)
{
    int number = 0;
    if (line.args.size() == 1 && line.args[0] == "search") {
        WaitForRest();
        RequesterWindow* search = display_.ModelessRequester();
        if (!search || !display_.ActivateRequester(search))
            return "no search window";
        return {};
    }
    if (line.args.size() != 1 || !Number(line.args[0], &number))
        return "activate needs a window number";
    // The window of a text is the text's own to change; it is read once
    // everything has come to rest, or runs a loop, which keeps its window.
    WaitForInput();
    std::vector<TextRecord*> texts = Texts();
    if (number < 1 || number > static_cast<int>(texts.size()) || !texts[number - 1]->Window)
        return "no window " + line.args[0];
    return Posted(display_.Activate(texts[number - 1]->Window), "activate");
}

std::string Driver::Wait(const ScriptLine&)
{
    WaitForRest();
    return {};
}

// One letter per background pen, as the text's pens name them.
static char PenLetter(const TextRecord* text, uint8_t pen)
{
    const struct {
        int16_t pen;
        char letter;
    } pens[] = {{text->BackgroundPen, 'b'}, {text->TextPen, 't'}, {text->WhitePen, 'w'},
        {text->BluePen, 'u'}, {text->RedPen, 'r'}, {text->YellowPen, 'y'}};
    for (const auto& entry : pens)
        if (entry.pen == pen)
            return entry.letter;
    return '?';
}

std::string Driver::Dump(const ScriptLine& line)
{
    if (line.args.size() > 1 || (line.args.size() == 1 && line.args[0] != "pens"))
        return "dump takes nothing or pens";
    bool pens = line.args.size() == 1;
    WaitForRest();
    int number = 0;
    for (TextRecord* text : Texts()) {
        Window* window = text->Window;
        out_ << "window " << ++number << ": " << (window ? display_.Title(window) : std::string(text->TitleBuffer));
        if (text->TextState & Iconified)
            out_ << " [iconified]";
        else if (text->TextState & Hidden)
            out_ << " [hidden]";
        out_ << '\n';
        if (window && (text->TextState & WindowOpen)) {
            for (int row = 0; row < display_.Rows(window); ++row) {
                std::string cells = display_.RowText(window, row);
                size_t end = cells.find_last_not_of(' ');
                out_ << '|' << (end == std::string::npos ? std::string() : cells.substr(0, end + 1)) << '\n';
                if (pens) {
                    out_ << '~';
                    for (int column = 0; column < display_.Columns(window); ++column)
                        out_ << PenLetter(text, display_.CellAt(window, column, row).BgPen);
                    out_ << '\n';
                }
            }
        }
        out_ << "cursor " << text->CursorColumn - text->LeftColumn << ' ' << text->CursorLine - text->TopLine << '\n';
    }
    out_.flush();
    return {};
}

// "menu TITLE/ITEM[/SUB]", or "menu QUALS+TITLE/ITEM" with qualifiers as
// in key names. The labels are those of the active window's strip, which
// is read once everything has come to rest.
std::string Driver::PickMenu(const std::string& path)
{
    std::string labels = path;
    uint16_t qualifier = 0;
    size_t plus = path.rfind('+', path.find('/'));
    if (plus != std::string::npos) {
        KeyStroke stroke;
        std::string error;
        if (ParseKeyStroke(path.substr(0, plus) + "+Space", &stroke, &error)) {
            qualifier = stroke.Qualifier;
            labels = path.substr(plus + 1);
        }
    }
    if (labels.find('/') == std::string::npos)
        return "menu needs TITLE/ITEM";
    WaitForRest();
    if (!display_.ActiveWindow())
        return "no active window";
    if (!display_.PickMenu(labels, qualifier))
        return "no menu item " + labels;
    return {};
}

std::string Driver::Menu(const ScriptLine& line)
{
    size_t start = line.rest.find_first_not_of(' ');
    return PickMenu(start == std::string::npos ? std::string() : line.rest.substr(start));
}

std::string Driver::Requester(const ScriptLine& line)
{
    if (!line.args.empty())
        return "requester takes nothing";
    WaitForRest();
    RequesterWindow* requester = display_.FrontRequester();
    if (!requester) {
        out_ << "requester: none\n";
    } else {
        std::vector<std::string> lines = display_.RequesterLines(requester);
        // The search window, the only modeless one, is named for what it is.
        if (requester->Modeless)
            lines.front() = "window: search";
        for (const std::string& shown : lines)
            out_ << shown << '\n';
    }
    out_.flush();
    return {};
}

std::string Driver::Button(const ScriptLine& line)
{
    if (line.rest.empty())
        return "button needs a label";
    return OnRequester([&](std::string* error) { return display_.PressRequesterButton(line.rest, error); });
}

std::string Driver::Input(const ScriptLine& line)
{
    return OnRequester([&](std::string* error) { return display_.InputRequester(line.rest, error); });
}

std::string Driver::Pick(const ScriptLine& line)
{
    int row = 0;
    if (line.args.size() != 1 || !Number(line.args[0], &row))
        return "pick needs a row number";
    return OnRequester([&](std::string* error) { return display_.PickRow(row, error); });
}

std::string Driver::Check(const ScriptLine& line)
{
    if (line.rest.empty())
        return "check needs a label";
    return OnRequester([&](std::string* error) { return display_.FlipCheckBox(line.rest, error); });
}

// `tab LABEL`: a click on the tab of that label shows its page; only the
// page shown is printed by `requester` (after a `tabs:` line and the tabs,
// the one shown marked `> `), and only its gadgets are reached by `button`,
// `check`, `input` and the keys.
std::string Driver::Tab(const ScriptLine& line)
{
    if (line.rest.empty())
        return "tab needs a label";
    return OnRequester([&](std::string* error) { return display_.ShowTab(line.rest, error); });
}

// `choose LABEL: ENTRY`: the chooser of that label takes that entry, as
// `requester` prints it (`chooser LABEL: ENTRY`).
std::string Driver::Choose(const ScriptLine& line)
{
    const size_t colon = line.rest.find(": ");
    if (colon == std::string::npos)
        return "choose needs LABEL: ENTRY";
    const std::string label = line.rest.substr(0, colon);
    const std::string entry = line.rest.substr(colon + 2);
    return OnRequester([&](std::string* error) { return display_.ChooseEntry(label, entry, error); });
}

// `field LABEL`: a click into the string or number field of that label
// (its label is the one shown beside it); `input` and typed keys then
// go to it, and Return or Tab leaves it.
std::string Driver::Field(const ScriptLine& line)
{
    if (line.rest.empty())
        return "field needs a label";
    return OnRequester([&](std::string* error) { return display_.ActivateField(line.rest, error); });
}

// "beeps": prints "beeps N", the DisplayBeep calls since the start, once
// everything has come to rest. A refused gadget and a search from the
// search window that finds nothing show only this way.
std::string Driver::Beeps(const ScriptLine& line)
{
    if (!line.args.empty())
        return "beeps takes nothing";
    WaitForRest();
    out_ << "beeps " << display_.BeepCount() << '\n';
    out_.flush();
    return {};
}

std::string Driver::Run(const std::string& text)
{
    ScriptLine line;
    std::istringstream words(text);
    words >> line.command;
    for (std::string word; words >> word;)
        line.args.push_back(word);
    size_t restStart = line.command.size() + 1;
    line.rest = text.size() > restStart ? text.substr(restStart) : std::string();
    for (const Command& row : Commands) {
        if (line.command == row.name)
            return (this->*row.handler)(line);
    }
    return "unknown command " + line.command;
}

} // namespace

int RunEventScript(std::istream& script, HeadlessDisplay& display, std::ostream& out, std::ostream& err)
{
    Driver driver(display, out);
    driver.WaitForRest();
    int status = 0;
    for (std::string line; status == 0 && std::getline(script, line);) {
        size_t start = line.find_first_not_of(" \t");
        if (start == std::string::npos || line[start] == '#')
            continue;
        std::string error = driver.Run(line.substr(start));
        if (!error.empty()) {
            err << "error: " << error << '\n';
            status = 2;
        }
    }
    driver.WaitForRest();
    if (!display.ProgramEnded())
        PostCommand(Globals.MainPort, nullptr, CMD_CLOSE_TEXT | CMD_FREE, -1);
    // A text answers the close only once its requesters are gone: each is
    // closed as the user would, until the program has ended.
    while (!display.ProgramEnded()) {
        driver.WaitForRest();
        if (!display.CloseAnyRequester())
            std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    return status;
}
