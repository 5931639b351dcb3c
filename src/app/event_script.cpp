#include "app/event_script.h"

#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/idle.h"
#include "frame/protocol/send.h"
#include "platform/display/headless/headless_display.h"
#include "platform/exec/semaphores.h"
#include "text/record/text_record.h"

#include <chrono>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

class Driver {
public:
    Driver(HeadlessDisplay& display, std::ostream& out) : display_(display), out_(out) {}

    // Empty on success, else the error's text.
    std::string Run(const std::string& line);
    void WaitForRest();

private:
    std::string Input(bool posted, const char* what);
    std::string Dump(bool pens);
    std::vector<TextRecord*> Texts();
    static bool Number(const std::string& word, int* value);

    HeadlessDisplay& display_;
    std::ostream& out_;
};

void Driver::WaitForRest()
{
    while (!display_.ProgramEnded() && !ProgramIsIdle())
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

std::string Driver::Input(bool posted, const char* what)
{
    if (posted)
        return {};
    return display_.ActiveWindow() ? std::string(what) + " refused by the window" : "no active window";
}

// One letter per background pen, as the text's pens name them.
static char PenLetter(const TextRecord* text, uint8_t pen)
{
    const struct {
        int16_t pen;
        char letter;
    } pens[] = {{text->BackgroundPen, 'b'}, {text->TextPen, 't'}, {text->WhitePen, 'w'},
                {text->BluePen, 'u'},       {text->RedPen, 'r'},  {text->YellowPen, 'y'}};
    for (const auto& entry : pens)
        if (entry.pen == pen)
            return entry.letter;
    return '?';
}

std::string Driver::Dump(bool pens)
{
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

std::string Driver::Run(const std::string& line)
{
    std::istringstream words(line);
    std::string command;
    words >> command;
    std::vector<std::string> args;
    for (std::string word; words >> word;)
        args.push_back(word);
    int column = 0, row = 0;
    uint16_t qualifier = 0;
    bool pointed = args.size() >= 2 && Number(args[0], &column) && Number(args[1], &row);
    // Qualifiers after the cell, as in key names: "Shift", "Ctrl+Alt".
    bool qualified = args.size() < 3;
    if (!qualified) {
        KeyStroke stroke;
        std::string error;
        qualified = ParseKeyStroke(args[2] + "+Space", &stroke, &error);
        qualifier = stroke.Qualifier;
    }
    bool isPointerCommand = command == "click" || command == "double" || command == "press" ||
                            command == "move" || command == "release" || command == "middle" ||
                            command == "right";
    if (isPointerCommand && !pointed)
        return command + " needs a column and a row";
    if (isPointerCommand && !qualified)
        return "bad qualifiers " + args[2];
    if (command == "key") {
        std::string error;
        if (args.size() != 1)
            return "key needs one key name";
        if (!display_.ActiveWindow())
            return "no active window";
        if (!display_.PressKey(args[0], &error))
            return error.empty() ? "key refused by the window" : error;
        return {};
    }
    if (command == "type") {
        std::string text = line.size() > 5 ? line.substr(5) : std::string();
        return Input(display_.Type(text), "type");
    }
    if (command == "click") {
        return Input(display_.Click(column, row, qualifier), "click");
    }
    if (command == "double") {
        bool posted = display_.Click(column, row, 0) && display_.Click(column, row, 0);
        return Input(posted, "double");
    }
    if (command == "press") {
        return Input(display_.PressButton(column, row, qualifier), "press");
    }
    if (command == "move") {
        return Input(display_.MovePointer(column, row), "move");
    }
    if (command == "release") {
        return Input(display_.ReleaseButton(column, row), "release");
    }
    if (command == "middle" || command == "right") {
        uint16_t button = command == "middle" ? IECODE_MBUTTON : IECODE_RBUTTON;
        return Input(display_.Click(column, row, 0, button), command.c_str());
    }
    if (command == "sleep") {
        int milliseconds = 0;
        if (args.size() != 1 || !Number(args[0], &milliseconds) || milliseconds < 0)
            return "sleep needs a number of milliseconds";
        display_.Sleep(static_cast<uint32_t>(milliseconds));
        return {};
    }
    if (command == "tick") {
        int count = 1;
        if (args.size() > 1 || (args.size() == 1 && (!Number(args[0], &count) || count < 1)))
            return "tick takes a positive count";
        return Input(display_.Tick(count), "tick");
    }
    if (command == "drop") {
        if (args.size() != 3 || !Number(args[1], &column) || !Number(args[2], &row))
            return "drop needs a file, a column and a row";
        return Input(display_.Drop(args[0], column, row), "drop");
    }
    if (command == "activate") {
        int number = 0;
        if (args.size() != 1 || !Number(args[0], &number))
            return "activate needs a window number";
        // The window of a text is the text's own to change; it is read
        // once everything has come to rest.
        WaitForRest();
        std::vector<TextRecord*> texts = Texts();
        if (number < 1 || number > static_cast<int>(texts.size()) || !texts[number - 1]->Window)
            return "no window " + args[0];
        return Input(display_.Activate(texts[number - 1]->Window), "activate");
    }
    if (command == "wait") {
        WaitForRest();
        return {};
    }
    if (command == "dump") {
        if (args.size() > 1 || (args.size() == 1 && args[0] != "pens"))
            return "dump takes nothing or pens";
        return Dump(args.size() == 1);
    }
    if (command == "menu" || command == "requester" || command == "button" || command == "input")
        return command + ": this program has no menus or requesters yet";
    return "unknown command " + command;
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
    return status;
}
