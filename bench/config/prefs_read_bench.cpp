// Reading the preferences file at start: one with 1,000 key bindings and
// 50 user menus (target: under 2 ms), beside a plain reader of the same
// file that splits it into lines and keeps every KEY=VALUE in a std::map,
// as a generic settings parser would.
#include "config/key_map.h"
#include "config/menu_table.h"
#include "config/read_preferences.h"
#include "config/user_menus.h"
#include "frame/protocol/app_globals.h"
#include "text/record/settings.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <unistd.h>

namespace {

std::string LargeFile()
{
    std::string file = "TavrelPrefs 1.0\n[Menus_ARexx]\nScript0=Hello\n\n[Police]\nFont=topaz.font\nSize=8\n\n"
                       "[Window]\nX=0\nY=1\nWidth=640\nHeight=199\n\n[Modes]\nTabs=4\n\n[Macros]";
    const char* const qualifiers[] = {"Shift-", "Ctrl-", "Alt-", "Shift-Alt-", "Shift-Ctrl-", "Shift-Alt-Ctrl-", "Alt-Ctrl-"};
    int bindings = 0;
    for (int key = 1; key <= 12 && bindings < 1000; ++key)
        file += "\nF" + std::to_string(key) + "=\"GOTO(" + std::to_string(key) + ",1)\"", ++bindings;
    for (int c = 33; c < 256 && bindings < 1000; ++c) {
        if (c == '=' || (c >= 'A' && c <= 'Z'))
            continue;
        for (const char* qualifier : qualifiers) {
            if (bindings == 1000)
                break;
            file += std::string("\n") + qualifier + char(c) + "=\"WRITE(\"\"key " + std::to_string(bindings) + "\"\")\"";
            ++bindings;
        }
    }
    file += "\n\n[Menus]\n";
    for (int menu = 0; menu < 50; ++menu)
        file += "Menu " + std::to_string(menu) + "=GOTO(" + std::to_string(menu + 1) + ",1)\n";
    return file;
}

struct PrefsFile {
    PrefsFile()
    {
        char name[] = "/tmp/tavrel-prefs-bench-XXXXXX";
        const int fd = mkstemp(name);
        if (fd >= 0)
            close(fd);
        path = name;
        std::ofstream(path, std::ios::binary) << LargeFile();
    }
    ~PrefsFile() { std::remove(path.c_str()); }
    std::string path;
};

void ReadPreferencesAtStart(benchmark::State& state)
{
    PrefsFile file;
    InitSemaphore(&Globals.MenuTableLock);
    InitKeyMap(&GlobalKeyMap);
    ResolveMenuLabels();
    const SettingsRecord defaults = Settings;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ReadPreferences(&Settings, file.path.c_str()));
        state.PauseTiming();
        FreeKeyMap(&GlobalKeyMap);
        RemoveAllUserMenus();
        Settings = defaults;
        Settings.FontAttr.ta_Name = Settings.FontName;
        state.ResumeTiming();
    }
}
BENCHMARK(ReadPreferencesAtStart)->Unit(benchmark::kMicrosecond);

void PlainKeyValueReader(benchmark::State& state)
{
    PrefsFile file;
    for (auto _ : state) {
        std::ifstream in(file.path, std::ios::binary);
        std::map<std::string, std::string> values;
        for (std::string line; std::getline(in, line);) {
            const size_t equals = line.find('=');
            if (equals != std::string::npos)
                values[line.substr(0, equals)] = line.substr(equals + 1);
        }
        benchmark::DoNotOptimize(values.size());
    }
}
BENCHMARK(PlainKeyValueReader)->Unit(benchmark::kMicrosecond);

} // namespace
