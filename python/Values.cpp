// One function for each kind of value in each direction.
#include "Values.h"

#include "VEXMELKSuggestions.h"

#include <limits>
#include <pybind11/stl.h>

namespace py = pybind11;

namespace {

py::str Text(std::string_view text)
{
    return py::reinterpret_steal<py::str>(
        PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "replace"));
}

py::object Give(std::monostate /*nothing*/) { return py::none(); }
py::object Give(const CATUnicodeString* text) { return Text(text->ConvertToChar()); }
py::object Give(const unsigned char* flag) { return py::bool_(*flag != 0); }
py::object Give(const double* number) { return py::float_(*number); }
py::object Give(const std::shared_ptr<VEXMELKIntegerView>& integer) { return py::int_(integer->Get()); }
py::object Give(const CATMathPoint* point) { return py::make_tuple(point->GetX(), point->GetY(), point->GetZ()); }
py::object Give(const std::shared_ptr<VEXMELKRecordView>& record)
{
    py::dict fields;
    for (std::size_t position = 0; position < record->Size(); ++position)
        fields[Text(record->Name(position))] = ToPython(record->At(position));
    return fields;
}
py::object Give(const std::shared_ptr<VEXMELKListView>& list)
{
    py::list elements;
    for (std::size_t position = 0; position < list->Size(); ++position)
        elements.append(ToPython(list->At(position)));
    return elements;
}
py::object Give(const VEXMELKAttributeValues* attributes)
{
    py::list elements;
    for (const VEXMELKCFGAttributeStr& attribute : *attributes)
    {
        py::list texts;
        for (const VEXMELKAttrAccessBase* access :
            {attribute.firstAccess, attribute.secondAccess, attribute.thirdAccess})
            texts.append(access ? py::object(Text(access->GetText().ConvertToChar())) : py::none());
        py::dict element;
        element["kind"] = attribute.kind;
        element["name"] = Text(attribute.name.ConvertToChar());
        element["texts"] = texts;
        elements.append(element);
    }
    return elements;
}

[[noreturn]] void RaiseWrongType(const std::string& where, const char* type, py::handle object)
{
    throw py::type_error(where + ": expected " + type + ", got " + std::string(py::repr(object)));
}

void Take(py::handle /*object*/, std::monostate /*nothing*/, const std::string& /*where*/) {}

void Take(py::handle object, CATUnicodeString* text, const std::string& where)
{
    if (!py::isinstance<py::str>(object))
        RaiseWrongType(where, "a text", object);
    *text = CATUnicodeString(object.cast<std::string>());
}

void Take(py::handle object, unsigned char* flag, const std::string& where)
{
    if (!py::isinstance<py::bool_>(object))
        RaiseWrongType(where, "True or False", object);
    *flag = object.cast<bool>() ? 1 : 0;
}

bool IsNumber(py::handle object)
{
    return !py::isinstance<py::bool_>(object) && !py::isinstance<py::str>(object) && PyNumber_Check(object.ptr()) != 0;
}

void Take(py::handle object, double* number, const std::string& where)
{
    if (!IsNumber(object))
        RaiseWrongType(where, "a number", object);
    *number = py::float_(py::reinterpret_borrow<py::object>(object));
}

void Take(py::handle object, const std::shared_ptr<VEXMELKIntegerView>& integer, const std::string& where)
{
    using Limits = std::numeric_limits<int>;
    const bool isInteger = IsNumber(object) && PyIndex_Check(object.ptr()) != 0;
    const long number = isInteger ? PyLong_AsLong(py::int_(py::reinterpret_borrow<py::object>(object)).ptr()) : 0;
    const bool isTooLarge = PyErr_Occurred() != nullptr;
    PyErr_Clear();
    if (!isInteger || isTooLarge || number < Limits::min() || number > Limits::max())
        RaiseWrongType(where, "an integer of 32 bits", object);
    integer->Set(static_cast<int>(number));
}

void Take(py::handle object, CATMathPoint* point, const std::string& where)
{
    if (!py::isinstance<py::sequence>(object) || py::len(object) != 3)
        RaiseWrongType(where, "a point (x, y, z)", object);
    std::array<double, 3> coordinates{};
    std::size_t index = 0;
    for (const py::handle coordinate : object)
        Take(coordinate, &coordinates[index++], where);
    *point = CATMathPoint(coordinates[0], coordinates[1], coordinates[2]);
}

