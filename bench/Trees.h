// Configuration directories of any size for one configuration, FreeSpace, and the answers that they hold.
#ifndef BENCH_Trees_H
#define BENCH_Trees_H

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

// How the generated documents look. Every category has "attributes" attributes and "children" elements.
struct Shape
{
    int standards = 10;   // of the Default document
    int ownStandards = 1; // of the Customer document, which has none of the others
    int categories = 3;   // "default" first, "car" in the middle
    int attributes = 16;
    int children = 6;

    auto operator<=>(const Shape&) const = default;
};

inline constexpr std::size_t fieldCount = 14;

// The attributes that a query reads, with their units.
struct Field
{
    const char* attribute;
    const char* unit;
};
extern const std::array<Field, fieldCount> freeSpaceFields;

using Answers = std::array<std::string, fieldCount>;

// The answer to "category car of this standard": four of the fields come from "default".
Answers ExpectedAnswers(int standard, bool withComma);

std::string StandardName(int standard);

// The text of the Default document.
std::string Document(const Shape& shape);
// The shape whose document has about so many bytes.
Shape ShapeOfSize(std::size_t bytes);

// Directories below the one that MELK_BENCH_DIR names, written when first asked for and kept for the process.
std::filesystem::path ScratchDirectory();
// A directory with Default/OVA/FreeSpace.xml and Customer/OVA/FreeSpace.xml.
const std::filesystem::path& TreeOf(const Shape& shape);
std::filesystem::path DefaultFile(const std::filesystem::path& tree);
std::filesystem::path CustomerFile(const std::filesystem::path& tree);

// Every file of the sample configuration.
std::vector<std::filesystem::path> SampleFiles();
std::filesystem::path SampleDirectory();

#endif
