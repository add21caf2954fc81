// The module "_melkcfg", which the package "melkcfg" stands on: directories are asked by the names of configurations
// and operations, as the library describes them. Each directory has objects of its own, which keep the documents that
// they loaded until "reload".
#include "CATNumberText.h"
#include "CATQuantity.h"
#include "VEXMELKCheck.h"
#include "VEXMELKDump.h"
#include "VEXMELKGUI.h"
#include "VEXMELKNames.h"
#include "VEXMELKOperations.h"
#include "VEXMELKOrigins.h"
#include "VEXMELKSuggestions.h"
#include "VEXMELKUnits.h"
#include "Values.h"

#include <algorithm>
#include <map>
#include <pybind11/stl.h>

namespace py = pybind11;

namespace {

using Configuration = VEXMELKConfigManager::Configuration;

// A file that is missing, or cannot be read or parsed.
class FileError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

std::string DidYouMean(const std::string& name, const std::vector<std::string>& known)
{
    std::string message;
    for (const std::string& nearest : VEXMELKNearest(name, known))
        message += (message.empty() ? "; did you mean " : " or ") + nearest;
    return message.empty() ? message : message + "?";
}

const Configuration& Find(const std::string& name)
{
    std::vector<std::string> names;
    for (const Configuration& configuration : VEXMELKConfigManager::GetConfigurations())
    {
        if (!configuration.create)
            continue;
        if (configuration.description->name == name)
            return configuration;
        names.emplace_back(configuration.description->name);
    }
    throw py::attribute_error("unknown configuration " + name + DidYouMean(name, names));
}

const VEXMELKOperation& FindOperation(const Configuration& configuration, const std::string& name)
{
    std::vector<std::string> names;
    for (const VEXMELKOperation* operation : VEXMELKOperationsOf(*configuration.description))
    {
        if (operation->Name() == name)
            return *operation;
        names.emplace_back(operation->Name());
    }
    throw py::attribute_error(
        std::string(configuration.description->name) + " has no operation " + name + DidYouMean(name, names));
}

// Gathers the boxes that are shown while it lives.
class Boxes : private VEXMELKMessagePresenter
{
public:
    Boxes() : m_Before(VEXMELKGUI::InstallPresenter(this)) {}
    Boxes(const Boxes&) = delete;
    Boxes& operator=(const Boxes&) = delete;
    ~Boxes() override { VEXMELKGUI::InstallPresenter(m_Before); }

    // Raises FileError when one of them was an error; the others become warnings.
    void Raise() const
    {
        if (!m_Errors.empty())
            throw FileError(m_Errors);
        for (const std::string& warning : m_Warnings)
            if (PyErr_WarnEx(PyExc_UserWarning, warning.c_str(), 1) != 0)
                throw py::error_already_set();
    }

private:
    void Show(Kind kind, const CATUnicodeString& title, const CATUnicodeString& text) override
    {
        const std::string message = std::string(title.ConvertToChar()) + ": " + text.ConvertToChar();
        if (kind == Warning)
            m_Warnings.push_back(message);
        else
            m_Errors += (m_Errors.empty() ? "" : "\n") + message;
    }

