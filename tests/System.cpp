// Windows has neither pipes among its files nor a converter: there the library's own converter stands in for it.
#include "System.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>
#ifdef _WIN32
#include "CATEncoding.h"
#else
#include <iconv.h>
#include <malloc.h>
#include <sys/stat.h>
#endif

bool MakeLink(const std::string& target, const std::string& path)
{
    std::error_code error;
    std::filesystem::create_symlink(target, path, error);
    return !error;
}

#ifdef _WIN32
void SetVariable(const char* name, const std::string& value) { _putenv_s(name, value.c_str()); }

bool MakePipe(const std::string& /*path*/) { return false; }

std::size_t AllocatedBytes() { return 0; }

std::optional<std::string> Converted(std::string text, const std::string& from, const std::string& to)
{
    const auto utf8 = CATToUTF8(text, from);
    return utf8 ? CATFromUTF8(*utf8, to) : std::nullopt;
}
#else
void SetVariable(const char* name, const std::string& value)
{
    if (value.empty())
        unsetenv(name);
    else
        setenv(name, value.c_str(), 1);
}

bool MakePipe(const std::string& path) { return mkfifo(path.c_str(), 0600) == 0; }

std::size_t AllocatedBytes() { return mallinfo2().uordblks; }

std::optional<std::string> Converted(std::string text, const std::string& from, const std::string& to)
{
    iconv_t converter = iconv_open(to.c_str(), from.c_str());
    std::string converted(text.size() * 4, '\0');
    char* input = text.data();
    char* output = converted.data();
    std::size_t inputLeft = text.size();
    std::size_t outputLeft = converted.size();
    const bool done = iconv(converter, &input, &inputLeft, &output, &outputLeft) == 0 &&
                      iconv(converter, nullptr, nullptr, &output, &outputLeft) == 0;
    iconv_close(converter);
    converted.resize(converted.size() - outputLeft);
    return done ? std::optional(converted) : std::nullopt;
}
#endif
