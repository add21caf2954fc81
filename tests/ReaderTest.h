// What the tests of the readers share: operations asked by name with their answers as one line of text, and records
// described by a table of their attributes.
#ifndef TESTS_ReaderTest_H
#define TESTS_ReaderTest_H

#include "LibraryTest.h"
#include "Registry.h"
#include "VEXMELKConfig.h"

#include <map>
#include <numbers>
#include <sstream>

// A record and the attributes that fill it. A field is written ATTRIBUTE:KIND=WHEN_MISSING>FIELD, where all but the
// attribute may be left out. Kinds:
//     none, mm, deg                 a text, with that unit; "" when missing
//     written                       a text that nothing is done to
//     flag, number, integer         false or 0 when missing
//     millimetres, metres, radians  a number from a length or an angle
//     percent, usage                a hundredth of the number; the role that a text stands for
//     unread                        another record's attribute: as if it were missing
// "keep" when missing: the caller's value stays.
struct Reader
{
    std::string file;
    std::string configuration;
    std::string record; // where the outputs hold it, as a JSON pointer
    std::string fields;
    std::string operation = "GetStandardData";
    std::string inputs = "S, x";
    int result = 1;
    int resultWithoutData = 0;
};

class ReaderTest : public LibraryTest
{
protected:
    using Texts = std::map<std::string, std::string>; // by attribute
    static constexpr double before = -777.0;          // what a number of the caller is

    // Writes the base document, or the customer's over it, and forgets what was loaded.
    void WriteDefault(const std::string& file, const std::string& document) { Rewrite("Default/" + file, document); }
    void WriteCustomer(const std::string& file, const std::string& document) { Rewrite("Customer/" + file, document); }

    // Questions in their order, "OPERATION | INPUTS = ANSWER | INPUTS = ANSWER": inputs are separated by ", "; an
    // answer is the result, then the outputs in their order: "~" stands for what the caller had there, '' for an empty
    // text,
    // {...} for a record and [...] for a list.
    void Expect(const std::string& configuration, std::string_view questions)
    {
        for (const std::vector<std::string>& row : Cells(questions))
            for (std::size_t cell = 1; cell < row.size(); ++cell)
            {
                const std::size_t sign = row[cell].find("= ");
                const std::string inputs = row[cell].substr(0, row[cell].find_last_not_of(" =", sign) + 1);
                EXPECT_EQ(Ask(configuration, row[0], inputs), row[cell].substr(sign + 2))
                    << configuration << "." << row[0] << "(" << inputs << ")";
            }
    }

    // The same object of a configuration for every question, unless a test has its own.
    virtual VEXMELKConfig& Object(const std::string& configuration)
    {
        return *FindConfiguration(configuration).get(Manager());
    }

    std::string Ask(const std::string& configuration, const std::string& operation, const std::string& inputs)
    {
        Json outputs = Json::object();
        bool hasRecord = false;
        for (const auto& [name, type, unit, isOutput, isSecret] :
            FindConfiguration(configuration).FindOperation(operation).Parameters())
            if (isOutput)
            {
                const bool isList = type.starts_with("list");
                const Json value = BeforeOf(isList ? type.substr(sizeof("list of")) : type);
                outputs[name] = isList ? Json::array({value}) : value;
                hasRecord = hasRecord || type.starts_with('{');
            }
        // A first answer shows what the records hold.
        if (hasRecord)
            outputs = Overwritten(Run(configuration, operation, inputs, outputs).outputs);
        const Answered answered = Run(configuration, operation, inputs, outputs);
        std::string text = answered.result.is_null() ? "" : Described(answered.result);
        for (const auto& output : answered.outputs.items())
            text += (text.empty() ? "" : " ") + Described(output.value());
        return text;
    }

    // The record for a document in which "@" stands for its attributes: all of them, with each flag and role in turn
    // set apart from the others; in both comma settings.
    void ExpectAll(const Reader& reader, const std::string& document)
    {
        const std::vector<Field> fields = FieldsIn(reader);
        for (std::size_t apart = 0; apart <= fields.size(); ++apart)
            if (apart == fields.size() || fields[apart].IsSwitch())
            {
                const Texts texts = AllTexts(fields, 11, apart < fields.size() ? fields[apart].attribute : "");
                ExpectRecord(reader, Replaced(document, "@", Written(texts)), texts, reader.result);
            }
    }

    // The record without any of its attributes.
    void ExpectNone(const Reader& reader, const std::string& document, int result = 1)
    {
        ExpectRecord(reader, Replaced(document, "@", ""), {}, result);
    }

