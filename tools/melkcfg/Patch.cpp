// Patches are unified diffs in the encoding of the file. Files in UTF-16 have no lines that a patch could name, and are
// mended in place only.
#include "Patch.h"

#include "VEXMELKFilePath.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>

namespace {

namespace fs = std::filesystem;

struct Mend
{
    std::size_t findings = 0;
    std::vector<VEXMELKTextEdit> edits;
    std::string renamed;
};

bool Overlaps(const VEXMELKTextEdit& left, const VEXMELKTextEdit& right)
{
    return left.begin < right.end && right.begin < left.end;
}

// By file. All edits of a finding, or none.
std::map<std::string, Mend> MendsOf(const std::vector<VEXMELKFinding>& findings)
{
    std::map<std::string, Mend> mends;
    for (const VEXMELKFinding& finding : findings)
    {
        if (finding.edits.empty() && finding.renamed.empty())
            continue;
        Mend& mend = mends[finding.file];
        const bool isTaken = std::any_of(finding.edits.begin(), finding.edits.end(),
            [&](const VEXMELKTextEdit& edit)
            {
                return std::any_of(mend.edits.begin(), mend.edits.end(),
                    [&](const VEXMELKTextEdit& other) { return Overlaps(edit, other); });
            });
        if (isTaken || (!finding.renamed.empty() && !mend.renamed.empty()))
            continue;
        ++mend.findings;
        mend.edits.insert(mend.edits.end(), finding.edits.begin(), finding.edits.end());
        if (!finding.renamed.empty())
            mend.renamed = finding.renamed;
    }
    for (auto& [file, mend] : mends)
        std::sort(mend.edits.begin(), mend.edits.end(),
            [](const VEXMELKTextEdit& left, const VEXMELKTextEdit& right) { return left.begin < right.begin; });
    return mends;
}

VEXMELKWrittenFile Read(const std::string& path)
{
    auto file = VEXMELKWrittenFile::Read(path);
    if (!file)
        throw RequestError(path + " cannot be read");
    return *std::move(file);
}

// Lines with their ends.
std::vector<std::string> LinesOf(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty())
    {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return lines;
}

class Patch
{
public:
    Patch(std::ostream& stream, const VEXMELKWrittenFile& file) : m_Stream(stream), m_File(file)
    {
        std::size_t offset = 0;
        for (const std::string& line : LinesOf(file.Text()))
        {
            m_Lines.push_back(line);
            m_Begins.push_back(offset);
            offset += line.size();
        }
        m_Begins.push_back(offset);
    }

    // Edits of lines that lie near each other share a hunk.
    void Print(const std::string& name, const std::vector<VEXMELKTextEdit>& edits)
    {
        m_Stream << "--- a/" << name << "\n+++ b/" << name << "\n";
        for (std::size_t first = 0; first < edits.size();)
        {
            std::size_t next = first + 1;
            while (next < edits.size() && LineOf(edits[next].begin) <= LineOf(edits[next - 1].end) + 2 * context)
                ++next;
            PrintHunk(std::vector<VEXMELKTextEdit>(
                edits.begin() + static_cast<std::ptrdiff_t>(first), edits.begin() + static_cast<std::ptrdiff_t>(next)));
            first = next;
        }
    }

private:
    static constexpr std::size_t context = 3;

    std::size_t LineOf(std::size_t offset) const
    {
        const auto after = std::upper_bound(m_Begins.begin(), m_Begins.end() - 1, offset);
        return static_cast<std::size_t>(after - m_Begins.begin()) - 1;
    }

