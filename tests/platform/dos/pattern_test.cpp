#include "platform/dos/errors.h"
#include "platform/dos/match.h"
#include "platform/dos/patterns.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

std::string Tokens(const char* pattern, bool noCase = false, int* result = nullptr) {
    std::string tokens(2 * std::strlen(pattern) + 2, '\0');
    int r = noCase ? ParsePatternNoCase(pattern, tokens.data(), static_cast<long>(tokens.size()))
                   : ParsePattern(pattern, tokens.data(), static_cast<long>(tokens.size()));
    if (result) *result = r;
    return tokens;
}

bool Matches(const char* pattern, const char* name, bool noCase = false) {
    std::string tokens = Tokens(pattern, noCase);
    return noCase ? MatchPatternNoCase(tokens.data(), name) : MatchPattern(tokens.data(), name);
}

struct MatchCase {
    const char* pattern;
    const char* name;
    bool expected;
};

// Rows the random comparison below can't reach: escapes, classes with odd
// members, literal '|' and '*', negation of groups and the empty cases.
TEST(Pattern, MatchesTable) {
    const MatchCase cases[] = {
        {"#?.c", "main.cpp", false}, {"#(ab)c", "c", true},       {"x(a|(b|c)#d)y", "xcdddy", true},
        {"[-a]", "-", true},         {"[a-]", "-", true},         {"[']]", "]", true},
        {"[]", "a", false},          {"[~]", "a", true},          {"[a-c]x", "dx", false},
        {"~(#?.info)", "a.info", false}, {"~(#?.info)", "a.txt", true}, {"~(#?.info)", "", true},
        {"~(a)b", "b", true},        {"~~a", "a", true},          {"'?", "x", false},
        {"'#?", "#x", true},         {"''", "'", true},           {"a|b", "a|b", true},
        {"a|b", "a", false},         {"", "", true},              {"", "x", false},
        {"*", "x", false},
    };
    for (const MatchCase& c : cases)
        EXPECT_EQ(Matches(c.pattern, c.name), c.expected) << c.pattern << " on \"" << c.name << '"';
}

TEST(Pattern, IgnoresCaseOnlyWhenAsked) {
    struct CaseRow {
        const char* pattern;
        const char* name;
        bool noCase;
        bool exact;
    };
    const CaseRow cases[] = {
        {"#?.INFO", "Disk.info", true, false}, {"[a-c]", "B", true, false}, {"[A-C]", "b", true, false},
        {"[~a-c]", "B", false, true},          {"(x|Y)z", "yZ", true, false}, {"~(abc)", "ABC", false, true},
        {"\xe9t\xe9", "\xc9T\xc9", true, false}, // accented letters of ISO 8859-1
        {"\xf7", "\xd7", false, false},          // division and multiplication signs
    };
    for (const CaseRow& c : cases) {
        EXPECT_EQ(Matches(c.pattern, c.name, true), c.noCase) << c.pattern << " on " << c.name;
        EXPECT_EQ(Matches(c.pattern, c.name, false), c.exact) << c.pattern << " on " << c.name;
    }
    // Tokens of the exact parse still ignore case in the no-case matcher.
    EXPECT_TRUE(MatchPatternNoCase(Tokens("abc").data(), "AbC"));
}

TEST(Pattern, ParseResultTellsWildcardsFromPlainNames) {
    struct ParseCase {
        const char* pattern;
        int expected;
    };
    const ParseCase cases[] = {
        {"name.txt", 0}, {"", 0},       {"a'?b", 0},  {"a|b", 0},    {"*", 0},
        {"?", 1},        {"#?", 1},     {"%", 1},     {"(a)", 1},    {"[a]", 1},
        {"~a", 1},       {"(ab", -1},   {"ab)", -1},  {"[a-", -1},   {"[a", -1},
        {"#", -1},       {"a~", -1},    {"(#)", -1},  {"(a|~)", -1}, {"'", -1},
        {"[z-a]", -1},   {"[a-'", -1},  {"((a)", -1}, {"(a))", -1},
    };
    for (const ParseCase& c : cases) {
        int result = 2;
        std::string tokens = Tokens(c.pattern, false, &result);
        EXPECT_EQ(result, c.expected) << c.pattern;
        if (result < 0) {
            EXPECT_EQ(IoErr(), ERROR_BAD_TEMPLATE) << c.pattern;
            // A failed parse leaves tokens that match nothing, not even the
            // pattern's own text or the empty string.
            EXPECT_FALSE(MatchPattern(tokens.data(), c.pattern)) << c.pattern;
            EXPECT_FALSE(MatchPattern(tokens.data(), "")) << c.pattern;
        }
    }
}

