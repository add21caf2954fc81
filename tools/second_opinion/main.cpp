// Compares documents as the DOM handles show them with what libxml2 makes of the same files: node for node, attribute
// for attribute. Reads file names from standard input, one a line; exits with 1 when one differs.

#include "CATIXMLDOMDocumentBuilder.h"

#include <cstring>
#include <iostream>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

// A document as lines of text, one for each node and each attribute. Attributes are ordered by name: namespaces are
// declared by attributes, which libxml2 keeps apart from the others.
using Dump = std::vector<std::string>;
using Attributes = std::map<std::string, std::string>;

void AddElement(const std::string& tag, const Attributes& attributes, Dump& dump)
{
    dump.push_back("<" + tag);
    for (const auto& [name, value] : attributes)
        dump.push_back("@" + name + "=" + value);
}

// Adjacent texts become one: what an entity gives is a node of its own to some.
void AddText(std::string_view text, Dump& dump)
{
    if (dump.empty() || dump.back().front() != '#')
        dump.emplace_back("#");
    dump.back() += text;
}

void AddOther(char mark, std::string_view name, std::string_view text, Dump& dump)
{
    dump.push_back(mark + std::string(name).append(" ").append(text));
}

void AddHandles(const CATIDOMNode_var& parent, Dump& dump)
{
    for (CATIDOMNode_var node = parent->GetFirstChild(); node != NULL_var; node = node->GetNextSibling())
        switch (node->GetNodeType())
        {
        case CATIDOMNode::ELEMENT_NODE:
        {
            Attributes attributes;
            for (int position = 0; position < node->GetAttributes()->GetLength(); ++position)
            {
                const CATIDOMNode_var attribute = node->GetAttributes()->Item(position);
                attributes.emplace(attribute->GetNodeName(), attribute->GetNodeValue());
            }
            AddElement(std::string(node->GetNodeName()), attributes, dump);
            AddHandles(node, dump);
            dump.emplace_back(">");
            break;
        }
        case CATIDOMNode::TEXT_NODE:
            AddText(node->GetNodeValue(), dump);
            break;
        case CATIDOMNode::CDATA_SECTION_NODE:
            AddOther('[', "", node->GetNodeValue(), dump);
            break;
        case CATIDOMNode::COMMENT_NODE:
            AddOther('!', "", node->GetNodeValue(), dump);
            break;
        default:
            AddOther('?', node->GetNodeName(), node->GetNodeValue(), dump);
        }
}

const char* TextOf(const xmlChar* text) { return text ? reinterpret_cast<const char*>(text) : ""; }

std::string NameOf(const xmlChar* name, const xmlNs* space)
{
    return space && space->prefix ? std::string(TextOf(space->prefix)) + ":" + TextOf(name) : TextOf(name);
}

Attributes AttributesOf(const xmlNode* node)
{
    Attributes attributes;
    for (const xmlNs* space = node->nsDef; space; space = space->next)
        attributes.emplace(
            space->prefix ? std::string("xmlns:") + TextOf(space->prefix) : "xmlns", TextOf(space->href));
    for (const xmlAttr* attribute = node->properties; attribute; attribute = attribute->next)
    {
        const std::unique_ptr<xmlChar, void (*)(void*)> value(
            xmlNodeListGetString(node->doc, attribute->children, 1), xmlFree);
        attributes.emplace(NameOf(attribute->name, attribute->ns), TextOf(value.get()));
    }
    return attributes;
}

