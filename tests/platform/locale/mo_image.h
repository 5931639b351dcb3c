#pragma once
// Builds .mo file images for tests, well-formed or not, without msgfmt.

#include <string>
#include <vector>

struct MoText {
    std::string original;
    std::string translation;
};

// The header entry: `fields` is the text of its lines, "Name: value\n"...
MoText MoHeader(const std::string& fields);

// A header in UTF-8 declaring `version`.
MoText MoHeaderOfVersion(int version);

// A message whose msgctxt is `number`.
MoText MoMessage(long number, const std::string& msgid, const std::string& msgstr);

// The image of a .mo file holding `entries` (sorted as msgfmt sorts them),
// in little- or big-endian byte order.
std::string BuildMoImage(std::vector<MoText> entries, bool bigEndian = false);

// Writes `bytes` to `path`, creating its parent directories.
void WriteTestFile(const std::string& path, const std::string& bytes);