    VEXMELKMessagePresenter* const m_Before;
    std::string m_Errors;
    std::vector<std::string> m_Warnings;
};

// A question by its arguments and by what its outputs hold before.
class AskedByPython : public VEXMELKAskable
{
public:
    AskedByPython(const VEXMELKOperation& operation, py::dict arguments)
        : m_Operation(operation), m_Arguments(std::move(arguments))
    {
        std::vector<std::string> names;
        for (const VEXMELKParameter& parameter : operation.Parameters())
            names.emplace_back(parameter.name);
        for (const auto& argument : m_Arguments)
            if (const std::string name = py::str(argument.first);
                std::find(names.begin(), names.end(), name) == names.end())
                throw py::type_error(
                    std::string(operation.Name()) + " has no argument " + name + DidYouMean(name, names));
    }
    const VEXMELKOperation& Operation() const override { return m_Operation; }
    std::unique_ptr<VEXMELKQuestion> New() const override
    {
        std::unique_ptr<VEXMELKQuestion> question = m_Operation.NewQuestion();
        for (std::size_t position = 0; position < m_Operation.Parameters().size(); ++position)
        {
            const VEXMELKParameter& parameter = m_Operation.Parameters()[position];
            const std::string name(parameter.name);
            if (!m_Arguments.contains(name.c_str()))
                continue;
            const VEXMELKValue value = question->Parameter(position);
            FromPython(InUnit(parameter, value, m_Arguments[name.c_str()]), value, name);
        }
        return question;
    }

private:
    // A text such as "133mm" as the number that the argument takes.
    static py::object InUnit(const VEXMELKParameter& parameter, const VEXMELKValue& value, py::object given)
    {
        if (!py::isinstance<py::str>(given) || std::holds_alternative<CATUnicodeString*>(value) ||
            !VEXMELKHasDimension(parameter.unit))
            return given;
        const VEXMELKConverted converted = VEXMELKInUnit(given.cast<std::string>(), parameter.unit);
        if (!converted.number)
            throw py::value_error(std::string(parameter.name) + ": " + converted.fault);
        const py::float_ number(*converted.number);
        const bool isWhole = number.attr("is_integer")().cast<bool>();
        return isWhole && !std::holds_alternative<double*>(value) ? py::object(py::int_(number)) : py::object(number);
    }

    const VEXMELKOperation& m_Operation;
    const py::dict m_Arguments;
};

py::dict ToPython(const VEXMELKOriginPlace& place)
{
    static constexpr const char* roles[] = {"value", "choice", "hidden"};
    py::dict made;
    made["role"] = roles[place.role];
    made["how"] = place.how;
    made["why"] = place.why;
    made["file"] = place.file;
    made["line"] = place.position.line;
    made["column"] = place.position.column;
    made["path"] = place.path;
    made["attribute"] = place.attribute;
    made["text"] = place.isSecret ? "********" : place.text;
    return made;
}

py::dict ToPython(const VEXMELKFinding& finding)
{
    py::dict made;
    made["rule"] = finding.rule->id;
    made["level"] = VEXMELKNameOf(finding.level);
    made["file"] = finding.file;
    made["line"] = finding.begin.line;
    made["column"] = finding.begin.column;
    made["end_line"] = finding.end.line;
    made["end_column"] = finding.end.column;
    made["message"] = finding.message;
    made["suggestion"] = finding.suggestion;
    made["effect"] = finding.effect;
    return made;
}

py::object TextOrNone(const std::optional<std::string>& text) { return text ? py::object(py::str(*text)) : py::none(); }

py::dict RowOf(const VEXMELKDumpRow& dumped)
{
    const VEXMELKPlacedValue& value = dumped.value;
    const std::optional<VEXMELKAmount> amount = VEXMELKAmountIn(value);
    py::dict row;
    row["config"] = dumped.configuration.description->name;
    row["operation"] = dumped.question.Operation().Name();
    row["arguments"] = dumped.question.ArgumentText();
    row["standard"] = TextOrNone(VEXMELKArgumentOf(dumped.question, VEXMELKRole::Standard));
    row["category"] = TextOrNone(VEXMELKArgumentOf(dumped.question, VEXMELKRole::Category));
    row["field"] = value.named.field;
    row["value"] = value.named.isSecret ? py::object(py::str("********")) : ::ToPython(value.named.value);
    row["si"] = amount ? py::object(py::float_(amount->number)) : py::none();
    row["unit"] = amount ? std::string(amount->unit) : std::string();
    row["level"] = VEXMELKNameOf(value.level);
    row["file"] = value.HasPlace() ? py::object(py::str(value.file)) : py::none();
    row["line"] = value.HasPlace() ? py::object(py::int_(value.position.line)) : py::none();
    row["column"] = value.HasPlace() ? py::object(py::int_(value.position.column)) : py::none();
    return row;
}

class Directory
{
public:
    explicit Directory(std::string path) : m_Path(std::move(path)) {}

