#pragma once
// Helpers of the macro tests: a fresh text record per test, commands run
// against it, and results written as text so that a table row reads like
// what the user sees: `7`, `"abc"` for a string, `#219` for an error.
#include "shown_value.h"
#include "text/record/text_record.h"

#include <gtest/gtest.h>

#include <string>

// A table row: the commands, one a line, and what the last one gives.
struct LanguageRow {
    const char* Commands;
    const char* Expected;
};

class MacroTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Runs each line of `commands` in turn on the text; the result of the
    // last one.
    std::string Run(const std::string& commands);
    // Each row on a fresh text with no user functions and the default loop
    // limit, its commands checked against its expectation.
    template <size_t N>
    void CheckRows(const LanguageRow (&rows)[N])
    {
        for (const LanguageRow& row : rows) {
            Renew();
            EXPECT_EQ(Run(row.Commands), row.Expected) << row.Commands;
        }
    }
    void Renew();

    TextRecord* text_ = nullptr;
};


// A record as a text process makes it; freed with its variables.
TextRecord* NewMacroRecord();
void FreeMacroRecord(TextRecord* record);

