// Loading files with the library and with its peers, each in the way of its manual.
#ifndef BENCH_Load_H
#define BENCH_Load_H

#include <array>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

// Documents as one reader keeps them. They go with the object.
class Loaded
{
public:
    virtual ~Loaded() = default;
    // The elements of all documents, counted in what the reader holds.
    virtual std::size_t Elements() const = 0;
};

// "library" loads a file as a configuration's, catalogue of standards included; "expat" only parses, with handlers that
// do nothing but count elements, in pieces of 64 KiB. Throws std::runtime_error when a file does not load.
inline constexpr std::array<const char*, 6> readers = {"library", "expat", "pugixml", "libxml2", "tinyxml2", "xerces"};
std::unique_ptr<Loaded> Load(const std::string& reader, const std::vector<std::filesystem::path>& files);

#endif
