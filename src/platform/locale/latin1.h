#pragma once
// Conversion of catalog texts to ISO 8859-1, the editor's only encoding.

#include <string>
#include <string_view>

// Appends `utf8` to `out` as ISO 8859-1: code points up to 0xFF become one
// byte, higher ones '?'. False, with `out` in an unspecified state, when
// `utf8` is not valid UTF-8 (bad or truncated sequences, overlong forms,
// surrogates, values beyond 0x10FFFF).
bool Utf8ToLatin1(std::string_view utf8, std::string& out);

// A file name, as the desktop encodes names (UTF-8), in ISO 8859-1 for the
// texts of the editor that show it (requesters): characters above 0xFF
// become '?'. A name that isn't valid UTF-8 was made in ISO 8859-1 and
// comes back unchanged. Only the shown name changes; the name used for the
// file stays the bytes the file system knows.
std::string FileNameToLatin1(std::string_view name);

// ISO 8859-1 text in UTF-8, for the window titles, which are the desktop's.
std::string Latin1ToUtf8(std::string_view latin1);

// A file name for a window title: a valid UTF-8 name as it stands, so that
// any name the desktop made shows whole; a name made in ISO 8859-1 read as
// such.
std::string FileNameToUtf8(std::string_view name);
