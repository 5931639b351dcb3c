#include "platform/icon/tooltypes.h"

#include <gtest/gtest.h>

namespace {

const char* const kToolTypes[] = {
    "(X_ICON=1)",  // disabled: never matches X_ICON
    "WINDOWS=yes",
    "window=10,20,640,200",
    "DONOTWAIT",
    "X_ICON=",
    "caf\xE9=latin",
    "WINDOW=second",
    nullptr,
};

struct FindCase {
  const char* name;
  const char* expected;  // null: not found
};

TEST(FindToolType, MatchesWholeNamesWithoutCase) {
  const FindCase cases[] = {
      {"WINDOW", "10,20,640,200"},  // first match wins, case ignored
      {"Windows", "yes"},           // not taken for a prefix of WINDOW=
      {"WIN", nullptr},             // a prefix of a name is no match
      {"DONOTWAIT", ""},            // bare name
      {"X_ICON", ""},               // empty value, not the disabled entry
      {"CAF\xC9", "latin"},         // Latin-1 letters compare without case
      {"MAXLINELENGTH", nullptr},
      {"", nullptr},
  };
  for (const FindCase& c : cases) {
    const char* value = FindToolType(kToolTypes, c.name);
    if (c.expected == nullptr) {
      EXPECT_EQ(value, nullptr) << c.name;
    } else {
      ASSERT_NE(value, nullptr) << c.name;
      EXPECT_STREQ(value, c.expected) << c.name;
    }
  }
  EXPECT_EQ(FindToolType(nullptr, "WINDOW"), nullptr);
}

TEST(FindToolType, ValuePointsIntoTheEntry) {
  const char* value = FindToolType(kToolTypes, "window");
  EXPECT_EQ(value, kToolTypes[2] + 7);
}

TEST(MatchToolValue, MatchesOneWholeAlternative) {
  struct Case {
    const char* typeString;
    const char* value;
    bool expected;
  };
  const Case cases[] = {
      {"ON|YES", "yes", true},   {"ON|YES", "on", true},   {"ON|YES", "ye", false},
      {"ON|YES", "YESS", false}, {"ON", "ON|YES", false},  {"", "", true},
      {"A||B", "", true},        {"A|B", "", false},       {"ONE|", "", true},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(MatchToolValue(c.typeString, c.value), c.expected)
        << '"' << c.typeString << "\" vs \"" << c.value << '"';
  }
  EXPECT_FALSE(MatchToolValue(nullptr, "X"));
}

}  // namespace
