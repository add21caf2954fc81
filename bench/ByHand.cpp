// Loading the documents that the look-ups by hand go over, and finding standards and categories in them.
#include "ByHand.h"

#include "Peers.h"

namespace ByHand {

File::File(std::string file) : m_File(std::move(file)) { Load(); }

void File::Load()
{
    const std::filesystem::path single = SampleDirectory() / m_File;
    const bool isSingle = std::filesystem::exists(single);
    m_Default = Pugixml::Load(isSingle ? single : SampleDirectory() / "Default" / m_File);
    const std::filesystem::path customer = SampleDirectory() / "Customer" / m_File;
    m_Customer = std::make_unique<pugi::xml_document>();
    if (!isSingle && std::filesystem::exists(customer))
        m_Customer = Pugixml::Load(customer);
    m_Standards.clear();
    for (const auto* document : {&m_Customer, &m_Default})
        for (const Node standard : (*document)->document_element().children("standard"))
            m_Standards.emplace(standard.attribute("name").value(), standard);
}

Node File::RootChild(const char* tag, std::string_view name) const
{
    const Node child = Child(m_Customer->document_element(), tag, "name", name);
    return child ? child : Child(m_Default->document_element(), tag, "name", name);
}

File::Found File::Find(std::string_view standard, std::string_view category) const
{
    const auto found = m_Standards.find(standard);
    if (found == m_Standards.end())
        return {};
    Found result{found->second, {}, {}};
    for (Node child = result.standard.child("category"); child; child = child.next_sibling("category"))
    {
        const std::string_view name = child.attribute("name").value();
        if (!result.own && name == category)
            result.own = child;
        if (!result.other && name == "default")
            result.other = child;
    }
    return result;
}

} // namespace ByHand
