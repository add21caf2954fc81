// The rows of a reader's table. A row names an attribute, its unit, the field that it fills, how its text becomes the
// field's value, and what the field gets when the attribute is missing:
//
//     {"front_offset", "mm", definition.FrontOffset                    },  text; "" when missing
//     {"Rotation",     "deg", barrier.Rotation,     "0deg"             },  text with its own default
//     {"WheelRadius",  "",    wheelRadius,          AsFlag,         true},  converted; the default is the field's
//     {"x_radius",     "mm",  xRadius,              InMillimetres,  Keep},  keeps the caller's value when missing
//
// ReadFields is the one loop that walks the rows.
#ifndef VEXMELKField_H
#define VEXMELKField_H

#include "VEXMELKConfig.h"
#include "VEXMELKValues.h"

// A missing attribute leaves the field as the caller had it.
struct VEXMELKKeep
{
};
inline constexpr VEXMELKKeep Keep{};

// How a text becomes a value of another type: any function from a text.
template <auto FromText> struct VEXMELKConversion
{
};
template <auto FromText> inline constexpr VEXMELKConversion<FromText> As{};

inline constexpr auto AsFlag = As<VEXMELKConfig::BooleanFromString>;
inline constexpr auto AsNumber = As<NumberFromText>;
inline constexpr auto InMetres = As<MetresFromText>;
inline constexpr auto InMillimetres = As<MillimetresFromText>;
inline constexpr auto InRadians = As<RadiansFromText>;
inline constexpr auto ByLengthParameter = As<[](const CATUnicodeString& text) { return ParameterMillimetres(text); }>;
inline constexpr auto ByAngleParameter = As<[](const CATUnicodeString& text) { return ParameterRadians(text); }>;

class VEXMELKField
{
public:
    VEXMELKField(
        std::string_view attribute, std::string_view unit, CATUnicodeString& text, std::string_view whenMissing = "")
        : m_Attribute(attribute), m_Unit(unit), m_Field(&text), m_TextWhenMissing(whenMissing)
    {
    }
    VEXMELKField(std::string_view attribute, std::string_view unit, CATUnicodeString& text, VEXMELKKeep /*keep*/)
        : m_Attribute(attribute), m_Unit(unit), m_Field(&text), m_Keeps(true)
    {
    }
    template <auto FromText, class Value>
    VEXMELKField(std::string_view attribute, std::string_view unit, Value& field,
        VEXMELKConversion<FromText> /*conversion*/, double whenMissing)
        : m_Attribute(attribute),
          m_Unit(unit),
          m_Field(&field),
          m_Assign(AssignConverted<FromText, Value>),
          m_ValueWhenMissing(whenMissing)
    {
    }
    template <auto FromText, class Value>
    VEXMELKField(std::string_view attribute, std::string_view unit, Value& field,
        VEXMELKConversion<FromText> conversion, VEXMELKKeep /*keep*/)
        : VEXMELKField(attribute, unit, field, conversion, 0.0)
    {
        m_Keeps = true;
    }

    std::string_view Attribute() const { return m_Attribute; }
    std::string_view Unit() const { return m_Unit; }
    // The field itself when it is a text; else null.
    CATUnicodeString* Text() const { return m_Assign ? nullptr : static_cast<CATUnicodeString*>(m_Field); }
    void Convert(const CATUnicodeString& text) const { m_Assign(m_Field, &text, 0.0); }
    void SetMissing() const
    {
        if (m_Keeps)
            return;
        if (m_Assign)
            m_Assign(m_Field, nullptr, m_ValueWhenMissing);
        else
            *Text() = m_TextWhenMissing;
    }

private:
    template <auto FromText, class Value>
    static void AssignConverted(void* field, const CATUnicodeString* text, double whenMissing)
    {
        *static_cast<Value*>(field) = text ? static_cast<Value>(FromText(*text)) : static_cast<Value>(whenMissing);
    }

    std::string_view m_Attribute;
    std::string_view m_Unit;
    void* m_Field = nullptr;
    void (*m_Assign)(void* field, const CATUnicodeString* text, double whenMissing) = nullptr; // null: a text
    std::string_view m_TextWhenMissing;
    double m_ValueWhenMissing = 0.0;
    bool m_Keeps = false;
};

// Reads the table: each attribute of "map" before "defaultMap" (either may be null) goes into its field; a missing one
// gives what its row states. True when every attribute was found.
bool ReadFields(const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap,
    std::initializer_list<VEXMELKField> fields);
// The same for the attributes of an element.
bool ReadFields(const CATIDOMElement_var& element, const CATIDOMNamedNodeMap_var& defaultMap,
    std::initializer_list<VEXMELKField> fields);

// The text without blanks at its ends, with "," for "." when the application writes commas, with the unit when it ends
// in a digit, and without "%" when the unit is "%".
CATUnicodeString NormalizedValue(std::string_view unit, std::string_view text);

// The descendant with the tag whose attribute is nearest to the angle (radians), and the one whose attribute is the
// largest length not above the length (millimetres); null when none is near enough.
CATIDOMElement_var NearestAngle(
    const CATIDOMElement_var& parent, std::string_view tag, std::string_view attribute, double angle);
CATIDOMElement_var NearestLengthBelow(
    const CATIDOMElement_var& parent, std::string_view tag, std::string_view attribute, double length);

#endif
