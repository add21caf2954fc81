// What all tests of the library share: a configuration directory of their own, a host that hears every box and log
// line, and tables of cases written as text. Each test starts from the state of a fresh process.
#ifndef TESTS_LibraryTest_H
#define TESTS_LibraryTest_H

#include "VEXMELKConfigManager.h"
#include "VEXMELKGUI.h"
#include "VEXMELKGetAdminAccess.h"
#include "VEXMELKLog.h"
#include "VEXMELKUtilities.h"

#include <array>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

// Sanitizers find their faults in fewer rounds of the same, and each takes ten times as long.
constexpr bool isSanitized = MELK_SANITIZED;

// Texts in failure messages.
inline void PrintTo(const CATUnicodeString& text, std::ostream* stream)
{
    *stream << '"' << text.ConvertToChar() << '"';
}

// A temporary directory, gone with the object.
class TemporaryDirectory
{
public:
    TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory();

    std::string Path() const { return m_Path.string(); }
    // Writes a file, with the directories above it; the name has "/".
    void Write(const std::string& name, std::string_view contents) const;
    void Remove(const std::string& name) const;

private:
    std::filesystem::path m_Path;
};

class LibraryTest : public ::testing::Test,
                    private VEXMELKMessagePresenter,
                    private VEXMELKLogSink,
                    private VEXIMELKAccessAdminAttr
{
protected:
    LibraryTest();
    ~LibraryTest() override;

    VEXMELKConfigManager& Manager() { return *VEXMELKConfigManager::GetConfigManager(); }
    // Forgets every document, so that the next query loads them again.
    static void Release() { VEXMELKConfigManager::ReleaseConfigManager(); }

    // Boxes and log lines since the last call: "error TITLE: TEXT" or "warning TITLE: TEXT".
    std::vector<std::string> TakeBoxes() { return std::exchange(m_Boxes, {}); }
    std::vector<std::string> TakeLog() { return std::exchange(m_Log, {}); }

    TemporaryDirectory directory;
    bool directoryIsSet = true; // false: as if MELK_CFG_PATH were not
    // What the host does while a box is open; nothing when it is not set. Boxes that come up meanwhile do it too.
    std::function<void()> inBox;
    std::string testPath;

private:
    void Show(Kind kind, const CATUnicodeString& title, const CATUnicodeString& text) override;
    void Write(const CATUnicodeString& line) override;
    CATResult GetConfigurationDirectory(CATString& path) const override;
    CATUnicodeString GetTestPath() const override { return {testPath}; }
    CATResult GetBaseDataDBPath(CATUnicodeString& path, CATUnicodeString& user) const override;

    std::vector<std::string> m_Boxes;
    std::vector<std::string> m_Log;
};

// A document of standards: Document(Standard("S", "<category .../>")).
std::string Document(const std::string& contents);
std::string Standard(const std::string& name, const std::string& contents, const std::string& attributes = "");
// A document with the one standard "S" and its one category "default".
std::string OneCategory(const std::string& attributes, const std::string& contents = "");

std::string Repeated(std::size_t count, const std::string& text);
// With every place of one text taken by another.
std::string Replaced(std::string text, const std::string& what, const std::string& with);
std::vector<std::string> Split(std::string_view text, std::string_view separator);

// The contents of a file in cases/; ".txt" may be left out.
std::string CaseFile(const std::string& name);
std::string TextOfFile(const std::string& path);

// The cells of a table of cases: a row on each line, "|" between its cells, blanks around them left out; a row goes on
// in the next line after " \", and "//" begins a comment. \n, \r, \t, \s (a blank) and \xHH stand for a byte.
std::vector<std::vector<std::string>> Cells(std::string_view table);

// The same with that many cells in each row: for (const auto& [text, result] : Table<2>(R"(...)")).
template <std::size_t count> std::vector<std::array<std::string, count>> Table(std::string_view table)
{
    std::vector<std::array<std::string, count>> rows;
    for (const std::vector<std::string>& cells : Cells(table))
    {
        EXPECT_EQ(cells.size(), count) << "cells in the row of " << cells[0];
        std::copy_n(cells.begin(), std::min(count, cells.size()), rows.emplace_back().begin());
    }
    return rows;
}

#endif
