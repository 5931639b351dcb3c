#pragma once
// Reading command arguments against a template such as "FILE/M,PUBSCREEN/K".
//
// A template is a comma-separated list of items. Each item has one or more
// names joined by '=' ("TO=AS": either name is accepted) and modifiers,
// case ignored:
//   /S  a switch: present or not, takes no value
//   /K  the value must follow the keyword; never filled by position
//   /N  the value is a decimal number (StrToLong, the whole word)
//   /A  required
//   /M  any number of values; also takes the positional words left over
//       (less those needed by required items behind it in the template)
//   /F  the rest of the line, as it stands, from its value on
// A keyword is given as "NAME value" or "NAME=value". Words that are no
// keyword fill the non-/S, non-/K items in template order. In a line, a word
// in double quotes may hold blanks and is never a keyword; inside quotes "*"
// escapes: *" a quote, ** a star, *N a newline, *E an escape.
#include <string>
#include <vector>

// The result of one template item.
struct ArgResult {
    bool present = false;             // given (for /S: the switch is on)
    std::string string;               // the value of a single-valued item
    long number = 0;                  // that value as a number, for /N
    std::vector<std::string> strings; // the values of a /M item
    std::vector<long> numbers;        // those values as numbers, for /M/N
};

// One result per template item, in template order.
struct RDArgs {
    std::vector<ArgResult> items;
};

// Reads a command line. On failure gives false with args->items empty and
// the reason in IoErr: ERROR_BAD_TEMPLATE, ERROR_UNMATCHED_QUOTES,
// ERROR_KEY_NEEDS_ARG (a keyword without value, or a switch given one),
// ERROR_BAD_NUMBER, ERROR_TOO_MANY_ARGS (more words than items, or a
// keyword given twice), ERROR_REQUIRED_ARG_MISSING.
bool ReadArgs(const char* argTemplate, const char* line, RDArgs* args);

// The same for arguments already split into words, as a program's argv
// after its name: no quotes are looked at, and /F joins the remaining words
// with single blanks.
bool ReadArgs(const char* argTemplate, int argc, const char* const* argv, RDArgs* args);