    void PrintHunk(const std::vector<VEXMELKTextEdit>& edits)
    {
        const std::size_t firstChanged = LineOf(edits.front().begin);
        const std::size_t lastChanged = LineOf(edits.back().end);
        const std::size_t first = firstChanged - std::min(firstChanged, context);
        const std::size_t last = std::min(lastChanged + context, m_Lines.size() - 1);
        std::string changed;
        std::size_t at = m_Begins[firstChanged];
        for (const VEXMELKTextEdit& edit : edits)
        {
            changed += m_File.Text().substr(at, edit.begin - at) + edit.text;
            at = edit.end;
        }
        changed += m_File.Text().substr(at, m_Begins[lastChanged + 1] - at);
        const std::vector<std::string> lines = LinesOf(changed);
        const std::size_t removed = lastChanged - firstChanged + 1;
        const std::size_t old = last - first + 1;
        const std::size_t added = old - removed + lines.size();
        m_Stream << "@@ -" << first + 1 << "," << old << " +" << static_cast<std::ptrdiff_t>(first + 1) + m_Shift << ","
                 << added << " @@\n";
        m_Shift += static_cast<std::ptrdiff_t>(added) - static_cast<std::ptrdiff_t>(old);
        for (std::size_t line = first; line < firstChanged; ++line)
            PrintLine(' ', m_Lines[line], line == 0);
        for (std::size_t line = firstChanged; line <= lastChanged; ++line)
            PrintLine('-', m_Lines[line], line == 0);
        for (std::size_t line = 0; line < lines.size(); ++line)
            PrintLine('+', lines[line], firstChanged + line == 0);
        for (std::size_t line = lastChanged + 1; line <= last; ++line)
            PrintLine(' ', m_Lines[line], false);
    }
    void PrintLine(char sign, const std::string& line, bool isFirst)
    {
        const auto bytes = m_File.Encoded(line);
        if (!bytes)
            throw RequestError("the encoding of a file does not have a text that mends it");
        m_Stream << sign << (isFirst ? m_File.ByteOrderMark() : "") << *bytes;
        if (!line.ends_with('\n'))
            m_Stream << "\n\\ No newline at end of file\n";
    }

    std::ostream& m_Stream;
    const VEXMELKWrittenFile& m_File;
    std::vector<std::string> m_Lines;
    std::vector<std::size_t> m_Begins; // of each line, and the end
    std::ptrdiff_t m_Shift = 0;        // lines by which what follows has moved
};

// Through links, and whole or not at all.
void Write(const std::string& path, const std::string& bytes)
{
    std::error_code error;
    const fs::path target = fs::canonical(VEXMELKFilePath(path), error);
    fs::path temporary = target;
    temporary += ".melkcfg-new";
    std::ofstream stream(temporary, std::ios::binary);
    stream << bytes;
    stream.close();
    if (!error && stream)
        fs::permissions(temporary, fs::status(target).permissions(), error);
    if (!error && stream)
        fs::rename(temporary, target, error);
    if (error || !stream)
    {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        throw RequestError(path + " cannot be written");
    }
}

} // namespace

std::size_t PrintFixes(std::ostream& stream, const std::vector<VEXMELKFinding>& findings, const std::string& directory)
{
    std::size_t count = 0;
    for (const auto& [name, mend] : MendsOf(findings))
    {
        if (!mend.renamed.empty())
            stream << "diff --git a/" << name << " b/" << mend.renamed << "\nsimilarity index 100%\nrename from "
                   << name << "\nrename to " << mend.renamed << "\n";
        if (!mend.edits.empty())
        {
            const VEXMELKWrittenFile file = Read(directory + "/" + name);
            if (file.Encoding().starts_with("UTF-16"))
            {
                std::cerr << name << " is in UTF-16: it can be mended with --write only" << std::endl;
                continue;
            }
            Patch(stream, file).Print(name, mend.edits);
        }
        count += mend.findings;
    }
    return count;
}

std::size_t WriteFixes(const std::vector<VEXMELKFinding>& findings, const std::string& directory)
{
    std::size_t count = 0;
    for (const auto& [name, mend] : MendsOf(findings))
    {
        const std::string path = directory + "/" + name;
        if (!mend.edits.empty())
        {
            const auto bytes = Read(path).With(mend.edits);
            if (!bytes)
                throw RequestError(path + ": its encoding does not have a text that mends it");
            Write(path, *bytes);
        }
        std::error_code error;
        if (!mend.renamed.empty())
            fs::rename(VEXMELKFilePath(path), VEXMELKFilePath(directory + "/" + mend.renamed), error);
        if (error)
            throw RequestError(path + " cannot be renamed: " + error.message());
        count += mend.findings;
    }
    return count;
}

Json FixesToJson(const std::vector<VEXMELKFinding>& findings, const std::string& directory)
{
    Json files = Json::array();
    for (const auto& [name, mend] : MendsOf(findings))
    {
        Json edits = Json::array();
        const auto file = mend.edits.empty() ? std::nullopt : std::optional(Read(directory + "/" + name));
        for (const VEXMELKTextEdit& edit : mend.edits)
        {
            const VEXMELKPosition begin = file->PositionOf(edit.begin);
            const VEXMELKPosition end = file->PositionOf(edit.end);
            edits.push_back({{"line", begin.line}, {"column", begin.column}, {"endLine", end.line},
                {"endColumn", end.column}, {"text", edit.text}});
        }
        files.push_back({{"file", name}, {"findings", mend.findings}, {"edits", edits},
            {"renamed", mend.renamed.empty() ? Json() : Json(mend.renamed)}});
    }
    return {{"version", 1}, {"files", files}};
}