    // The record as the caller had it.
    void ExpectUntouched(Reader reader, const std::string& document, int result)
    {
        const std::vector<Field> fields = FieldsIn(reader);
        reader.fields = "";
        for (const Field& field : fields)
            reader.fields += field.attribute + ":" + field.kind + "=keep>" + field.name + " ";
        ExpectRecord(reader, document, {}, result);
    }

    // A record of a category's own attributes, each of which "default" can supply.
    void ExpectCategory(const Reader& reader)
    {
        const std::string other = OtherAttributes(reader);
        ExpectAll(reader, Document(Standard("S", "<category name='default' " + other + "/><category name='x' @/>")));
        ExpectAll(reader, Document(Standard("S", "<category name='x'/><category name='default' @/>")));
        ExpectAll(reader, Document(Standard("S", "<category name='X' " + other + "/><category name='default' @/>")));
        ExpectNone(reader, Document(Standard("S", "<category name='default'/><category name='x'/>")));
        ExpectMissing(reader);
    }

    // A record of an element of the category, or of "default" in place of a missing category; never of both.
    void ExpectElement(const Reader& reader, const std::string& element, int resultOfNone = 1)
    {
        const std::string other = Category("default", Replaced(element, "@", OtherAttributes(reader)));
        ExpectAll(reader, Document(Standard("S", other + Category("x", element))));
        ExpectAll(reader, Document(Standard("S", Category("X", other) + Category("default", element))));
        ExpectNone(reader, Document(Standard("S", Category("x", element) + other)), resultOfNone);
    }

    // The same, but "default" also serves a category that lacks the element.
    void ExpectElementOfEither(const Reader& reader, const std::string& element, int resultOfNone = 1)
    {
        ExpectElement(reader, element, resultOfNone);
        ExpectAll(reader, Document(Standard("S", Category("x", "") + Category("default", element))));
    }

    // Neither the category nor "default", and no such standard.
    void ExpectMissing(const Reader& reader)
    {
        const std::string attributes = OtherAttributes(reader);
        for (const auto& [standard, category] : {std::pair("S", "X"), std::pair("s", "x")})
            ExpectUntouched(reader,
                Document(Standard(standard, "<category name='" + std::string(category) + "' " + attributes + "/>")),
                reader.resultWithoutData);
    }

    static std::string Category(const std::string& name, const std::string& contents)
    {
        return "<category name='" + name + "'>" + contents + "</category>";
    }

private:
    struct Units : VEXMELKConfig
    {
        using VEXMELKConfig::AddUnits;
        using VEXMELKConfig::VEXMELKConfig;
    };
    struct Field
    {
        std::string attribute;
        std::string kind;
        std::string whenMissing;
        std::string name;

        bool IsSwitch() const { return kind == "flag" || kind == "usage"; }
        bool IsText() const
        {
            return kind.empty() || kind == "mm" || kind == "deg" || kind == "unread" || kind == "written";
        }
        Json Before() const
        {
            if (kind == "flag")
                return whenMissing != "true";
            if (kind == "integer" || kind == "usage")
                return static_cast<int>(before);
            return IsText() ? Json("before") : Json(before);
        }
        // What a text gives; null: the attribute is missing.
        Json Value(const std::string* text) const
        {
            if ((!text || kind == "unread") && whenMissing == "keep")
                return Before();
            if (kind == "flag")
                return text ? VEXMELKConfig::BooleanFromString(text->c_str()) != 0 : whenMissing == "true";
            if (IsText())
                return text && kind != "unread" ? WithUnit(*text) : whenMissing;
            if (!text)
                return whenMissing.empty() ? 0.0 : std::stod(whenMissing);
            if (kind == "usage")
                return *text == "output" ? 4 : 2;
            static const std::map<std::string, double> factors = {
                {"metres", 0.001}, {"radians", std::numbers::pi / 180.0}, {"percent", 0.01}};
            const auto factor = factors.find(kind);
            const double number = std::stod(*text);
            return kind == "integer" ? std::trunc(number) : number * (factor == factors.end() ? 1.0 : factor->second);
        }
        std::string WithUnit(const std::string& text) const
        {
            CATUnicodeString value(text);
            if (kind != "written")
                Units("", "").AddUnits(kind.c_str(), value);
            return value.ConvertToChar();
        }
    };

    static std::vector<Field> FieldsIn(const Reader& reader)
    {
        std::vector<Field> fields;
        std::istringstream words(reader.fields);
        for (std::string word; words >> word;)
        {
            std::vector<std::string> parts;
            for (const char* separator : {">", "=", ":"})
            {
                const std::vector<std::string> split = Split(word, separator);
                parts.push_back(split.size() > 1 ? split[1] : "");
                word = split[0];
            }
            fields.push_back({word, parts[2], parts[1], parts[0].empty() ? word : parts[0]});
        }
        return fields;
    }

