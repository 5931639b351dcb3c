#include "platform/dos/runtime_directory.h"

#include <cstdlib>
#include <unistd.h>

std::string AbsoluteEnvironmentPath(const char* name)
{
    const char* value = std::getenv(name);
    return value && value[0] == '/' ? value : "";
}

std::string TempDirectory()
{
    std::string temp = AbsoluteEnvironmentPath("TMPDIR");
    return temp.empty() ? "/tmp" : temp;
}

std::string RuntimeDirectory()
{
    std::string runtime = AbsoluteEnvironmentPath("XDG_RUNTIME_DIR");
    if (!runtime.empty())
        return runtime + "/tavrel";
    return TempDirectory() + "/tavrel-" + std::to_string(getuid());
}
