#pragma once
// The program's arguments, read as a Linux user types them.
//
// The template is "FILE/M,PUBSCREEN/K". Two departures from reading it
// word by word:
//   - An argument that names an existing file (or directory, device...) is
//     that file, taken literally: "report (1).txt", "it's.txt" and
//     "[draft].txt" are not patterns, and a file called "file" or
//     "pubscreen" is not a keyword. Only the other arguments are read
//     against the template, where a FILE that names nothing is a pattern.
//   - "--help" prints the usage of the template and the program ends with
//     status 0, as every Linux program does.
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

// True when the arguments ask for the usage ("--help" among them).
bool AsksForUsage(const std::vector<std::string>& arguments);

// The usage of `program`, its template and what each item takes.
void PrintUsage(std::FILE* out, const char* program);

// Starts a text for each FILE, in the order given: an existing file as it
// stands, any other name through its pattern ("No file to load" when
// nothing matches). Arguments that don't fit the template (a keyword
// without its value) are ignored, as if they weren't there. Result: the
// PUBSCREEN given, if one was; it names the screen of the windows that
// open once the first screen was taken.
std::optional<std::string> StartFromArguments(const std::vector<std::string>& arguments);
