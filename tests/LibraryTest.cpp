#include "LibraryTest.h"

#include <cstdlib>
#include <fstream>

TemporaryDirectory::TemporaryDirectory()
{
    std::string name = (std::filesystem::temp_directory_path() / "melk-XXXXXX").string();
    m_Path = mkdtemp(name.data());
}

TemporaryDirectory::~TemporaryDirectory() { std::filesystem::remove_all(m_Path); }

void TemporaryDirectory::Write(const std::string& name, std::string_view contents) const
{
    const std::filesystem::path path = m_Path / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << contents;
}

void TemporaryDirectory::Remove(const std::string& name) const { std::filesystem::remove_all(m_Path / name); }

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
