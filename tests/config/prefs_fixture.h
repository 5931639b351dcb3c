#pragma once
// A fresh program state for reading and writing the preferences file: the
// default Settings, an empty key map, no user menus, the menu table's
// labels resolved. Restored after each use.
#include "text/record/settings.h"

#include <string>

class PrefsState {
public:
    PrefsState();
    ~PrefsState();
    PrefsState(const PrefsState&) = delete;
    PrefsState& operator=(const PrefsState&) = delete;

    // Back to the defaults.
    void Reset();
    // Reads `contents` as the file's bytes; the reader's result.
    int Parse(const std::string& contents);
    // What the writer makes of the state now.
    std::string Format() const;

private:
    SettingsRecord defaults_;
};
