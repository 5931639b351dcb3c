// Key descriptions, qualifier indexes and the key map's own operations.
#include "config/key_map.h"
#include "config/key_names.h"
#include "frame/protocol/app_globals.h"
#include "platform/exec/memory.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Parsed(const char* text)
{
    ParsedKey key;
    if (ParseKeyName(text, &key) < 0)
        return "-1";
    return FormatKeyName(key.Key, key.Qualifier);
}

TEST(ParseKeyName, GoodAndBadDescriptions)
{
    struct Row {
        const char* Text;
        const char* Expected;
    };
    const Row rows[] = {
        {"F1", "F1"},
        {"f12", "F12"},
        {"Shift-F3", "Shift-F3"},
        {"Alt-Ctrl-x", "Alt-Ctrl-x"},
        {"ctrl-a", "Ctrl-a"},
        {"SHIFT-A", "Shift-a"},
        {"Ctrl-Shift-F1", "Shift-Ctrl-F1"},
        {"Shift-Shift-Alt-Alt-q", "Shift-Alt-q"},
        {"Shift-Alt-Ctrl-F2", "Shift-Alt-Ctrl-F2"},
        {"F1x", "F1"},
        {"Shift-f", "Shift-f"},
        {"Alt-=", "Alt-="},
        {"Ctrl-s", "Ctrl-s"},
        {"a", "-1"},
        {"F13", "-1"},
        {"F0", "-1"},
        {"Alt", "-1"},
        {"Alt-", "-1"},
        {"Shift-ab", "-1"},
        {"", "-1"},
        {"Shiftx-a", "-1"},
        {"Meta-a", "-1"},
        {"F-1", "-1"},
        {"Shift-\x01", "-1"},
        {"Ctrl-\t", "-1"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Parsed(row.Text), row.Expected) << row.Text;
}

TEST(QualifierToIndex, LeftAndRightKeysAreOneAndOtherBitsDontCount)
{
    const struct {
        uint32_t Qualifier;
        uint32_t Index;
    } rows[] = {
        {0x0000, 0}, {0x0001, 1}, {0x0002, 1}, {0x0008, 2}, {0x0010, 3}, {0x0020, 3},
        {0x0011, 4}, {0x0022, 4}, {0x0009, 5}, {0x0039, 6}, {0x0018, 7}, {0x8104, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(QualifierToIndex(row.Qualifier), row.Index) << std::hex << row.Qualifier;
}

class KeyMapTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        InitKeyMap(&map_);
        InitKeyMap(&GlobalKeyMap);
    }
    void TearDown() override
    {
        SetAllocationFailureCountdown(-1);
        FreeKeyMap(&map_);
        FreeKeyMap(&GlobalKeyMap);
    }

    static int Bind(KeyMap* map, uint8_t key, uint32_t qualifier, const char* text)
    {
        KeyRequest request;
        request.Key = key;
        request.Qualifier = qualifier;
        request.Macro = const_cast<char*>(text);
        return SetKeyMacro(map, &request);
    }

    // "key:qualifier=text" for every binding, in list order.
    static std::string Dump(const KeyMap& map)
    {
        std::string out;
        for (Node* node = map.Entries.First(); node; node = NextNode(node)) {
            const auto* entry = reinterpret_cast<const KeyMapEntry*>(node);
            out += "[" + FormatKeyName(entry->Key, 0) + "]";
            for (uint32_t q = 0; q < QualifierCount; ++q)
                if (entry->Macro[q])
                    out += " " + std::to_string(q) + "=" + entry->Macro[q];
        }
        return out;
    }

    static std::string Listed(uint32_t qualifier, const KeyMap* local)
    {
        int32_t count = -1;
        char** keys = ListKeysForQualifier(qualifier, local, &count);
        std::string out = std::to_string(count) + ":";
        for (char** key = keys; key && *key; ++key)
            out += *key;
        FreeVec(keys);
        return out;
    }

    KeyMap map_;
};

TEST_F(KeyMapTest, BindingsReplaceClearAndKeepTheirEntry)
{
    EXPECT_EQ(FindKeyEntry(&map_, 'a'), nullptr);
    EXPECT_EQ(Bind(&map_, 3, 1, "first"), 1);
    EXPECT_EQ(Bind(&map_, 'A', 2, "upper"), 1);
    EXPECT_EQ(Bind(&map_, 3, 1, "second"), 1);
    EXPECT_EQ(Bind(&map_, 3, 0, "plain"), 1);
    EXPECT_EQ(Dump(map_), "[F3] 0=plain 1=second[a] 2=upper");
    EXPECT_NE(FindKeyEntry(&map_, 'A'), nullptr);

    ClearKeyMacro(&map_, 'a', 2);
    ClearKeyMacro(&map_, 'a', 2);
    ClearKeyMacro(&map_, 'z', 0);
    EXPECT_EQ(Dump(map_), "[F3] 0=plain 1=second[a]");
    // A key bound again keeps its place.
    EXPECT_EQ(Bind(&map_, 'a', 7, "again"), 1);
    EXPECT_EQ(Dump(map_), "[F3] 0=plain 1=second[a] 7=again");
}

TEST_F(KeyMapTest, NoMemoryLeavesTheMapAsItWas)
{
    Bind(&map_, 5, 0, "kept");
    SetAllocationFailureCountdown(0);
    EXPECT_EQ(Bind(&map_, 5, 0, "lost"), 0);
    // The text is copied, then the new entry fails.
    SetAllocationFailureCountdown(1);
    EXPECT_EQ(Bind(&map_, 'q', 3, "lost"), 0);
    SetAllocationFailureCountdown(-1);
    EXPECT_EQ(Dump(map_), "[F5] 0=kept");
}

TEST_F(KeyMapTest, ChooseAKeyListsGlobalKeysThenLocalOnes)
{
    Bind(&GlobalKeyMap, 'b', 2, "x");
    Bind(&GlobalKeyMap, 4, 2, "function keys are not listed");
    Bind(&GlobalKeyMap, 'c', 3, "other qualifier");
    Bind(&GlobalKeyMap, 'd', 2, "x");
    Bind(&map_, 'd', 2, "already listed");
    Bind(&map_, 'e', 2, "x");
    Bind(&map_, 'c', 2, "x");
    EXPECT_EQ(Listed(2, &map_), "4:bdec");
    EXPECT_EQ(Listed(2, nullptr), "2:bd");
    EXPECT_EQ(Listed(5, &map_), "0:");
}

} // namespace
