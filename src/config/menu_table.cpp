#include "config/menu_table.h"

#include "services/messages.h"
#include "text/record/settings.h"

namespace {

constexpr int Bar = -1;
constexpr uint16_t Toggle = CHECKIT | MENUTOGGLE;
constexpr uint16_t ToggleOn = CHECKIT | MENUTOGGLE | CHECKED;
constexpr int ScriptLabelMessage = 54;

// A row as written down: the message of its label (Bar for a separator).
struct MenuRow {
    uint8_t type;
    int message;
    const char* key;
    uint16_t flags;
    uint32_t id;
};

constexpr MenuRow Title(int message)
{
    return {NM_TITLE, message, nullptr, 0, 0};
}

constexpr MenuRow Item(int message, const char* key, uint32_t id, uint16_t flags = 0)
{
    return {NM_ITEM, message, key, flags, id};
}

constexpr MenuRow Separator()
{
    return {NM_ITEM, Bar, nullptr, 0, 0};
}

constexpr MenuRow Script(const char* key)
{
    return Item(ScriptLabelMessage, key, ScriptCommand);
}

constexpr MenuRow Rows[FixedMenuRows] = {
    Title(1),
    Item(7, "O", 1),
    Item(8, "E", 2),
    Item(9, "S", 3),
    Item(10, "A", 4),
    Separator(),
    Item(11, "=", 5),
    Item(12, nullptr, 6),
    Item(13, nullptr, 7),
    Separator(),
    Item(14, "I", 8),
    Item(15, "$", 9),
    Item(16, nullptr, 10),
    Separator(),
    Item(17, nullptr, 11),
    Item(18, "P", 12),
    Item(19, "K", 13),
    Item(20, ".", 14),
    Item(21, "?", 15),
    Item(22, "Q", QuitCommand),

    Title(2),
    Item(23, "C", 17),
    Item(24, "V", 18),
    Item(25, "X", 19),
    Item(26, "W", 20),
    Separator(),
    Item(27, "\x09", 21),
    Item(28, "\x08", 22),
    Separator(),
    Item(29, "H", 23),
    Item(30, "L", 24),
    Separator(),
    Item(31, "Y", 25),
    Item(32, nullptr, 26),
    Item(33, "U", 27),
    Item(34, ":", 28, ToggleOn),

    Title(3),
    Item(35, "F", 29),
    Separator(),
    Item(36, "B", 30),
    Item(37, "N", 31),
    Item(38, "J", 32),
    Separator(),
    Item(39, "Z", 33),
    Item(40, "R", 34),
    Item(41, nullptr, 35),
    Separator(),
    Item(42, "\xF9", 36, Toggle),
    Item(43, "G", 37),

    Title(4),
    Item(44, nullptr, 41, ToggleOn),
    Item(45, nullptr, 42, Toggle),
    Item(46, nullptr, 43, Toggle),
    Item(47, nullptr, 44, ToggleOn),
    Item(48, nullptr, 45),
    Item(49, nullptr, 46),
    Item(50, "[", 47),
    Item(51, nullptr, 53),
    Item(52, "]", 48),

    Title(5),
    Item(53, ",", 39),
    Separator(),
    Script("0"),
    Script("1"),
    Script("2"),
    Script("3"),
    Script("4"),
    Script("5"),
    Script("6"),
    Script("7"),
    Script("8"),
    Script("9"),
    Script(nullptr),
    Script(nullptr),
    Script(nullptr),
    Script(nullptr),
    Script(nullptr),
    Script(nullptr),
    Script(nullptr),
    Script(nullptr),
    Script(nullptr),
    Script(nullptr),

    Title(6),
    Item(55, ";", 38),
    Separator(),
    Item(56, nullptr, 49),
    Item(57, nullptr, 50),
    Item(58, nullptr, 51),
    Item(59, nullptr, 52),
    Separator(),
};

} // namespace

NewMenu BuiltInMenus[BuiltInMenuRows];

void ResolveMenuLabels()
{
    for (int row = 0; row < FixedMenuRows; ++row) {
        const MenuRow& source = Rows[row];
        NewMenu& target = BuiltInMenus[row];
        target.nm_Type = source.type;
        target.nm_Label = source.message == Bar ? NM_BARLABEL : GetString(MessageId{source.message});
        target.nm_CommKey = source.key;
        target.nm_Flags = source.flags;
        target.nm_UserData = source.id;
    }
    BuiltInMenus[FixedMenuRows] = NewMenu{};
    for (int script = 0; script < ScriptItemCount; ++script)
        if (Settings.ScriptLabels[script][0])
            BuiltInMenus[FirstScriptRow + script].nm_Label = Settings.ScriptLabels[script];
}