TEST(Pattern, LimitsAndPlainNames) {
    char small[4];
    EXPECT_EQ(ParsePattern("abcdef", small, sizeof small), -1);
    EXPECT_EQ(IoErr(), ERROR_BUFFER_OVERFLOW);
    EXPECT_FALSE(MatchPattern(small, "abcdef"));
    int result = 0;
    Tokens((std::string(200, '(') + "a" + std::string(200, ')')).c_str(), false, &result);
    EXPECT_EQ(result, -1);
    Tokens((std::string(1000, '~') + "a").c_str(), false, &result);
    EXPECT_EQ(result, -1);
    EXPECT_TRUE(Matches((std::string(30, '(') + "a" + std::string(30, ')')).c_str(), "a"));

    char name[32];
    EXPECT_TRUE(PatternPlainName(Tokens("a'?b'#").data(), name, sizeof name));
    EXPECT_STREQ(name, "a?b#");
    EXPECT_FALSE(PatternPlainName(Tokens("a?").data(), name, sizeof name));
    EXPECT_FALSE(PatternPlainName(Tokens("abcdef").data(), name, 4));
}

TEST(Pattern, PathologicalPatternsFinish) {
    // Plain backtracking takes exponential time on these; each must answer
    // at once. No time is asserted: a blow-up shows as a test that hangs.
    std::string as(3000, 'a');
    EXPECT_FALSE(Matches("#?#?#?#?#?#?#?#?x", as.c_str()));
    EXPECT_TRUE(Matches("#?#?#?#?#?#?#?#?a", as.c_str()));
    EXPECT_FALSE(Matches("#(a|aa)b", std::string(400, 'a').c_str()));
    EXPECT_FALSE(Matches("#(#a#a)b", std::string(200, 'a').c_str()));
    EXPECT_TRUE(Matches("~(#?x#?)", std::string(300, 'a').c_str()));
    EXPECT_FALSE(Matches("#?~(#?a)#?b", std::string(150, 'a').c_str()));
    std::string literal(100000, 'q');
    std::string tokens(2 * literal.size() + 2, '\0');
    ASSERT_EQ(ParsePattern(literal.c_str(), tokens.data(), static_cast<long>(tokens.size())), 0);
    EXPECT_TRUE(MatchPattern(tokens.data(), literal.c_str()));
}

// A plain reference matcher, slow but evident: the set of positions where an
// item or a sequence starting at position i of the string can end. Only for
// the well-formed patterns the random test makes.
using Ends = std::set<size_t>;

size_t ItemEnd(const std::string& pattern, size_t p) {
    switch (pattern[p]) {
    case '#':
    case '~': return ItemEnd(pattern, p + 1);
    case '[': return pattern.find(']', p) + 1;
    case '\'': return p + 2;
    case '(': {
        int depth = 0;
        for (size_t k = p;; ++k) {
            depth += pattern[k] == '(' ? 1 : pattern[k] == ')' ? -1 : 0;
            if (depth == 0) return k + 1;
        }
    }
    default: return p + 1;
    }
}

Ends SequenceEnds(const std::string& pattern, size_t from, size_t to, const std::string& s, size_t i);

