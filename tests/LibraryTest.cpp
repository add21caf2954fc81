// The fixture of all tests: a directory, the caught boxes and log lines, and tables of cases.
#include "LibraryTest.h"

#include "VEXMELKFilePath.h"

#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

TemporaryDirectory::TemporaryDirectory()
{
    std::random_device random;
    do
        m_Path = std::filesystem::temp_directory_path() / ("melk-" + std::to_string(random()));
    while (!std::filesystem::create_directory(m_Path));
}

TemporaryDirectory::~TemporaryDirectory() { std::filesystem::remove_all(m_Path); }

void TemporaryDirectory::Write(const std::string& name, std::string_view contents) const
{
    const std::filesystem::path path = m_Path / VEXMELKFilePath(name);
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << contents;
}

void TemporaryDirectory::Remove(const std::string& name) const
{
    std::filesystem::remove_all(m_Path / VEXMELKFilePath(name));
}

LibraryTest::LibraryTest()
{
    Release();
    VEXMELKUtilities::Reset();
    VEXMELKLog::SetLevel(VEXMELKLog::ErrorLevel);
    VEXMELKGUI::InstallPresenter(this);
    VEXMELKLog::InstallSink(this);
    VEXMELKGetAdminAccess::ReplaceAccessAttr(this);
}

LibraryTest::~LibraryTest()
{
    Release();
    VEXMELKGUI::InstallPresenter(nullptr);
    VEXMELKLog::InstallSink(nullptr);
    VEXMELKGetAdminAccess::Reset();
}

void LibraryTest::Show(Kind kind, const CATUnicodeString& title, const CATUnicodeString& text)
{
    m_Boxes.push_back(
        std::string(kind == Error ? "error " : "warning ") + title.ConvertToChar() + ": " + text.ConvertToChar());
    const std::function<void()> action = inBox; // which may replace itself
    if (action)
        action();
}

void LibraryTest::Write(const CATUnicodeString& line) { m_Log.emplace_back(line.ConvertToChar()); }

CATResult LibraryTest::GetConfigurationDirectory(CATString& path) const
{
    if (!directoryIsSet)
        return E_FAIL;
    path = directory.Path().c_str();
    return S_OK;
}

CATResult LibraryTest::GetBaseDataDBPath(CATUnicodeString& path, CATUnicodeString& user) const
{
    path = "database";
    user = "reader";
    return 7;
}

std::string Document(const std::string& contents) { return "<config>" + contents + "</config>"; }

std::string Standard(const std::string& name, const std::string& contents, const std::string& attributes)
{
    return "<standard name=\"" + name + "\" " + attributes + ">" + contents + "</standard>";
}

std::string OneCategory(const std::string& attributes, const std::string& contents)
{
    return Document(Standard("S", "<category name=\"default\" " + attributes + ">" + contents + "</category>"));
}

std::string Repeated(std::size_t count, const std::string& text)
{
    std::string repeated;
    for (; count > 0; --count)
        repeated += text;
    return repeated;
}

std::string Replaced(std::string text, const std::string& what, const std::string& with)
{
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
        text.replace(at, what.size(), with);
    return text;
}

std::vector<std::string> Split(std::string_view text, std::string_view separator)
{
    std::vector<std::string> parts;
    for (std::size_t end = 0; end != std::string_view::npos; text.remove_prefix(std::min(end, text.size())))
    {
        end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        end = end == std::string_view::npos ? end : end + separator.size();
    }
    return parts;
}

std::string CaseFile(const std::string& name)
{
    return TextOfFile(CASES "/" + name + (name.ends_with(".xml") ? "" : ".txt"));
}

std::string TextOfFile(const std::string& path)
{
    const std::ifstream file(VEXMELKFilePath(path), std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

namespace {

std::string Unescaped(const std::string& cell)
{
    std::string text;
    for (std::size_t at = 0; at < cell.size(); ++at)
    {
        const char kind = cell[at] == '\\' ? cell.at(++at) : '\0';
        const std::size_t letter = std::string("nrts").find(kind);
        if (kind == 'x')
            text += static_cast<char>(std::stoi(cell.substr(at + 1, 2), nullptr, 16));
        else
            text += letter < 4 ? "\n\r\t "[letter] : cell[at];
        at += kind == 'x' ? 2 : 0;
    }
    return text;
}

} // namespace

std::vector<std::vector<std::string>> Cells(std::string_view table)
{
    std::vector<std::vector<std::string>> rows;
    std::string row;
    for (const std::string& line : Split(table, "\n"))
    {
        row += line.substr(std::min(line.find_first_not_of(' '), line.size()));
        if (row.ends_with(" \\"))
        {
            row.pop_back();
            continue;
        }
        const std::string whole = std::exchange(row, "");
        if (whole.empty() || whole.starts_with("//"))
            continue;
        rows.emplace_back();
        for (const std::string& cell : Split(whole, "|"))
        {
            const std::size_t begin = std::min(cell.find_first_not_of(' '), cell.size());
            rows.back().push_back(Unescaped(cell.substr(begin, cell.find_last_not_of(' ') + 1 - begin)));
        }
    }
    return rows;
}