void AddPeer(const xmlNode* node, Dump& dump)
{
    for (; node; node = node->next)
        switch (node->type)
        {
        case XML_ELEMENT_NODE:
            AddElement(NameOf(node->name, node->ns), AttributesOf(node), dump);
            AddPeer(node->children, dump);
            dump.emplace_back(">");
            break;
        case XML_TEXT_NODE:
            AddText(TextOf(node->content), dump);
            break;
        case XML_CDATA_SECTION_NODE:
            AddOther('[', "", TextOf(node->content), dump);
            break;
        case XML_COMMENT_NODE:
            AddOther('!', "", TextOf(node->content), dump);
            break;
        case XML_PI_NODE:
            AddOther('?', TextOf(node->name), TextOf(node->content), dump);
            break;
        case XML_ENTITY_REF_NODE:
            AddOther('&', TextOf(node->name), "", dump);
            break;
        default: // the document type is no node here
            break;
        }
}

class Problems final : public CATISAXErrorHandler
{
public:
    CATResult Warning(const CATSAXParseException* /*problem*/) override
    {
        warned = true;
        return S_OK;
    }
    CATResult Error(const CATSAXParseException* /*problem*/) override { return S_OK; }
    CATResult FatalError(const CATSAXParseException* problem) override
    {
        message = problem->GetMessage();
        return S_OK;
    }
    bool warned = false; // an external part is missing
    CATUnicodeString message;
};

const xmlExternalEntityLoader loadAnything = xmlGetExternalEntityLoader();

// Reads no external part but from the file system, as the library does.
xmlParserInputPtr LoadLocally(const char* name, const char* id, xmlParserCtxtPtr context)
{
    return name && std::strstr(name, "://") == nullptr ? loadAnything(name, id, context) : nullptr;
}

// What libxml2 takes and the library refuses for safety: encodings of several bytes, contents from other files, and
// entities that nothing at hand declares.
bool IsRefused(std::string_view message)
{
    return message == "unknown encoding" || message == "reference to an entity that is not declared" ||
           message == "an external entity is not read" ||
           message.ends_with("a parameter entity from a file stands inside an entity's value");
}

void Differ(const std::string& path, const Dump& ours, const Dump& theirs)
{
    std::size_t at = 0;
    while (at < ours.size() && at < theirs.size() && ours[at] == theirs[at])
        ++at;
    const auto shown = [at](const Dump& dump) { return at < dump.size() ? dump[at].substr(0, 200) : "(end)"; };
    std::cout << path << ": differs\n  library: " << shown(ours) << "\n  libxml2: " << shown(theirs) << '\n';
}

} // namespace

int main()
{
    xmlSetExternalEntityLoader(LoadLocally);
    CATIXMLDOMDocumentBuilder_var builder;
    if (FAILED(CreateCATIXMLDOMDocumentBuilder(builder, CLSID_XML4C_DOM)))
        return 2;
    CATListValCATUnicodeString option;
    CATListValCATUnicodeString root;
    option.Append("CATDocumentTypeDirectory"); // libxml2 follows relative paths wherever they lead
    root.Append("/");
    int same = 0;
    int rejected = 0;
    int refused = 0;
    int different = 0;
    for (std::string path; std::getline(std::cin, path);)
    {
        const auto problems = CATHandle<Problems>::Create();
        CATIDOMDocument_var document;
        builder->Parse(
            CATUnicodeString(path), option, root, CATISAXErrorHandler_var(problems.Get()), NULL_var, document);
        const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> peer(
            xmlReadFile(path.c_str(), nullptr,
                XML_PARSE_NOENT | XML_PARSE_DTDLOAD | XML_PARSE_DTDATTR | XML_PARSE_NONET | XML_PARSE_HUGE |
                    XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
            xmlFreeDoc);
        Dump ours;
        Dump theirs;
        if (document != NULL_var)
            AddHandles(document, ours);
        if (peer)
            AddPeer(peer->children, theirs);
        if (ours == theirs)
            ++(peer ? same : rejected);
        else if (document == NULL_var && IsRefused(problems->message))
            ++refused;
        else
        {
            ++different;
            Differ(path, ours, theirs);
        }
    }
    std::cout << same << " documents are the same, " << rejected << " are rejected by both, " << refused
              << " are refused for safety, " << different << " differ\n";
    return different > 0 ? 1 : 0;
}
