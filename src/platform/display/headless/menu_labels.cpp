#include "platform/display/headless/menu_labels.h"

namespace {

constexpr unsigned char NoBreakSpace = 0xA0;

// A byte as compared: lower case, a no-break space as a blank.
char Folded(char byte)
{
    auto c = static_cast<unsigned char>(byte);
    if (c == NoBreakSpace)
        return ' ';
    bool upperLatin1 = c >= 0xC0 && c <= 0xDE && c != 0xD7;
    if ((c >= 'A' && c <= 'Z') || upperLatin1)
        c = static_cast<unsigned char>(c + 0x20);
    return static_cast<char>(c);
}

std::string Fold(const std::string& text)
{
    std::string folded = text;
    for (char& byte : folded)
        byte = Folded(byte);
    return folded;
}

// What follows `label` and a "/" at the start of `path`; false when the
// path doesn't start that way.
bool AfterLabel(const std::string& path, const char* label, std::string* rest)
{
    std::string prefix = Fold(label) + "/";
    if (path.compare(0, prefix.size(), prefix) != 0)
        return false;
    *rest = path.substr(prefix.size());
    return true;
}

// The index of the labelled item whose label is `path`, or -1.
int FindLabel(const MenuItem* item, const std::string& path)
{
    for (int index = 0; item; item = item->NextItem, ++index)
        if (item->Label && Fold(item->Label) == path)
            return index;
    return -1;
}

} // namespace

bool FindMenuNumber(const Menu* strip, const std::string& path, MenuNumber* number)
{
    std::string folded = Fold(path);
    int menuIndex = 0;
    for (const Menu* menu = strip; menu; menu = menu->NextMenu, ++menuIndex) {
        std::string itemPath;
        if (!AfterLabel(folded, menu->MenuName, &itemPath))
            continue;
        int itemIndex = 0;
        for (const MenuItem* item = menu->FirstItem; item; item = item->NextItem, ++itemIndex) {
            if (!item->Label)
                continue;
            std::string subPath;
            int sub = NOSUB;
            if (Fold(item->Label) != itemPath) {
                if (!item->SubItem || !AfterLabel(itemPath, item->Label, &subPath))
                    continue;
                sub = FindLabel(item->SubItem, subPath);
                if (sub < 0)
                    continue;
            }
            *number = FULLMENUNUM(static_cast<uint16_t>(menuIndex), static_cast<uint16_t>(itemIndex),
                                  static_cast<uint16_t>(sub));
            return true;
        }
    }
    return false;
}
