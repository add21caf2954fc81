// Says why a question has no data: the first of standard, category, key and row that the files do not have.
#include "VEXMELKNames.h"
#include "VEXMELKOrigins.h"
#include "VEXMELKSuggestions.h"
#include "VEXMELKWording.h"

#include <algorithm>

namespace {

std::string TextOf(const VEXMELKValue& value)
{
    const auto* text = std::get_if<CATUnicodeString*>(&value);
    return text ? (*text)->ConvertToChar() : "";
}

std::string DidYouMean(const std::string& name, const std::vector<std::string>& known)
{
    std::string message;
    for (const std::string& nearest : VEXMELKNearest(name, known))
        message += (message.empty() ? " (did you mean " : " or ") + VEXMELKQuoted(nearest);
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
        const std::vector<std::string> names = VEXMELKNamesOfStandards(m_Documents);
        if (VEXMELKContains(names, standard))
            return {};
        return "no standard " + VEXMELKQuoted(standard) + DidYouMean(standard, names);
    }

    std::string CategoryReason(const std::string& standard, const std::string& category) const
    {
        const std::vector<std::string> names = VEXMELKNamesOfCategories(m_Documents, standard);
        if (VEXMELKContains(names, category))
            return {};
        if (VEXMELKContains(names, "default"))
        {
            // Many categories have no data of their own: only what must have been meant is suggested.
            const std::string meant = VEXMELKMeant(category, names);
            return "category " + VEXMELKQuoted(category) + " is not in the standard" +
                   (meant.empty() ? meant : " (did you mean " + VEXMELKQuoted(meant) + "?)") + "; \"default\" answers";
        }
        if (names.empty())
            return "the standard has no category";
        return "the standard has neither " + VEXMELKQuoted(category) + " nor \"default\"" + DidYouMean(category, names);
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
                const std::vector<std::string> keys =
                    VEXMELKNames(m_Documents, element->tag, element->key->attribute, isAny);
                if (!VEXMELKContains(keys, text))
                    return "no <" + std::string(element->tag) + "> with " + std::string(element->key->attribute) + " " +
                           VEXMELKQuoted(text) + DidYouMean(text, keys);
            }
            else if (parameter.role == VEXMELKRole::Tag && !text.empty())
                return "no <" + text + "> there";
            else if (parameter.role == VEXMELKRole::Travel || parameter.role == VEXMELKRole::BackAngle ||
                     parameter.role == VEXMELKRole::CutOff)
                return "no row <" + std::string(element->tag) + "> is near enough to what was asked for";
        }
        return "an element or attribute that the answer needs is missing";
    }

    const std::vector<VEXMELKDocumentText>& m_Documents;
    const VEXMELKOperation& m_Operation;
    bool m_IsFalse;
    std::vector<std::string> m_Texts;
};

} // namespace

std::string VEXMELKReason(const VEXMELKTrial& trial, const VEXMELKAskable& askable, const VEXMELKFlatAnswer& answer)
{
    return Finder(trial, askable, answer.result == VEXMELKPlainValue(false)).Find();
}