Ends ItemEnds(const std::string& pattern, size_t p, const std::string& s, size_t i) {
    Ends ends;
    char c = pattern[p];
    if (c == '?') {
        if (i < s.size()) ends.insert(i + 1);
    } else if (c == '%') {
        ends.insert(i);
    } else if (c == '[') {
        size_t close = pattern.find(']', p);
        bool negated = pattern[p + 1] == '~';
        bool in = i < s.size() && pattern.substr(p + 1 + negated, close - p - 1 - negated).find(s[i]) != std::string::npos;
        if (i < s.size() && in != negated) ends.insert(i + 1);
    } else if (c == '#') {
        ends.insert(i);
        std::vector<size_t> pending{i};
        while (!pending.empty()) {
            size_t q = pending.back();
            pending.pop_back();
            for (size_t e : ItemEnds(pattern, p + 1, s, q))
                if (ends.insert(e).second) pending.push_back(e);
        }
    } else if (c == '~') {
        Ends inner = ItemEnds(pattern, p + 1, s, i);
        for (size_t j = i; j <= s.size(); ++j)
            if (!inner.count(j)) ends.insert(j);
    } else if (c == '(') {
        size_t close = ItemEnd(pattern, p) - 1;
        size_t start = p + 1;
        int depth = 0;
        for (size_t k = p + 1; k <= close; ++k) {
            depth += pattern[k] == '(' ? 1 : pattern[k] == ')' ? -1 : 0;
            if ((pattern[k] == '|' && depth == 0) || k == close) {
                Ends branch = SequenceEnds(pattern, start, k, s, i);
                ends.insert(branch.begin(), branch.end());
                start = k + 1;
            }
        }
    } else {
        if (c == '\'') c = pattern[p + 1];
        if (i < s.size() && s[i] == c) ends.insert(i + 1);
    }
    return ends;
}

Ends SequenceEnds(const std::string& pattern, size_t from, size_t to, const std::string& s, size_t i) {
    Ends current{i};
    for (size_t p = from; p < to; p = ItemEnd(pattern, p)) {
        Ends next;
        for (size_t q : current) {
            Ends e = ItemEnds(pattern, p, s, q);
            next.insert(e.begin(), e.end());
        }
        current = std::move(next);
    }
    return current;
}

bool ReferenceMatch(const std::string& pattern, const std::string& s) {
    return SequenceEnds(pattern, 0, pattern.size(), s, 0).count(s.size()) > 0;
}

TEST(Pattern, AgreesWithAPlainReferenceOnRandomPatterns) {
    // Small random patterns over a tiny alphabet, built so that they parse,
    // against every short string over that alphabet.
    std::mt19937 random(20240611);
    auto pick = [&](int n) { return static_cast<int>(random() % n); };
    std::function<std::string(int)> item = [&](int depth) -> std::string {
        switch (depth > 2 ? pick(5) : pick(10)) {
        case 0: return "a";
        case 1: return "b";
        case 2: return "?";
        case 3: return "[a]";
        case 4: return "[~b]";
        case 5: return "%";
        case 6: return "#" + item(depth + 1);
        case 7: return "~" + item(depth + 1);
        case 8: return "(" + item(depth + 1) + item(depth + 1) + "|" + item(depth + 1) + ")";
        default: return "#?";
        }
    };
    std::vector<std::string> strings{""};
    for (size_t k = 0; k < strings.size() && strings.size() < 127; ++k)
        if (strings[k].size() < 6) {
            strings.push_back(strings[k] + "a");
            strings.push_back(strings[k] + "b");
        }
    for (int round = 0; round < 300; ++round) {
        std::string pattern;
        for (int n = 1 + pick(4); n > 0; --n) pattern += item(0);
        std::string tokens = Tokens(pattern.c_str());
        for (const std::string& s : strings)
            ASSERT_EQ(MatchPattern(tokens.data(), s.c_str()), ReferenceMatch(pattern, s))
                << pattern << " on \"" << s << '"';
    }
}

TEST(Pattern, SurvivesArbitraryPatternText) {
    std::mt19937 random(7);
    const char alphabet[] = "?#()|[]~%'-ab";
    for (int round = 0; round < 2000; ++round) {
        std::string pattern;
        for (int n = static_cast<int>(random() % 12); n > 0; --n) pattern += alphabet[random() % 13];
        std::string tokens = Tokens(pattern.c_str());
        MatchPattern(tokens.data(), "ab-ba");
        MatchPatternNoCase(tokens.data(), "");
    }
}

} // namespace
