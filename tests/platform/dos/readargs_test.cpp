#include "platform/dos/errors.h"
#include "platform/dos/readargs.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

// The results as one line of text: per item "-" when absent, "on" for a
// switch, "#n" for a number, a list in brackets, else the string.
std::string Dump(const RDArgs& args) {
    std::ostringstream out;
    for (const ArgResult& item : args.items) {
        out << (&item == args.items.data() ? "" : " ");
        if (!item.present) out << '-';
        else if (!item.numbers.empty() || !item.strings.empty()) {
            out << '[';
            for (size_t k = 0; k < item.strings.size(); ++k)
                out << (k ? "," : "") << (item.numbers.empty() ? item.strings[k] : std::to_string(item.numbers[k]));
            out << ']';
        } else if (item.number != 0) out << '#' << item.number;
        else out << (item.string.empty() ? "on" : item.string);
    }
    return out.str();
}

struct GoodCase {
    const char* argTemplate;
    const char* line;
    const char* expected;
};

TEST(ReadArgs, AcceptsTheTemplateLanguage) {
    const GoodCase cases[] = {
        {"FILE/M,PUBSCREEN/K", "", "- -"},
        {"FILE/M,PUBSCREEN/K", "a.txt b.txt", "[a.txt,b.txt] -"},
        {"FILE/M,PUBSCREEN/K", "a PUBSCREEN=Work b", "[a,b] Work"},
        {"FILE/M,PUBSCREEN/K", "pubscreen Work a", "[a] Work"},
        {"FILE/M,PUBSCREEN/K", "PUBSCREEN=\"My Screen\" \"a b.txt\"", "[a b.txt] My Screen"},
        {"FILE/M,PUBSCREEN/K", "\"PUBSCREEN\" x", "[PUBSCREEN,x] -"},
        {"FROM/A,TO=AS/K,QUIET/S", "src AS dst", "src dst -"},
        {"FROM/A,TO=AS/K,QUIET/S", "quiet TO=dst src", "src dst on"},
        {"FROM,TO", "x", "x -"},
        {"FROM,TO", "TO y x", "x y"},
        {"SIZE/N,NAME", "-12 n", "#-12 n"},
        {"SIZE/N", "0", "0"},
        {"SIZE/N/K", "SIZE=+7", "#7"},
        {"FROM/M/A,TO/A", "a b c", "[a,b] c"},
        {"FROM/M,TO/A,ALSO/A", "a b c d", "[a,b] c d"},
        {"N/M/N", "1 2 3", "[1,2,3]"},
        {"CMD/F", "  one  \"two\" three  ", "one  \"two\" three"},
        {"CMD/K/F,X", "X=1 CMD go now X=2", "go now X=2 1"},
        {"TEXT", "\"a *\"quoted*\" **\"", "a \"quoted\" *"},
        {"", "", ""},
    };
    for (const GoodCase& c : cases) {
        RDArgs args;
        ASSERT_TRUE(ReadArgs(c.argTemplate, c.line, &args))
            << c.argTemplate << " with " << c.line << ": error " << IoErr();
        EXPECT_EQ(Dump(args), c.expected) << c.argTemplate << " with " << c.line;
    }
}

TEST(ReadArgs, RefusesBadInputWithAReason) {
    struct BadCase {
        const char* argTemplate;
        const char* line;
        long error;
    };
    const BadCase cases[] = {
        {"FILE/M,PUBSCREEN/K", "PUBSCREEN", ERROR_KEY_NEEDS_ARG},
        {"FILE/M,PUBSCREEN/K", "a PUBSCREEN=", ERROR_KEY_NEEDS_ARG},
        {"FILE/M,PUBSCREEN/K", "\"open", ERROR_UNMATCHED_QUOTES},
        {"FILE/M,PUBSCREEN/K", "PUBSCREEN=a PUBSCREEN=b", ERROR_TOO_MANY_ARGS},
        {"FROM/A,TO/K", "", ERROR_REQUIRED_ARG_MISSING},
        {"FROM/A,TO/K", "TO x", ERROR_REQUIRED_ARG_MISSING},
        {"FROM/A,TO/K", "a b", ERROR_TOO_MANY_ARGS},
        {"FROM/M/A,TO/A", "a", ERROR_REQUIRED_ARG_MISSING},
        {"SIZE/N", "12x", ERROR_BAD_NUMBER},
        {"SIZE/N", "SIZE= -", ERROR_BAD_NUMBER},
        {"N/M/N", "1 two", ERROR_BAD_NUMBER},
        {"QUIET/S", "QUIET=yes", ERROR_KEY_NEEDS_ARG},
        {"QUIET/S", "x", ERROR_TOO_MANY_ARGS},
        {"CMD/K/F", "CMD", ERROR_KEY_NEEDS_ARG},
        {"FILE/X", "a", ERROR_BAD_TEMPLATE},
        {"A/M,B/M", "a", ERROR_BAD_TEMPLATE},
        {"A,,B", "a", ERROR_BAD_TEMPLATE},
        {"=A", "a", ERROR_BAD_TEMPLATE},
        {"A/", "a", ERROR_BAD_TEMPLATE},
        {"Q/S/N", "a", ERROR_BAD_TEMPLATE},
    };
    for (const BadCase& c : cases) {
        RDArgs args;
        args.items.resize(3);
        SetIoErr(0);
        EXPECT_FALSE(ReadArgs(c.argTemplate, c.line, &args)) << c.argTemplate << " with " << c.line;
        EXPECT_EQ(IoErr(), c.error) << c.argTemplate << " with " << c.line;
        EXPECT_TRUE(args.items.empty()) << c.argTemplate << " with " << c.line;
    }
}

TEST(ReadArgs, TakesArgvWordsWithoutResplitting) {
    const char* argv[] = {"my file.txt", "PUBSCREEN=Work Bench", "other"};
    RDArgs args;
    ASSERT_TRUE(ReadArgs("FILE/M,PUBSCREEN/K", 3, argv, &args));
    EXPECT_EQ(Dump(args), "[my file.txt,other] Work Bench");

    const char* rest[] = {"x", "say", "hello  there"};
    ASSERT_TRUE(ReadArgs("A,CMD/F", 3, rest, &args));
    EXPECT_EQ(Dump(args), "x say hello  there");

    ASSERT_TRUE(ReadArgs("FILE/M,PUBSCREEN/K", 0, nullptr, &args));
    EXPECT_EQ(Dump(args), "- -");
    const char* quote[] = {"\"unbalanced"};
    ASSERT_TRUE(ReadArgs("FILE/M", 1, quote, &args));
    EXPECT_EQ(Dump(args), "[\"unbalanced]");
}

} // namespace
