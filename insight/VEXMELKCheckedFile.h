// A file as it is checked: its elements, each with what the descriptions say of it and with its tag as it is written.
#ifndef VEXMELKCheckedFile_H
#define VEXMELKCheckedFile_H

#include "CATIDOM.h"
#include "VEXMELKElementKind.h"
#include "VEXMELKWrittenFile.h"

#include <bitset>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <unordered_map>

// The elements of a description by where they stand.
class VEXMELKElementPlaces
{
public:
    static constexpr std::size_t mostElements = 256;
    using Set = std::bitset<mostElements>;
    // What an element is, and what it and the elements around it are.
    struct Place
    {
        const VEXMELKElementKind* kind = nullptr;
        Set own;
        Set around;
        bool isRoot = false;
    };

    explicit VEXMELKElementPlaces(const VEXMELKDescription& description);

    Place Root() const;
    Place Below(const Place& parent, std::string_view tag) const;
    Place Both(const Place& one, const Place& other) const;
    // Whether it only is what it is because tags are free there.
    bool IsByFreeTag(const Place& place) const;
    // The tags that may stand directly below.
    std::vector<std::string> TagsBelow(const Place& parent) const;
    // Those that the description knows anywhere with the tag, and that have the attribute.
    const VEXMELKElement* FindTag(std::string_view tag) const;
    const VEXMELKElement* FindReaderOf(std::string_view attribute) const;

private:
    const VEXMELKElementKind* KindOf(const Set& own) const;

    std::vector<const VEXMELKElement*> m_Elements;
    std::vector<std::size_t> m_Below; // of each; its own number for those below the root
    std::unordered_map<std::string_view, std::vector<std::size_t>> m_ByTag;
    mutable std::unordered_map<Set, std::unique_ptr<VEXMELKElementKind>> m_Kinds; // made when first wanted
};

class VEXMELKCheckedFile
{
public:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);
    enum class Layer
    {
        Default,
        Customer,
        Single
    };
    struct Node
    {
        CATIDOMElement_var element;
        std::size_t parent = none;
        std::size_t end = 0; // behind the last element in it
        VEXMELKElementPlaces::Place place;
        const VEXMELKWrittenFile::Tag* tag = nullptr; // null when an entity wrote it
        bool isLeftOut = false;                       // it, or one around it, is not what the description knows
    };
    struct Problem
    {
        bool isFatal;
        std::string message;
        VEXMELKPosition position;
    };

    // Loads the file as configurations do; "name" is the one below the directory, with "/".
    VEXMELKCheckedFile(
        const VEXMELKDescription& description, Layer layer, std::string name, const std::string& directory);
    VEXMELKCheckedFile(const VEXMELKCheckedFile&) = delete;
    VEXMELKCheckedFile& operator=(const VEXMELKCheckedFile&) = delete;

    const VEXMELKDescription& Description() const { return m_Description; }
    Layer GetLayer() const { return m_Layer; }
    const std::string& Name() const { return m_Name; }
    const std::vector<Problem>& Problems() const { return m_Problems; }
    // Null when its encoding is not known or it cannot be read.
    const VEXMELKWrittenFile* Written() const { return m_Written ? &*m_Written : nullptr; }
    const VEXMELKElementPlaces& Places() const { return m_Places; }
    // In the order of the document, the root first; none when it does not load.
    std::vector<Node>& Nodes() { return m_Nodes; }
    const std::vector<Node>& Nodes() const { return m_Nodes; }

    std::string_view TagOf(std::size_t node) const { return m_Nodes[node].element->GetTagName(); }
    std::optional<std::string_view> TextOf(std::size_t node, std::string_view attribute) const;
    // Whether the node is described as an element with the tag that has, or has not, another described one above it.
    bool Is(std::size_t node, std::string_view tag) const { return m_Nodes[node].place.kind->As(tag) != nullptr; }
    // The node itself, or the nearest around it, that is such an element; none when there is none.
    std::size_t Around(std::size_t node, std::string_view tag) const;
    // The nodes directly below.
    void ForEachChild(std::size_t node, const std::function<void(std::size_t)>& act) const;

private:
    void Load(const std::string& directory);
    void AddNodes(const CATIDOMElement_var& root);
    VEXMELKElementPlaces::Place PlaceOf(const Node& node) const;

    const VEXMELKDescription& m_Description;
    Layer m_Layer;
    std::string m_Name;
    VEXMELKElementPlaces m_Places;
    std::vector<Problem> m_Problems;
    std::optional<VEXMELKWrittenFile> m_Written;
    std::vector<Node> m_Nodes;
};

#endif