    // The result, the outputs, and the units of the values in them by their fields.
    py::tuple Ask(const std::string& name, const std::string& operationName, const py::dict& arguments)
    {
        const Configuration& configuration = Find(name);
        const VEXMELKOperation& operation = FindOperation(configuration, operationName);
        const std::unique_ptr<VEXMELKQuestion> question = AskedByPython(operation, arguments).New();
        const Boxes boxes;
        question->Ask(ObjectOf(configuration));
        boxes.Raise();
        py::dict outputs;
        for (std::size_t position = 0; position < operation.Parameters().size(); ++position)
        {
            const VEXMELKParameter& parameter = operation.Parameters()[position];
            if (parameter.IsOutput())
                outputs[py::str(std::string(parameter.name))] =
                    parameter.isSecret ? py::object(py::str("********")) : ::ToPython(question->Parameter(position));
        }
        py::dict units;
        for (const VEXMELKNamedValue& value : VEXMELKFlatAnswer::Of(*question, operation).outputs)
            if (!value.unit.empty())
                units[py::str(value.field)] = value.unit;
        if (!operation.ResultUnit().empty())
            units["result"] = operation.ResultUnit();
        return py::make_tuple(::ToPython(question->Result()), outputs, units);
    }

    std::string Reason(const std::string& name, const std::string& operationName, const py::dict& arguments) const
    {
        const Configuration& configuration = Find(name);
        const AskedByPython askable(FindOperation(configuration, operationName), arguments);
        const VEXMELKSilence silence;
        const VEXMELKTrial trial(configuration, Path());
        return VEXMELKReason(trial, askable, trial.Ask(askable));
    }

    // The places of each field.
    py::dict Explain(const std::string& name, const std::string& operationName, const py::dict& arguments) const
    {
        const Configuration& configuration = Find(name);
        const AskedByPython askable(FindOperation(configuration, operationName), arguments);
        const VEXMELKSilence silence;
        py::dict fields;
        for (const VEXMELKOrigin& origin : VEXMELKExplain(configuration, askable, Path()).fields)
        {
            py::list places;
            for (const VEXMELKOriginPlace& place : origin.places)
                places.append(ToPython(place));
            fields[py::str(origin.value.field)] = places;
        }
        return fields;
    }

    std::vector<std::string> Standards(const std::string& name) const
    {
        const VEXMELKSilence silence;
        return VEXMELKNamesOfStandards(VEXMELKTrial(Find(name), Path()).Documents());
    }
    std::vector<std::string> Categories(const std::string& name, const std::string& standard) const
    {
        const VEXMELKSilence silence;
        return VEXMELKNamesOfCategories(VEXMELKTrial(Find(name), Path()).Documents(), standard);
    }

    py::list Check(const std::vector<std::string>& names) const
    {
        VEXMELKCheckScope scope;
        for (const std::string& name : names)
            scope.configurations.push_back(Find(name).description);
        py::list findings;
        for (const VEXMELKFinding& finding : VEXMELKCheck(Path(), scope).findings)
            findings.append(ToPython(finding));
        return findings;
    }

    // The values of all answers to all questions that the files make meaningful, with the place of each.
    py::list Rows(const std::vector<std::string>& names) const
    {
        py::list rows;
        VEXMELKDumpScope scope;
        for (const std::string& name : names)
            scope.configurations.push_back(&Find(name));
        scope.onRow = [&](const VEXMELKDumpRow& row) { rows.append(RowOf(row)); };
        const Boxes boxes;
        VEXMELKDump(Path(), scope);
        boxes.Raise();
        return rows;
    }

    void Reload() { m_Objects.clear(); }

    const std::string& GetPath() const { return m_Path; }

private:
    CATUnicodeString Path() const { return CATUnicodeString(m_Path); }

    VEXMELKConfig& ObjectOf(const Configuration& configuration)
    {
        auto& object = m_Objects[&configuration];
        if (object == NULL_var)
            object = CATHandle<VEXMELKConfig>::Adopt(configuration.create(Path()));
        return *object.operator->();
    }