void Take(py::handle object, const std::shared_ptr<VEXMELKRecordView>& record, const std::string& where)
{
    if (!py::isinstance<py::dict>(object))
        RaiseWrongType(where, "a dict", object);
    std::vector<std::string> names;
    for (std::size_t position = 0; position < record->Size(); ++position)
        names.emplace_back(record->Name(position));
    for (const auto& [key, field] : py::reinterpret_borrow<py::dict>(object))
    {
        const std::string name = py::str(key);
        const auto found = std::find(names.begin(), names.end(), name);
        if (found == names.end())
        {
            const std::vector<std::string> nearest = VEXMELKNearest(name, names);
            throw py::attribute_error(
                where + " has no field " + name + (nearest.empty() ? "" : "; did you mean " + nearest.front() + "?"));
        }
        FromPython(field, record->At(static_cast<std::size_t>(found - names.begin())), where + "." + name);
    }
}

void Take(py::handle object, const std::shared_ptr<VEXMELKListView>& list, const std::string& where)
{
    const std::size_t fixed = list->FixedSize();
    if (!py::isinstance<py::sequence>(object) || py::isinstance<py::str>(object) ||
        (fixed > 0 && py::len(object) > fixed))
        RaiseWrongType(where, fixed > 0 ? ("a list of at most " + std::to_string(fixed)).c_str() : "a list", object);
    if (fixed == 0)
        list->Clear();
    std::size_t index = 0;
    for (const py::handle element : object)
    {
        FromPython(
            element, fixed > 0 ? list->At(index) : list->NewElement(), where + "[" + std::to_string(index) + "]");
        if (fixed == 0)
            list->AppendNewElement();
        ++index;
    }
}

void Take(py::handle object, VEXMELKAttributeValues* attributes, const std::string& where)
{
    if (!py::isinstance<py::sequence>(object) || py::isinstance<py::str>(object))
        RaiseWrongType(where, "a list of names", object);
    for (const py::handle name : object)
    {
        VEXMELKCFGAttributeStr attribute;
        Take(name, &attribute.name, where);
        attribute.firstAccess = attributes->NewAccess();
        attributes->Append(attribute);
    }
}

py::object Type(std::monostate /*nothing*/) { return py::none(); }
py::object Type(const CATUnicodeString* /*text*/) { return py::str("text"); }
py::object Type(const unsigned char* /*flag*/) { return py::str("flag"); }
py::object Type(const double* /*number*/) { return py::str("number"); }
py::object Type(const std::shared_ptr<VEXMELKIntegerView>& /*integer*/) { return py::str("integer"); }
py::object Type(const CATMathPoint* /*point*/) { return py::str("point"); }
py::object Type(const VEXMELKAttributeValues* /*attributes*/) { return py::str("attributes"); }
py::object Type(const std::shared_ptr<VEXMELKRecordView>& record)
{
    py::list fields;
    for (std::size_t position = 0; position < record->Size(); ++position)
        fields.append(
            py::make_tuple(Text(record->Name(position)), TypeOf(record->At(position)), Text(record->Unit(position))));
    py::dict type;
    type["record"] = fields;
    return type;
}
py::object Type(const std::shared_ptr<VEXMELKListView>& list)
{
    py::dict type;
    type["list"] = TypeOf(list->FixedSize() > 0 ? list->At(0) : list->NewElement());
    return type;
}

} // namespace

py::object ToPython(const VEXMELKValue& value)
{
    return std::visit([](const auto& held) { return Give(held); }, value);
}

py::object ToPython(const VEXMELKPlainValue& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return Text(*text);
    if (const auto* flag = std::get_if<bool>(&value))
        return py::bool_(*flag);
    if (const auto* number = std::get_if<double>(&value))
        return py::float_(*number);
    if (const auto* integer = std::get_if<long>(&value))
        return py::int_(*integer);
    return py::none();
}

void FromPython(py::handle object, const VEXMELKValue& value, const std::string& where)
{
    std::visit([&](const auto& held) { Take(object, held, where); }, value);
}

py::object TypeOf(const VEXMELKValue& value)
{
    return std::visit([](const auto& held) { return Type(held); }, value);
}
