// Windows keeps the environment in UTF-16; its 8-bit form loses what the system's code page does not have.
#include "CATEnvironment.h"

#include "CATWide.h"

#include <cstdlib>

std::string CATEnvironmentVariable(const char* name)
{
#ifdef _WIN32
    const wchar_t* value = _wgetenv(CATWide(name).c_str());
    return value ? CATNarrow(value) : std::string();
#else
    const char* value = std::getenv(name);
    return value ? value : "";
#endif
}
