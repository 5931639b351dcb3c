#include "platform/dos/matchfirst.h"

#include "platform/dos/errors.h"
#include "platform/dos/match.h"
#include "platform/dos/paths.h"
#include "platform/dos/patterns.h"
#include "platform/dos/volumes.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>

namespace {

long Fail(AnchorPath* anchor, long code) {
    MatchEnd(anchor);
    SetIoErr(code);
    return code;
}

bool IsDirectoryEntry(DIR* dir, const dirent* entry) {
    if (entry->d_type != DT_UNKNOWN && entry->d_type != DT_LNK) return entry->d_type == DT_DIR;
    struct stat info;
    return fstatat(dirfd(dir), entry->d_name, &info, 0) == 0 && S_ISDIR(info.st_mode);
}

// Fills `matches` with the entries of `directory` that the tokens match.
long ReadMatches(const std::string& directory, const char* tokens, bool dotNames,
                 std::vector<std::string>* matches) {
    DIR* dir = opendir(directory.c_str());
    if (!dir) return IoErrFromErrno(errno);
    while (const dirent* entry = readdir(dir)) {
        const char* name = entry->d_name;
        if (name[0] == '.' && !dotNames) continue;
        if (std::string_view(name) == "." || std::string_view(name) == "..") continue;
        if (!MatchPatternNoCase(tokens, name) || IsDirectoryEntry(dir, entry)) continue;
        matches->emplace_back(name);
    }
    closedir(dir);
    return 0;
}

void TakeMatch(AnchorPath* anchor) {
    anchor->ap_Name = anchor->ap_Matches[anchor->ap_Next++];
    anchor->ap_Path = anchor->ap_Directory;
    if (anchor->ap_Path.back() != '/') anchor->ap_Path += '/';
    anchor->ap_Path += anchor->ap_Name;
}

} // namespace

long MatchFirst(const char* pattern, AnchorPath* anchor) {
    MatchEnd(anchor);
    std::string path = ExpandVolumePath(pattern);
    const char* file = FilePart(path.c_str());
    std::string directory(path.c_str(), PathPart(path.c_str()));
    if (directory.empty()) directory.push_back('.');

    std::string tokens(2 * std::string_view(file).size() + 2, '\0');
    // Parsed with case kept, so that a plain name keeps its own; the matcher
    // ignores case all the same.
    int wild = ParsePattern(file, tokens.data(), static_cast<long>(tokens.size()));
    if (wild < 0) return Fail(anchor, ERROR_BAD_TEMPLATE);

    char resolved[PATH_MAX];
    if (!realpath(directory.c_str(), resolved)) return Fail(anchor, IoErrFromErrno(errno));
    anchor->ap_Directory = resolved;

    if (wild == 0) {
        std::string name(tokens.size(), '\0');
        struct stat info;
        if (!PatternPlainName(tokens.data(), name.data(), static_cast<long>(name.size())) ||
            name[0] == '\0')
            return Fail(anchor, ERROR_OBJECT_NOT_FOUND);
        name.resize(std::string_view(name.c_str()).size());
        if (stat((anchor->ap_Directory + "/" + name).c_str(), &info) != 0)
            return Fail(anchor, ERROR_OBJECT_NOT_FOUND);
        anchor->ap_Matches.push_back(name);
    } else {
        long error = ReadMatches(anchor->ap_Directory, tokens.data(), file[0] == '.', &anchor->ap_Matches);
        if (error != 0) return Fail(anchor, error);
        if (anchor->ap_Matches.empty()) return Fail(anchor, ERROR_NO_MORE_ENTRIES);
        std::sort(anchor->ap_Matches.begin(), anchor->ap_Matches.end());
    }
    TakeMatch(anchor);
    return 0;
}

long MatchNext(AnchorPath* anchor) {
    if (anchor->ap_Next >= anchor->ap_Matches.size()) {
        SetIoErr(ERROR_NO_MORE_ENTRIES);
        return ERROR_NO_MORE_ENTRIES;
    }
    TakeMatch(anchor);
    return 0;
}

void MatchEnd(AnchorPath* anchor) {
    anchor->ap_Directory.clear();
    anchor->ap_Name.clear();
    anchor->ap_Path.clear();
    anchor->ap_Matches.clear();
    anchor->ap_Next = 0;
}
