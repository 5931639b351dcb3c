#pragma once
// The layout of a GNU gettext .mo file: a magic number (which also gives the
// byte order), a revision, the string count N and the offsets of two tables
// of N (length, offset) pairs, originals and translations. Each string is
// followed by a zero byte. The hash table is not needed for reading all
// entries and is ignored.

#include <string_view>
#include <vector>

struct MoEntry {
    std::string_view original;     // "context\x04msgid", or msgid; plural forms NUL-separated
    std::string_view translation;  // plural forms NUL-separated
};

// Splits the file image into its entries, which view into `image`. False
// for anything that is not a well-formed .mo file: short, wrong magic, an
// unknown major revision, a table or string outside the image, or a string
// without its terminating zero.
bool ParseMoFile(std::string_view image, std::vector<MoEntry>& entries);
