// Says why a question has no data: the first of standard, category, key and row that the files do not have.
#include "VEXMELKOrigins.h"
#include "VEXMELKSuggestions.h"

#include <algorithm>

namespace {

using Documents = std::vector<VEXMELKDocumentText>;

std::string TextOf(const VEXMELKValue& value)
{
    const auto* text = std::get_if<CATUnicodeString*>(&value);
    return text ? (*text)->ConvertToChar() : "";
}

// The elements with the tag whose parents pass the test, in all documents; the Customer document, the last one, first.
template <class Wanted, class Act>
void ForEachElement(const Documents& documents, std::string_view tag, Wanted isWanted, Act act)
{
    for (std::size_t number = documents.size(); number-- > 0;)
        for (std::size_t element = 0; element < documents[number].Elements().size(); ++element)
            if (documents[number].Elements()[element].node->GetTagName() == tag && isWanted(documents[number], element))
                act(documents[number], element);
}

// The texts of an attribute of the elements with the tag.
template <class Wanted>
std::vector<std::string> Names(
    const Documents& documents, std::string_view tag, std::string_view attribute, Wanted isWanted)
{
    std::vector<std::string> names;
    ForEachElement(documents, tag, isWanted,
        [&](const VEXMELKDocumentText& document, std::size_t element)
        {
            const std::string name(document.TextOf(element, attribute));
            if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end())
                names.push_back(name);
        });
    return names;
}

bool Has(const std::vector<std::string>& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

std::string DidYouMean(const std::string& name, const std::vector<std::string>& known)
{
    std::string message;
    for (const std::string& nearest : VEXMELKNearest(name, known))
        message += (message.empty() ? " (did you mean " : " or ") + Quoted(nearest);
    return message.empty() ? message : message + "?)";
}

class Finder
{
public:
    Finder(const VEXMELKTrial& trial, const VEXMELKAskable& askable, bool isFalse)
        : m_Documents(trial.Documents()), m_Operation(askable.Operation()), m_IsFalse(isFalse)
    {
        const std::unique_ptr<VEXMELKQuestion> question = askable.New();
        for (std::size_t position = 0; position < m_Operation.Parameters().size(); ++position)
            m_Texts.push_back(TextOf(question->Parameter(position)));
    }

    std::string Find() const
    {
        if (m_Documents.empty())
            return "the file is missing or cannot be read";
        const VEXMELKParameter* standard = With(VEXMELKRole::Standard);
        const VEXMELKParameter* category = With(VEXMELKRole::Category);
        if (standard)
            if (std::string reason = StandardReason(TextFor(*standard)); !reason.empty())
                return reason;
        if (standard && category)
            if (std::string reason = CategoryReason(TextFor(*standard), TextFor(*category)); !reason.empty())
                return reason;
        return m_IsFalse ? ElementReason() : "";
    }

private:
    const VEXMELKParameter* With(VEXMELKRole role) const
    {
        for (const VEXMELKParameter& parameter : m_Operation.Parameters())
            if (parameter.role == role)
                return &parameter;
        return nullptr;
    }
    const std::string& TextFor(const VEXMELKParameter& parameter) const
    {
        return m_Texts[static_cast<std::size_t>(&parameter - m_Operation.Parameters().data())];
    }

    std::string StandardReason(const std::string& standard) const
    {
        const auto isChildOfRoot = [](const VEXMELKDocumentText& document, std::size_t element)
        { return document.Elements()[element].parent == 0; };
        const std::vector<std::string> names = Names(m_Documents, "standard", "name", isChildOfRoot);
        if (Has(names, standard))
            return {};
        return "no standard " + Quoted(standard) + DidYouMean(standard, names);
    }

    // Of the first standard of that name, which hides all others.
    std::string CategoryReason(const std::string& standard, const std::string& category) const
    {
        std::vector<std::string> names;
        bool isFound = false;
        const auto isWanted = [&](const VEXMELKDocumentText& document, std::size_t element)
        { return document.Elements()[element].parent == 0 && document.TextOf(element, "name") == standard; };
        ForEachElement(m_Documents, "standard", isWanted,
            [&](const VEXMELKDocumentText& found, std::size_t parent)
            {
                if (std::exchange(isFound, true))
                    return;
                for (std::size_t element = parent; element < found.Elements().size(); ++element)
                    if (found.Elements()[element].parent == parent &&
                        found.Elements()[element].node->GetTagName() == "category")
                        names.emplace_back(found.TextOf(element, "name"));
            });
        if (Has(names, category))
            return {};
        if (Has(names, "default"))
            return "category " + Quoted(category) + " is not in the standard; \"default\" answers";
        if (names.empty())
            return "the standard has no category";
        return "the standard has neither " + Quoted(category) + " nor \"default\"" + DidYouMean(category, names);
    }

    std::string ElementReason() const
    {
        for (const VEXMELKParameter& parameter : m_Operation.Parameters())
        {
            const VEXMELKElement* element = parameter.element;
            if (!element)
                continue;
            const auto isAny = [](const VEXMELKDocumentText& /*document*/, std::size_t /*element*/) { return true; };
            const std::string& text = TextFor(parameter);
            if (parameter.role == VEXMELKRole::Key && element->key)
            {
                const std::vector<std::string> keys = Names(m_Documents, element->tag, element->key->attribute, isAny);
                if (!Has(keys, text))
                    return "no <" + std::string(element->tag) + "> with " + std::string(element->key->attribute) + " " +
                           Quoted(text) + DidYouMean(text, keys);
            }
            else if (parameter.role == VEXMELKRole::Tag && !text.empty())
                return "no <" + text + "> there";
            else if (parameter.role == VEXMELKRole::Travel || parameter.role == VEXMELKRole::BackAngle ||
                     parameter.role == VEXMELKRole::CutOff)
                return "no row <" + std::string(element->tag) + "> is near enough to what was asked for";
        }
        return "an element or attribute that the answer needs is missing";
    }

    const Documents& m_Documents;
    const VEXMELKOperation& m_Operation;
    bool m_IsFalse;
    std::vector<std::string> m_Texts;
};

} // namespace

std::string VEXMELKReason(const VEXMELKTrial& trial, const VEXMELKAskable& askable, const VEXMELKFlatAnswer& answer)
{
    return Finder(trial, askable, answer.result == VEXMELKPlainValue(false)).Find();
}
