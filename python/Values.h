// Values of the library as Python's own: a record is a dict with the names of its fields, a list a list, a point a
// tuple.
#ifndef MELKCFG_PYTHON_Values_H
#define MELKCFG_PYTHON_Values_H

#include "VEXMELKAnswerValues.h"

#include <pybind11/pybind11.h>

pybind11::object ToPython(const VEXMELKValue& value);
pybind11::object ToPython(const VEXMELKPlainValue& value);

// Fills the value in; a record or list member by member. Raises TypeError for what is of another type, "where" being
// its name, and AttributeError for a field that a record does not have.
void FromPython(pybind11::handle object, const VEXMELKValue& value, const std::string& where);

// The type as data: "text", "flag", "number", "integer", "point" or "attributes"; {"record": [(name, type, unit),
// ...]};
// {"list": type}; None for nothing.
pybind11::object TypeOf(const VEXMELKValue& value);

#endif
