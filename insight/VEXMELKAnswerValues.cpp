// Flattens values. An empty list or record keeps its own name, so that it differs from one that is not there.
#include "VEXMELKAnswerValues.h"

#include <charconv>

namespace {

using Values = std::vector<VEXMELKNamedValue>;

class Flattener
{
public:
    Flattener(std::string field, std::string_view unit, Values& values)
        : m_Field(std::move(field)), m_Unit(unit), m_Values(values)
    {
    }

    void operator()(std::monostate /*nothing*/) { Add({}); }
    void operator()(CATUnicodeString* text) { Add(std::string(text->ConvertToChar()), text); }
    void operator()(unsigned char* flag) { Add(*flag != 0, flag); }
    void operator()(double* number) { Add(*number, number); }
    void operator()(const std::shared_ptr<VEXMELKIntegerView>& integer) { Add(integer->Get(), integer); }
    void operator()(CATMathPoint* point)
    {
        const double coordinates[] = {point->GetX(), point->GetY(), point->GetZ()};
        for (int axis = 0; axis < 3; ++axis)
            m_Values.push_back({At(static_cast<std::size_t>(axis)), coordinates[axis], m_Unit, {}});
    }
    void operator()(const std::shared_ptr<VEXMELKRecordView>& record)
    {
        if (record->Size() == 0)
            Add({});
        for (std::size_t position = 0; position < record->Size(); ++position)
            VEXMELKFlatten(m_Field + "." + std::string(record->Name(position)), record->At(position),
                record->Unit(position), m_Values);
    }
    void operator()(const std::shared_ptr<VEXMELKListView>& list)
    {
        if (list->Size() == 0)
            Add({});
        for (std::size_t position = 0; position < list->Size(); ++position)
            VEXMELKFlatten(At(position), list->At(position), m_Unit, m_Values);
    }
    void operator()(const VEXMELKAttributeValues* attributes)
    {
        if (attributes->Size() == 0)
            Add({});
        for (int position = 1; position <= attributes->Size(); ++position)
            AddAttribute(At(static_cast<std::size_t>(position) - 1), (*attributes)[position]);
    }

private:
    std::string At(std::size_t position) const { return m_Field + "[" + std::to_string(position) + "]"; }
    void Add(VEXMELKPlainValue value, VEXMELKValue variable = {})
    {
        m_Values.push_back({m_Field, std::move(value), m_Unit, std::move(variable)});
    }
    void AddAttribute(const std::string& field, const VEXMELKCFGAttributeStr& attribute)
    {
        m_Values.push_back({field + ".kind", static_cast<long>(attribute.kind), {}, {}});
        m_Values.push_back({field + ".name", std::string(attribute.name.ConvertToChar()), {}, {}});
        std::size_t number = 0;
        for (const VEXMELKAttrAccessBase* access :
            {attribute.firstAccess, attribute.secondAccess, attribute.thirdAccess})
        {
            const std::string object = field + ".objects[" + std::to_string(number++) + "]";
            if (access)
                AddAccess(object, *access);
        }
    }
    void AddAccess(const std::string& object, const VEXMELKAttrAccessBase& access)
    {
        m_Values.push_back({object + ".value", std::string(access.GetText().ConvertToChar()), {}, {}});
        m_Values.push_back({object + ".read_only", access.IsReadOnly(), {}, {}});
        for (int position = 1; position <= access.GetRangeCount(); ++position)
        {
            const VEXMELKColorRange range = access.GetRange(position);
            const std::string at = object + ".ranges[" + std::to_string(position - 1) + "]";
            m_Values.push_back({at + ".min", range.Minimum, {}, {}});
            m_Values.push_back({at + ".max", range.Maximum, {}, {}});
            m_Values.push_back({at + ".min_color", static_cast<long>(range.MinimumColor), {}, {}});
            m_Values.push_back({at + ".max_color", static_cast<long>(range.MaximumColor), {}, {}});
            m_Values.push_back({at + ".critical", static_cast<bool>(range.Critical), {}, {}});
        }
    }

    std::string m_Field;
    std::string m_Unit;
    Values& m_Values;
};

} // namespace

const void* VEXMELKAddressOf(const VEXMELKValue& variable)
{
    if (const auto* text = std::get_if<CATUnicodeString*>(&variable))
        return *text;
    if (const auto* flag = std::get_if<unsigned char*>(&variable))
        return *flag;
    if (const auto* number = std::get_if<double*>(&variable))
        return *number;
    if (const auto* integer = std::get_if<std::shared_ptr<VEXMELKIntegerView>>(&variable))
        return (*integer)->Address();
    return nullptr;
}

std::string VEXMELKTextOf(const VEXMELKPlainValue& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? "true" : "false";
    char digits[40];
    if (const auto* number = std::get_if<double>(&value))
        return {digits, std::to_chars(std::begin(digits), std::end(digits), *number).ptr};
    if (const auto* integer = std::get_if<long>(&value))
        return std::to_string(*integer);
    return "nothing";
}

void VEXMELKFlatten(const std::string& field, const VEXMELKValue& value, std::string_view unit, Values& values)
{
    std::visit(Flattener(field, unit, values), value);
}

VEXMELKFlatAnswer VEXMELKFlatAnswer::Of(VEXMELKQuestion& question, const VEXMELKOperation& operation)
{
    VEXMELKFlatAnswer answer;
    Values results;
    VEXMELKFlatten("result", question.Result(), operation.ResultUnit(), results);
    answer.result = results.front().value;
    for (std::size_t position = 0; position < operation.Parameters().size(); ++position)
    {
        const VEXMELKParameter& parameter = operation.Parameters()[position];
        if (!parameter.IsOutput())
            continue;
        const std::size_t before = answer.outputs.size();
        VEXMELKFlatten(std::string(parameter.name), question.Parameter(position), parameter.unit, answer.outputs);
        for (std::size_t added = before; added < answer.outputs.size(); ++added)
            answer.outputs[added].isSecret = parameter.isSecret;
    }
    return answer;
}

Values VEXMELKFlatAnswer::Fields() const
{
    Values fields = outputs;
    const bool isSuccess = std::holds_alternative<bool>(result) && !outputs.empty();
    if (!isSuccess && !std::holds_alternative<std::monostate>(result))
        fields.insert(fields.begin(), VEXMELKNamedValue{"result", result, {}, {}});
    return fields;
}
