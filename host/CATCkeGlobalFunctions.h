// Volatile parameters: values that exist as long as their handle and turn texts with units into base units.
#ifndef CATCkeGlobalFunctions_H
#define CATCkeGlobalFunctions_H

#include "CATUnicodeString.h"
#include "VEXMELKConfigurationExport.h"

// A parameter of length (metres), angle (radians) or real type.
class CATICkeParm
{
public:
    using Reader = bool (*)(std::string_view text, double& value);
    CATICkeParm(const char* name, Reader reader, double value) : m_Name(name), m_Reader(reader), m_Value(value) {}

    const char* Name() const { return m_Name; }

    // Assigns the text. A text that is no quantity of the parameter's type leaves it without a value.
    void Valuate(const CATUnicodeString& text)
    {
        m_Value = 0.0;
        m_HasValue = m_Reader(text, m_Value);
    }
    bool HasValue() const { return m_HasValue; }
    // The value in the base unit; 0 without one.
    double AsReal() const { return m_Value; }

private:
    const char* m_Name;
    Reader m_Reader;
    double m_Value;
    bool m_HasValue = true;
};

// Handle of a volatile parameter; the parameter lives in it.
class CATICkeParm_var
{
public:
    explicit CATICkeParm_var(const CATICkeParm& parameter) : m_Parameter(parameter) {}
    CATICkeParm* operator->() { return &m_Parameter; }

private:
    CATICkeParm m_Parameter;
};

// Creates volatile parameters. The value is given in the base unit.
class ExportedByVEXMELKConfiguration CATICkeParmFactory
{
public:
    CATICkeParm_var CreateLength(const char* name, double metres) const;
    CATICkeParm_var CreateAngle(const char* name, double radians) const;
    CATICkeParm_var CreateReal(const char* name, double value) const;
};

class ExportedByVEXMELKConfiguration CATCkeGlobalFunctions
{
public:
    static const CATICkeParmFactory* GetVolatileFactory();
};

#endif
