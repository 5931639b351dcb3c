// The built-in table against messages.txt, a transcription of the message
// list kept apart from the code, compared byte for byte.
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "services/builtin_messages.h"

namespace {

// messages.txt: "id<TAB>text" per line, with \n and \xA0 escapes.
std::vector<std::string> ReadExpectedTable()
{
    std::ifstream file(TAVREL_MESSAGES_TXT);
    std::vector<std::string> table;
    std::string line;
    while (std::getline(file, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        const size_t tab = line.find('\t');
        EXPECT_EQ(line.substr(0, tab), std::to_string(table.size())) << "ids in order";
        std::string text;
        for (size_t i = tab + 1; i < line.size(); ++i) {
            if (line.compare(i, 2, "\\n") == 0) {
                text += '\n';
                i += 1;
            } else if (line.compare(i, 4, "\\xA0") == 0) {
                text += '\xA0';
                i += 3;
            } else {
                text += line[i];
            }
        }
        table.push_back(text);
    }
    return table;
}

TEST(BuiltInMessagesTest, MatchTheListByteForByte)
{
    const std::vector<std::string> expected = ReadExpectedTable();
    ASSERT_EQ(expected.size(), 249u);
    ASSERT_EQ(MessageCount, 249);
    for (int id = 0; id < MessageCount; ++id)
        EXPECT_EQ(GetBuiltInString(MessageId{id}), expected[id]) << "message " << id;
    for (const int id : {-1, 249, 32767})
        EXPECT_STREQ(GetBuiltInString(MessageId{id}), "") << id;
}

// Menu labels of several words keep them together with 0xA0, except three
// that keep plain blanks; no other message holds a no-break space.
TEST(BuiltInMessagesTest, NoBreakSpacesOnlyInMenuLabels)
{
    for (int id = 0; id < MessageCount; ++id) {
        const char* text = GetBuiltInString(MessageId{id});
        const bool joined = id >= 1 && id <= 59 && id != 32 && id != 34 && id != 48;
        if (joined) {
            EXPECT_EQ(std::strchr(text, ' '), nullptr) << "plain blank in label " << id;
        } else {
            EXPECT_EQ(std::strchr(text, '\xA0'), nullptr) << "no-break space in " << id;
        }
    }
    EXPECT_STREQ(GetBuiltInString(MessageId{27}), "Indent\xA0=>");
    EXPECT_STREQ(GetBuiltInString(MessageId{32}), "Recall line");
    EXPECT_STREQ(GetBuiltInString(MessageId{48}), "Tabulations = %ld");
}

TEST(BuiltInMessagesTest, OnlyTheFormatMessagesHoldConversions)
{
    std::vector<int> formats;
    for (int id = 0; id < MessageCount; ++id) {
        if (std::strchr(GetBuiltInString(MessageId{id}), '%') != nullptr)
            formats.push_back(id);
    }
    EXPECT_EQ(formats, (std::vector<int>{48, 134, 155, 156, 157, 158, 204, 246, 248}));
}

}  // namespace
