#include "config/prefs_window_layout.h"

#include "config/key_map.h"
#include "config/settings_toggles.h"
#include "requesters/requester_layout.h"
#include "text/record/settings.h"

#include <string>

namespace {

RequesterGadget Number(uint16_t id, int message, int32_t value)
{
    RequesterGadget number = Labelled(GadgetKind::Integer, id, GetString(MessageId{message}));
    number.Number = value;
    return number;
}

RequesterGadget Field(uint16_t id, const char* label, int limit)
{
    RequesterGadget field = Labelled(GadgetKind::String, id, label);
    field.MaxChars = limit;
    return field;
}

RequesterGadget Shown(uint16_t id, const std::string& text)
{
    RequesterGadget field = Labelled(GadgetKind::String, id, "");
    field.Text = text;
    field.Disabled = true;
    return field;
}

RequesterGadget Framed(int message, std::initializer_list<RequesterGadget> children)
{
    RequesterGadget group = Column(children);
    group.Label = GetString(MessageId{message});
    return group;
}

RequesterGadget Check(uint16_t id, int message, bool on)
{
    RequesterGadget box = Labelled(GadgetKind::Check, id, GetString(MessageId{message}));
    box.Number = on;
    return box;
}

RequesterGadget Chooser(uint16_t id, int message, std::vector<std::string> rows, int32_t chosen)
{
    RequesterGadget chooser = Labelled(GadgetKind::Chooser, id, GetString(MessageId{message}));
    chooser.Rows = std::move(rows);
    chooser.Number = chosen;
    return chooser;
}

RequesterGadget PreferencesPage(const SettingsRecord& work)
{
    using namespace PrefsGadget;
    auto on = [&work](int row) { return (work.Flags & SettingsToggles[row].Bit) != 0; };
    std::vector<std::string> places;
    for (int message = 106; message <= 109; ++message)
        places.emplace_back(GetString(MessageId{message}));
    RequesterGadget options = Framed(112, {
        Check(SaveTabs, 113, on(SaveTabsToggle)),
        Check(SaveTabs + 1, 114, on(BackupToggle)),
        Check(SaveTabs + 2, 115, on(SaveIconToggle)),
        Check(FullName, 116, on(FullNameToggle)),
        Chooser(Requesters, 117, places, work.Flags & RequesterPositionMask),
        Number(Tabs, 118, work.Tabs),
        Number(MaxLineLength, 119, static_cast<int32_t>(work.MaxLineLength)),
        Row({Labelled(GadgetKind::Button, Toolbar, GetString(MessageId{192})), Shown(ToolbarName, work.ToolbarName)}),
    });
    RequesterGadget dimensions = Framed(126, {
        Number(Top, 124, work.WindowTop),
        Number(Left, 123, work.WindowLeft),
        Number(Width, 121, work.WindowWidth),
        Number(Height, 122, work.WindowHeight),
        Labelled(GadgetKind::Button, ReadWindow, GetString(MessageId{125})),
    });
    RequesterGadget window = Framed(120, {
        dimensions,
        Row({Labelled(GadgetKind::Button, Font, GetString(MessageId{128})), Shown(FontName, FontLabel(work))}),
    });
    return Row({options, window});
}

RequesterGadget FunctionKeysPage(uint32_t qualifier)
{
    using namespace PrefsGadget;
    static const char* const Labels[FunctionKeyRows] = {
        " F_1", " F_2", " F_3", " F_4", " F_5", " F_6", " F_7", " F_8", " F_9", "F1_0", "F11", "F12"};
    std::vector<std::string> qualifiers{GetString(MessageId{196})};
    for (int index = 1; index < QualifierCount; ++index)
        qualifiers.emplace_back(QualifierNames[index]);
    RequesterGadget page = Column({Chooser(Qualifier, 197, qualifiers, static_cast<int32_t>(qualifier))});
    for (int n = 1; n <= FunctionKeyRows; ++n) {
        page.Children.push_back(Row({
            Labelled(GadgetKind::Button, static_cast<uint16_t>(FirstRowFunctions + n - 1), "..."),
            Field(static_cast<uint16_t>(FirstRowMacro + n - 1), Labels[n - 1], MacroLimit + 1),
        }));
    }
    page.Children.push_back(Row({
        Labelled(GadgetKind::Button, ChooseKey, GetString(MessageId{243})),
        Field(Key, "Key", 2),
        Labelled(GadgetKind::Button, KeyFunctions, "..."),
        Field(KeyMacro, "Macro", MacroLimit + 1),
    }));
    return page;
}

} // namespace

std::string FontLabel(const SettingsRecord& work)
{
    return std::string(work.FontName) + '/' + std::to_string(work.FontAttr.ta_YSize);
}

RequesterGadget PrefsLayout(const SettingsRecord& work, uint32_t page, uint32_t qualifier)
{
    using namespace PrefsGadget;
    RequesterGadget pages;
    pages.Kind = GadgetKind::Tabs;
    pages.Id = Pages;
    pages.Rows = {GetString(MessageId{111}), GetString(MessageId{110})};
    pages.Children = {PreferencesPage(work), FunctionKeysPage(qualifier)};
    pages.Number = static_cast<int32_t>(page);
    return Column({
        pages,
        Row({Button(Use, MessageId{94}), Button(Save, MessageId{95}), Button(SaveAs, MessageId{96}),
            Button(Load, MessageId{97}), Button(Cancel, MessageId::Cancel)}),
    });
}
