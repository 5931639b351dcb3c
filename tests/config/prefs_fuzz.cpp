#include "prefs_fuzz.h"

#include "prefs_fixture.h"

#include <cstring>

namespace {

const char* const Seeds[] = {
    "TavrelPrefs 1.0\n[Menus_ARexx]\nScript0=Hello\n\n[Police]\nFont=topaz.font\nSize=8\n\n[Window]\nX=0\nY=1\n"
    "Width=640\nHeight=199\n\n[Modes]\nSaveTabs=1\nBackup=0\nSave_icon=0\nFullName=1\nTabs=4\nRequesters=0\n"
    "MaxLineLength=255\nToolbar=bar\n\n[Macros]\nF1=\"GOTO(1,1)\"\nShift-Alt-a=\"x\"\n\n[Menus]\nBAR\nTop=GOTO(1,1)\n",
    "TavrelPrefs 1.0\n[FunctionKeys]\nF12=\"a\"\n[ORTHO]\nx\n[Macros] Ctrl-b=\"\"\n[Menus]\nbar\nx\n",
};

const char* const Pieces[] = {
    "\n", "=", "\"", "[Macros]", "[Menus]", "[Modes]", "[Window]", "[Police]", "[Menus_ARexx]", "Script19=",
    "Tabs=", "MaxLineLength=", "Requesters=", "Size=", "Font=", "Toolbar=", "Shift-", "Alt-Ctrl-", "F",
    "BAR", "99999999999999999999", "-", "\r\n", "TavrelPrefs 1.0\n",
};

} // namespace

size_t PrefsFuzzer::Below(size_t limit)
{
    return limit == 0 ? 0 : std::uniform_int_distribution<size_t>(0, limit - 1)(random_);
}

std::string PrefsFuzzer::NextFile()
{
    std::string file = Seeds[Below(std::size(Seeds))];
    const size_t mutations = 1 + Below(8);
    for (size_t step = 0; step < mutations; ++step) {
        const size_t at = Below(file.size() + 1);
        switch (Below(7)) {
        case 0: // cut short
            file.resize(at);
            break;
        case 1: // no line feeds from here on
            for (size_t i = at; i < file.size(); ++i)
                if (file[i] == '\n')
                    file[i] = ' ';
            break;
        case 2: // a huge line
            file.insert(at, std::string(1000 + Below(70000), char('!' + Below(90))));
            break;
        case 3: // binary bytes
            for (size_t n = Below(16); n > 0; --n)
                file.insert(file.begin() + long(Below(file.size() + 1)), char(Below(256)));
            break;
        case 4: // a piece of the format
            file.insert(at, Pieces[Below(std::size(Pieces))]);
            break;
        case 5: // a byte removed
            if (at < file.size())
                file.erase(at, 1);
            break;
        default: // a part of the file repeated elsewhere
            file.insert(Below(file.size() + 1), file.substr(at, Below(200)));
            break;
        }
    }
    return file;
}

void PrefsFuzzer::Run(long count, std::string* fault)
{
    PrefsState state;
    for (long run = 0; run < count && fault->empty(); ++run) {
        const std::string file = NextFile();
        state.Parse(file);
        const bool terminated = std::memchr(Settings.FontName, 0, sizeof Settings.FontName) &&
                                std::memchr(Settings.ToolbarName, 0, sizeof Settings.ToolbarName);
        const bool lengthInRange = Settings.MaxLineLength == 255 ||
                                   (Settings.MaxLineLength >= 80 && Settings.MaxLineLength <= 32767);
        if (!terminated || !lengthInRange || (Settings.FontAttr.ta_YSize <= 5))
            *fault = "unsound state after: " + file.substr(0, 300);
        // What was read must write and read again; a file without a font
        // name leaves the font out, which then reads as the default.
        const std::string written = state.Format();
        const bool hasFont = Settings.FontName[0] != 0;
        state.Reset();
        state.Parse(written);
        if (hasFont && state.Format() != written)
            *fault = "written file reads back differently: " + written.substr(0, 300);
        state.Reset();
    }
}
