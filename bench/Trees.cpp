// Generated configuration directories. A tree of the same size always has the same bytes.
#include "Trees.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <stdexcept>

namespace fs = std::filesystem;

const std::array<Field, fieldCount> freeSpaceFields = {{
    {"FSFrontAngle", "deg"},
    {"FSMidAngle", "deg"},
    {"FSBackAngle", "deg"},
    {"FSSideAngle", "deg"},
    {"FSNoseLength", "mm"},
    {"FSHoleDistance", "mm"},
    {"FSHoleHight", "mm"},
    {"FSHoleLength", "mm"},
    {"FSBottomHight", "mm"},
    {"FSNoseHight", "mm"},
    {"FSBodyHight", "mm"},
    {"FSMidLength", "mm"},
    {"FSNoseWidth", "mm"},
    {"FSBodyWidth", "mm"},
}};

namespace {

bool FallsBack(std::size_t field) { return field % 4 == 1; }
bool HasUnit(std::size_t field) { return field % 3 == 0; }

std::string Number(int standard, int category, std::size_t field)
{
    return std::to_string((standard * 7 + category * 5 + static_cast<int>(field) * 13) % 997) + ".5";
}

std::string CategoryName(int category)
{
    if (category == 0)
        return "default";
    return category == 1 ? "car" : "category " + std::to_string(category);
}

void AppendCategory(const Shape& shape, int standard, int category, std::string& text)
{
    text += "    <category name=\"" + CategoryName(category) + "\"";
    int attributes = 1;
    for (std::size_t field = 0; field < fieldCount; ++field)
        if (category == 0 || !FallsBack(field))
        {
            text += std::string(" ") + freeSpaceFields[field].attribute + "=\"" + Number(standard, category, field) +
                    (HasUnit(field) ? freeSpaceFields[field].unit : "") + "\"";
            ++attributes;
        }
    for (; attributes < shape.attributes; ++attributes)
        text += " Note" + std::to_string(attributes) + "=\"" + std::to_string(attributes * 3) + "\"";
    text += ">\n";
    for (int child = 0; child < shape.children; ++child)
        text += "      <point name=\"P" + std::to_string(child) + "\" x=\"" + std::to_string(child * 10) + "\" y=\"" +
                std::to_string(child) + ".5mm\"/>\n";
    text += "    </category>\n";
}

std::string DocumentOf(const Shape& shape, int firstStandard, int standards)
{
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<configuration>\n";
    for (int standard = firstStandard; standard < firstStandard + standards; ++standard)
    {
        text += "  <standard name=\"" + StandardName(standard) + "\">\n";
        AppendCategory(shape, standard, 0, text);
        for (int place = 1; place < shape.categories; ++place)
            AppendCategory(shape, standard, place == shape.categories / 2 ? 1 : place + 1, text);
        text += "  </standard>\n";
    }
    return text + "</configuration>\n";
}

void Write(const fs::path& file, const std::string& text)
{
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text;
    if (fs::file_size(file) != text.size())
        throw std::runtime_error("cannot write " + file.string());
}

} // namespace

std::string StandardName(int standard) { return "Standard " + std::to_string(standard); }

Answers ExpectedAnswers(int standard, bool withComma)
{
    Answers answers;
    for (std::size_t field = 0; field < fieldCount; ++field)
    {
        answers[field] = Number(standard, FallsBack(field) ? 0 : 1, field) + freeSpaceFields[field].unit;
        if (withComma)
            std::replace(answers[field].begin(), answers[field].end(), '.', ',');
    }
    return answers;
}

std::string Document(const Shape& shape) { return DocumentOf(shape, 0, shape.standards); }

Shape ShapeOfSize(std::size_t bytes)
{
    Shape shape;
    shape.standards = 1000;
    const std::size_t each = Document(shape).size() / 1000;
    shape.standards = static_cast<int>(std::max<std::size_t>(bytes / each, 1));
    return shape;
}

fs::path ScratchDirectory()
{
    const char* named = std::getenv("MELK_BENCH_DIR");
    return named ? fs::path(named) : fs::temp_directory_path() / "melk-bench";
}

const fs::path& TreeOf(const Shape& shape)
{
    static std::map<Shape, fs::path> trees;
    const auto [place, isNew] = trees.try_emplace(shape);
    if (isNew)
    {
        place->second =
            ScratchDirectory() / (std::to_string(shape.standards) + "-" + std::to_string(shape.ownStandards) + "-" +
                                     std::to_string(shape.categories) + "-" + std::to_string(shape.attributes) + "-" +
                                     std::to_string(shape.children));
        Write(DefaultFile(place->second), Document(shape));
        Write(CustomerFile(place->second), DocumentOf(shape, shape.standards, shape.ownStandards));
    }
    return place->second;
}

fs::path DefaultFile(const fs::path& tree) { return tree / "Default" / "OVA" / "FreeSpace.xml"; }
fs::path CustomerFile(const fs::path& tree) { return tree / "Customer" / "OVA" / "FreeSpace.xml"; }

fs::path SampleDirectory()
{
    const char* named = std::getenv("MELK_BENCH_SAMPLE");
    return named ? named : "configuration";
}

std::vector<fs::path> SampleFiles()
{
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(SampleDirectory()))
        if (entry.path().extension() == ".xml")
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}
