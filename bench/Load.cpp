// Loading a document with each of the parsers, as far as its tree can be asked.
#include "Load.h"

#include "Peers.h"
#include "VEXMELKConfig.h"

#include <cstdio>
#include <expat.h>
#include <stdexcept>

namespace fs = std::filesystem;

namespace {

// A file of any name, as the object of a configuration loads it in the single layout.
class AnyConfiguration : public VEXMELKConfig
{
public:
    explicit AnyConfiguration(const std::string& file) : AnyConfiguration(file, file.rfind('/')) {}
    std::size_t Elements()
    {
        VEXMELKRootDOMElementsDefinition roots;
        if (!GetRootDOMElements(roots))
            throw std::runtime_error("the library did not load a file");
        return 1 + static_cast<std::size_t>(roots.DefaultRootElement->GetElementsByTagName("*")->GetLength());
    }

private:
    AnyConfiguration(std::string_view file, std::size_t slash)
        : VEXMELKConfig(CATUnicodeString(file.substr(0, slash)), CATUnicodeString(file.substr(slash + 1)))
    {
    }
};

class LoadedByLibrary : public Loaded
{
public:
    explicit LoadedByLibrary(const std::vector<fs::path>& files)
    {
        for (const fs::path& file : files)
        {
            m_Configurations.push_back(CATHandle<AnyConfiguration>::Create(file.native()));
            m_Configurations.back()->FindStandardLevel(""); // asks for the catalogue, so for all of it
        }
    }
    std::size_t Elements() const override
    {
        std::size_t elements = 0;
        for (const auto& configuration : m_Configurations)
            elements += configuration->Elements();
        return elements;
    }

private:
    std::vector<CATHandle<AnyConfiguration>> m_Configurations;
};

class LoadedByExpat : public Loaded
{
public:
    explicit LoadedByExpat(const std::vector<fs::path>& files)
    {
        for (const fs::path& file : files)
            Parse(file);
    }
    std::size_t Elements() const override { return m_Elements; }

private:
    void Parse(const fs::path& path)
    {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
        const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate(nullptr), XML_ParserFree);
        XML_SetUserData(parser.get(), &m_Elements);
        XML_SetElementHandler(
            parser.get(),
            [](void* elements, const XML_Char*, const XML_Char**) { ++*static_cast<std::size_t*>(elements); },
            [](void*, const XML_Char*) {});
        XML_SetCharacterDataHandler(parser.get(), [](void*, const XML_Char*, int) {});
        static std::array<char, 65536> piece;
        for (bool isLast = !file; !isLast;)
        {
            const std::size_t size = std::fread(piece.data(), 1, piece.size(), file.get());
            isLast = size < piece.size();
            if (XML_Parse(parser.get(), piece.data(), static_cast<int>(size), isLast) != XML_STATUS_OK)
                throw std::runtime_error("Expat did not parse " + path.string());
        }
    }

    std::size_t m_Elements = 0;
};

template <class Peer> class LoadedByPeer : public Loaded
{
public:
    explicit LoadedByPeer(const std::vector<fs::path>& files)
    {
        for (const fs::path& file : files)
            m_Documents.push_back(Peer::Load(file));
    }
    std::size_t Elements() const override
    {
        std::size_t elements = 0;
        for (const auto& document : m_Documents)
            elements += CountElements(Peer::Root(document));
        return elements;
    }

private:
    static std::size_t CountElements(typename Peer::Element element)
    {
        std::size_t elements = 1;
        for (auto child = Peer::FirstChild(element); child; child = Peer::NextSibling(child))
            elements += CountElements(child);
        return elements;
    }

    std::vector<typename Peer::Document> m_Documents;
};

} // namespace

std::unique_ptr<Loaded> Load(const std::string& reader, const std::vector<fs::path>& files)
{
    if (reader == "library")
        return std::make_unique<LoadedByLibrary>(files);
    if (reader == "expat")
        return std::make_unique<LoadedByExpat>(files);
    if (reader == "pugixml")
        return std::make_unique<LoadedByPeer<Pugixml>>(files);
    if (reader == "libxml2")
        return std::make_unique<LoadedByPeer<Libxml2>>(files);
    if (reader == "tinyxml2")
        return std::make_unique<LoadedByPeer<Tinyxml2>>(files);
    if (reader == "xerces")
        return std::make_unique<LoadedByPeer<Xerces>>(files);
    throw std::runtime_error("no reader " + reader);
}