    // A text for every attribute, each its own; the switch "apart" is set to what it is not when missing.
    static Texts AllTexts(const std::vector<Field>& fields, int first, const std::string& apart)
    {
        Texts texts;
        for (const Field& field : fields)
        {
            std::string text = std::to_string(first++) + ".5";
            if (field.kind == "flag")
                text = (field.whenMissing == "true") != (field.attribute == apart) ? "True" : "yes";
            else if (field.attribute == apart)
                text = "output";
            texts.emplace(field.attribute, text);
        }
        return texts;
    }

    static std::string OtherAttributes(const Reader& reader)
    {
        Texts texts = AllTexts(FieldsIn(reader), 501, "");
        for (const Field& field : FieldsIn(reader))
            if (field.kind == "flag")
                texts[field.attribute] = field.whenMissing == "true" ? "false" : "true";
        return Written(texts);
    }

    static std::string Written(const Texts& texts)
    {
        std::string attributes;
        for (const auto& [attribute, text] : texts)
            attributes += attribute + "='" + text + "' ";
        return attributes;
    }

    void Rewrite(const std::string& file, const std::string& document)
    {
        directory.Write(file, document);
        Release();
    }

    void ExpectRecord(const Reader& reader, const std::string& document, const Texts& texts, int result)
    {
        const Json::json_pointer pointer(reader.record);
        for (const bool comma : {false, true})
        {
            VEXMELKUtilities::SetCommaDelimeter(comma);
            Rewrite(reader.file, document);
            Json outputs = Json::object();
            for (const Field& field : FieldsIn(reader))
                outputs[pointer][field.name] = field.Before();
            outputs = Json::parse(Replaced(outputs.dump(), "null", "{}")); // the elements before the one that is meant
            const Answered answered = Run(reader.configuration, reader.operation, reader.inputs, outputs);
            std::string expected;
            std::string actual;
            for (const Field& field : FieldsIn(reader))
            {
                const auto text = texts.find(field.attribute);
                const Json value = field.Value(text == texts.end() ? nullptr : &text->second);
                const std::string wanted = Described(value);
                const std::string found = Described(answered.outputs.at(pointer).at(field.name));
                if (found == wanted)
                    continue;
                expected += field.name + "=" + wanted + "\n";
                actual += field.name + "=" + found + "\n";
            }
            const std::string asked = reader.configuration + "." + reader.operation + (comma ? " with commas: " : ": ");
            EXPECT_EQ(actual, expected) << asked << document;
            EXPECT_EQ(Described(answered.result), std::to_string(result)) << asked << document;
        }
        VEXMELKUtilities::SetCommaDelimeter(0);
        Release();
    }

    Answered Run(
        const std::string& configuration, const std::string& operation, const std::string& inputs, const Json& outputs)
    {
        const Operation& asked = FindConfiguration(configuration).FindOperation(operation);
        const std::vector<std::string> texts = Split(inputs, ", ");
        Json arguments = Json::object();
        for (const auto& [name, type, unit, isOutput, isSecret] : asked.Parameters())
            if (!isOutput && arguments.size() < texts.size())
            {
                const std::string& text = texts[arguments.size()];
                const bool isText = type == "text";
                arguments[name] = isText ? Json(text) : type == "flag" ? Json(text == "1") : Json::parse(text);
            }
        return asked.Prepare(arguments, outputs)(Object(configuration));
    }

    static Json BeforeOf(const std::string& type)
    {
        static const std::map<std::string, Json> values = {
            {"flag", false}, {"text", "~"}, {"number", before}, {"integer", static_cast<int>(before)}};
        const auto found = values.find(type);
        return found == values.end() ? Json::object() : found->second;
    }

    // The same with every text and number as the caller has them.
    static Json Overwritten(Json json)
    {
        if (json.is_structured())
            for (auto& item : json)
                item = Overwritten(item);
        else if (!json.is_boolean())
            json = BeforeOf(json.is_string() ? "text" : json.is_number_float() ? "number" : "integer");
        return json;
    }

    static std::string Described(const Json& json)
    {
        if (json.is_boolean())
            return json.get<bool>() ? "1" : "0";
        if (json.is_string())
            return json.get<std::string>().empty() ? "''" : json.get<std::string>();
        std::ostringstream text;
        text.precision(9);
        if (json.is_number())
            text << json.get<double>() + 0.0; // no negative zero
        else
            for (const auto& item : json)
                text << (text.str().empty() ? "" : " ") << Described(item);
        if (json.is_number())
            return text.str() == "-777" ? "~" : text.str();
        return json.is_array() ? "[" + text.str() + "]" : "{" + text.str() + "}";
    }
};

#endif