    const std::string m_Path;
    std::map<const Configuration*, CATHandle<VEXMELKConfig>> m_Objects;
};

py::dict DescriptionOf(const VEXMELKOperation& operation)
{
    const std::unique_ptr<VEXMELKQuestion> question = operation.NewQuestion();
    py::list arguments;
    py::list outputs;
    for (std::size_t position = 0; position < operation.Parameters().size(); ++position)
    {
        const VEXMELKParameter& parameter = operation.Parameters()[position];
        (parameter.IsOutput() ? outputs : arguments)
            .append(py::make_tuple(parameter.name, TypeOf(question->Parameter(position)), parameter.unit));
    }
    py::dict made;
    made["name"] = operation.Name();
    made["arguments"] = arguments;
    made["outputs"] = outputs;
    made["result"] = TypeOf(question->Result());
    made["result_unit"] = operation.ResultUnit();
    return made;
}

// What can be asked, configuration by configuration.
py::list Configurations()
{
    py::list all;
    for (const Configuration& configuration : VEXMELKConfigManager::GetConfigurations())
    {
        if (!configuration.create)
            continue;
        py::list operations;
        for (const VEXMELKOperation* operation : VEXMELKOperationsOf(*configuration.description))
            operations.append(DescriptionOf(*operation));
        const VEXMELKOperation* main = VEXMELKMainOperationOf(*configuration.description);
        std::string file(configuration.description->file);
        std::replace(file.begin(), file.end(), '\\', '/');
        py::dict made;
        made["name"] = configuration.description->name;
        made["file"] = file;
        made["meaning"] = configuration.description->meaning;
        made["operations"] = operations;
        made["main"] = main ? py::object(py::str(std::string(main->Name()))) : py::none();
        made["main_has_category"] = main && VEXMELKParameterWith(*main, VEXMELKRole::Category) != nullptr;
        all.append(made);
    }
    return all;
}

// A text as number, unit, and both in SI; None for a text that is no number. A number without a unit has none in SI.
py::object Measure(const std::string& text)
{
    std::string pointed(CATStripped(text));
    std::replace(pointed.begin(), pointed.end(), ',', '.');
    std::string_view rest = pointed;
    double number = 0.0;
    double held = 0.0;
    if (!CATTakeNumber(rest, number))
        return py::none();
    const std::string_view unit = CATStripped(rest);
    if (unit.empty())
        return py::make_tuple(number, "", number, "");
    if (unit == "%")
        return py::make_tuple(number, "%", number / 100.0, "1");
    if (CATLengthFromText(text, held))
        return py::make_tuple(number, unit, held, "m");
    if (CATAngleFromText(text, held))
        return py::make_tuple(number, unit, held, "rad");
    return py::none();
}

} // namespace

PYBIND11_MODULE(_melkcfg, module)
{
    module.doc() = "Asks configuration directories; the package melkcfg is what people use.";
    py::register_exception<FileError>(module, "FileError", PyExc_RuntimeError);
    module.def("configurations", Configurations, "What can be asked, configuration by configuration.");
    module.def("measure", Measure, py::arg("text"), "A text as (number, unit, number in SI, unit of SI), or None.");
    module.def("nearest", VEXMELKNearest, py::arg("name"), py::arg("known"), "The known names nearest to a name.");
    py::class_<Directory>(module, "Directory", "A configuration directory.")
        .def(py::init<std::string>(), py::arg("path"))
        .def_property_readonly("path", &Directory::GetPath)
        .def("ask", &Directory::Ask, py::arg("configuration"), py::arg("operation"), py::arg("arguments"),
            "The result, the outputs, and the units of the values in them by field.")
        .def("reason", &Directory::Reason, py::arg("configuration"), py::arg("operation"), py::arg("arguments"),
            "Why a question is answered with false, or by another category; empty when there is nothing to say.")
        .def("explain", &Directory::Explain, py::arg("configuration"), py::arg("operation"), py::arg("arguments"),
            "The places that decide each field.")
        .def("standards", &Directory::Standards, py::arg("configuration"), "The names of the standards.")
        .def("categories", &Directory::Categories, py::arg("configuration"), py::arg("standard"),
            "The names of a standard's categories.")
        .def("check", &Directory::Check, py::arg("configurations"), "What is wrong with the files.")
        .def("rows", &Directory::Rows, py::arg("configurations"),
            "The values of all answers to all questions that the files make meaningful.")
        .def("reload", &Directory::Reload, "Has the files read anew by the next question.");
}
