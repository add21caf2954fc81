// The typical look-up by hand over each of the parsers.
#include "Peers.h"

#include <stdexcept>
#include <xercesc/util/PlatformUtils.hpp>

namespace {

void RequireLoaded(bool isLoaded, const char* peer, const std::filesystem::path& file)
{
    if (!isLoaded)
        throw std::runtime_error(std::string(peer) + " did not load " + file.string());
}

} // namespace

Pugixml::Document Pugixml::Load(const std::filesystem::path& file)
{
    auto document = std::make_unique<pugi::xml_document>();
    RequireLoaded(document->load_file(file.c_str()), "pugixml", file);
    return document;
}

Libxml2::Document Libxml2::Load(const std::filesystem::path& file)
{
    // With the defaults that a type definition declares, as the library and Xerces-C read them.
    constexpr int options = XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_DTDLOAD | XML_PARSE_DTDATTR;
    Document document(xmlReadFile(file.c_str(), nullptr, options), xmlFreeDoc);
    RequireLoaded(document != nullptr, "libxml2", file);
    return document;
}

Tinyxml2::Document Tinyxml2::Load(const std::filesystem::path& file)
{
    auto document = std::make_unique<tinyxml2::XMLDocument>();
    RequireLoaded(document->LoadFile(file.c_str()) == tinyxml2::XML_SUCCESS, "tinyxml2", file);
    return document;
}

Xerces::Document Xerces::Load(const std::filesystem::path& file)
{
    static const bool isReady = (xercesc::XMLPlatformUtils::Initialize(), true);
    auto parser = std::make_unique<xercesc::XercesDOMParser>();
    parser->setValidationScheme(xercesc::XercesDOMParser::Val_Never);
    parser->setLoadExternalDTD(false);
    parser->parse(file.c_str());
    RequireLoaded(isReady && parser->getErrorCount() == 0 && parser->getDocument(), "Xerces-C", file);
    return parser;
}
