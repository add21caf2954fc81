// A configuration's look-up written by hand over pugixml, as far as it can be said in a plan: which element is looked
// for, which attributes of it and of the elements below it are read. Read values go into records that are kept from one
// run to the next, so that nothing is allocated once they are there.
#ifndef BENCH_ByHand_H
#define BENCH_ByHand_H

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <vector>

enum class Kind
{
    Text,   // with its unit
    Code,   // a text that the library turns into an enumeration
    Flag,   // "true" in any letter case
    Number, // times the factor
};

struct Wanted
{
    std::string attribute = {}; // "." is the element's own text
    Kind kind = Kind::Text;
    std::string unit = {};
    double factor = 1.0;
    std::string whenMissing = {};
};

struct Value
{
    const Wanted* wanted = nullptr;
    std::string text;
    double number = 0.0;
    bool isFound = false;
};
using Record = std::vector<Value>;

enum class Which
{
    All,
    First,         // of those with the key, when there is one
    FirstNotAbove, // the first row whose key is not above the travel; else the last row
    LastBelow,     // the last row whose key is below the travel; else the first row
};

struct Elements
{
    std::string tag = {};
    std::vector<Wanted> wanted = {};
    Which which = Which::All;
    std::string keyAttribute = {};
    std::string key = {};
    double travel = 0.0;
    std::vector<Elements> inner = {};
    bool intoLast = false; // over what the record before has, attribute by attribute
    // An attribute that names an element below the root, whose attributes are read too.
    std::string reference = {};
    std::string referencedTag = {};
    std::vector<Wanted> referencedWanted = {};
};

struct Plan
{
    std::string file;
    std::string name = {};     // of the standard, or of what stands in its place; empty: the root itself
    std::string category = {}; // empty: the data stand in the standard
    std::vector<Wanted> attributes = {};
    std::vector<Elements> elements = {};
    enum
    {
        WholeCategory,
        ValueByValue,
        ElementByElement, // and value by value
        Overlay,          // and value by value
    } fallBack = ValueByValue;
    std::string tag = "standard";
    std::vector<Wanted> ofStandard = {};
    bool loadsEachTime = false;
};

class ByHand
{
public:
    explicit ByHand(Plan plan);
    int operator()();
    const std::vector<Record>& Records() const { return m_Records; }
    std::size_t RecordCount() const { return m_Used; }

private:
    void Load();
    Record& NextRecord(const std::vector<Wanted>& wanted);
    void ReadElements(pugi::xml_node parent, const Elements& elements);
    void ReadElement(pugi::xml_node element, const Elements& elements);
    void ReadRow(pugi::xml_node parent, const Elements& elements);

    Plan m_Plan;
    std::unique_ptr<pugi::xml_document> m_Default;
    std::unique_ptr<pugi::xml_document> m_Customer;
    std::vector<Record> m_Records;
    std::size_t m_Used = 0;
};

#endif
