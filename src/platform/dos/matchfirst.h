#pragma once
// Walking the files of a directory that match a pattern.
//
// The pattern's directory part names the directory (volume names allowed,
// none meaning the current directory); wildcards count only in its file
// part, which is matched against the directory's entries with case ignored.
// Directories are never wildcard matches, and names beginning with '.' are
// matches only when the pattern itself begins with '.'. A file part without
// wildcards names itself: it matches when that entry exists, whatever it is.
// Matches come in byte order of their names.
#include <string>
#include <vector>

struct AnchorPath {
    std::string ap_Directory; // the absolute directory of the current match
    std::string ap_Name;      // the current match's name within it
    std::string ap_Path;      // ap_Directory and ap_Name joined
    // Walk state, owned by MatchFirst, MatchNext and MatchEnd.
    std::vector<std::string> ap_Matches;
    size_t ap_Next = 0;
};

// Starts a walk and takes the first match into the anchor. Gives 0 for a
// match, else the error, also stored for IoErr: ERROR_BAD_TEMPLATE for a
// pattern that can't be parsed, ERROR_OBJECT_NOT_FOUND for a missing
// directory or plain name, ERROR_NO_MORE_ENTRIES when no entry matches,
// another code when the directory can't be read.
long MatchFirst(const char* pattern, AnchorPath* anchor);

// Takes the next match into the anchor: 0, or ERROR_NO_MORE_ENTRIES when the
// walk is over.
long MatchNext(AnchorPath* anchor);

// Ends a walk and releases its state; the anchor may start another.
void MatchEnd(AnchorPath* anchor);
