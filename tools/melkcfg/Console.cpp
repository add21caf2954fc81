// Windows gives arguments in UTF-16, and turns "\n" into "\r\n" unless it is told not to.
#include "Console.h"

#include "VEXMELKFilePath.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <system_error>
#ifdef _WIN32
#include <windows.h>

#include <clocale>
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

#ifdef _WIN32
ProgramArguments::ProgramArguments(int /*argc*/, char** /*argv*/)
{
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int number = 0; number < count; ++number)
    {
        const int units = static_cast<int>(std::wcslen(wide[number]));
        std::string& text = m_Texts.emplace_back(static_cast<std::size_t>(units) * 3, '\0');
        text.resize(static_cast<std::size_t>(WideCharToMultiByte(
            CP_UTF8, 0, wide[number], units, text.data(), static_cast<int>(text.size()), nullptr, nullptr)));
    }
    LocalFree(wide);
    for (std::string& text : m_Texts)
        m_Values.push_back(text.data());
}

void PrepareStreams()
{
    for (const int descriptor : {0, 1, 2})
        _setmode(descriptor, _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
    std::setlocale(LC_CTYPE, ".UTF-8"); // for the paths of the standard library
}

long ReadStandardInput(char* bytes, std::size_t size) { return _read(0, bytes, static_cast<unsigned>(size)); }

bool IsTerminal(StandardStream stream) { return _isatty(static_cast<int>(stream)) != 0; }

std::optional<std::size_t> TerminalWidth()
{
    CONSOLE_SCREEN_BUFFER_INFO info = {};
    if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info) == 0)
        return std::nullopt;
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

std::string ProgramPath()
{
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    // A path that does not fit is cut.
    while ((length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) == path.size())
        path.resize(path.size() * 2);
    path.resize(length);
    return VEXMELKTextOf(path);
}
#else
ProgramArguments::ProgramArguments(int argc, char** argv) : m_Values(argv, argv + argc) {}

void PrepareStreams() {}

long ReadStandardInput(char* bytes, std::size_t size)
{
    ssize_t read = 0;
    do
        read = ::read(STDIN_FILENO, bytes, size);
    while (read < 0 && errno == EINTR);
    return read;
}

bool IsTerminal(StandardStream stream) { return isatty(static_cast<int>(stream)) != 0; }

std::optional<std::size_t> TerminalWidth()
{
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0)
        return std::nullopt;
    return size.ws_col;
}

std::string ProgramPath()
{
    std::error_code error;
    return VEXMELKTextOf(std::filesystem::read_symlink("/proc/self/exe", error));
}
#endif

std::string NewTemporaryFolder()
{
    namespace fs = std::filesystem;
    std::random_device random;
    std::error_code error;
    const fs::path parent = fs::temp_directory_path(error);
    for (int tries = 0; !error && tries < 100; ++tries)
    {
        const fs::path folder = parent / ("melkcfg-" + std::to_string(random()));
        if (!fs::create_directory(folder, error)) // false too when something of that name is there
            continue;
        fs::permissions(folder, fs::perms::owner_all, error);
        return error ? std::string() : VEXMELKTextOf(folder);
    }
    return {};
}
