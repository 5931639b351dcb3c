#include "platform/icon/tooltypes.h"

#include <gtest/gtest.h>

namespace {

TEST(ToolTypes, FindMatchesWholeNamesWithoutCase) {
  const char* const toolTypes[] = {"(X_ICON=1)", "WINDOWS=yes", "window=1,2,3,4", "DONOTWAIT",
                                   "X_ICON=",    "caf\xE9=l",   "WINDOW=second", nullptr};
  struct Case {
    const char* name;
    const char* expected;  // null: not found
  } const cases[] = {
      {"WINDOW", "1,2,3,4"},  // first match wins; WINDOWS= is another name
      {"WIN", nullptr},       {"DONOTWAIT", ""},  {"X_ICON", ""},  // not the disabled entry
      {"CAF\xC9", "l"},       {"", nullptr},
  };
  for (const Case& c : cases) {
    const char* value = FindToolType(toolTypes, c.name);
    EXPECT_STREQ(value, c.expected) << c.name;
  }
  EXPECT_EQ(FindToolType(nullptr, "WINDOW"), nullptr);
}

TEST(ToolTypes, MatchValueTakesOneWholeAlternative) {
  struct Case {
    const char* typeString;
    const char* value;
    bool expected;
  } const cases[] = {
      {"ON|YES", "yes", true},   {"ON|YES", "on", true}, {"ON|YES", "ye", false},
      {"ON|YES", "YESS", false}, {"ON", "ON|YES", false}, {"A||B", "", true}, {"A|B", "", false},
  };
  for (const Case& c : cases) EXPECT_EQ(MatchToolValue(c.typeString, c.value), c.expected) << c.typeString << " " << c.value;
}

}  // namespace
