// A query that can be explained afterwards.
//
//     VEXMELKCall<&VEXMELKUFCurbConfig::GetStandardData> call("EU Passenger Car", "suv",
//     VEXMELKUFCurbConfigDefinition()); if (call.Ask(*manager->GetUFCurbConfig()))
//     {
//         const VEXMELKUFCurbConfigDefinition& curb = call.Argument<2>();
//         const VEXMELKExplanation explanation = call.Explain(directory);
//         if (const VEXMELKOrigin* origin = explanation.OriginOf(call.FieldAt(&curb.FrontOffset)))
//             ... origin->places.front().file, .position.line, .position.column
//     }
#ifndef VEXMELKCall_H
#define VEXMELKCall_H

#include "VEXMELKOrigins.h"

template <auto Method> class VEXMELKCall final : public VEXMELKAskable
{
    using Question = VEXMELKQuestionDetail::QuestionOf<Method>;
    using Config = typename Question::Traits::Config;

public:
    // The arguments in their order; of an output, what the caller's variable holds before.
    template <class... Arguments>
    explicit VEXMELKCall(const Arguments&... arguments)
        : m_Operation(Find()), m_Before{arguments...}, m_Question(m_Operation.NewQuestion())
    {
        Assign(*m_Question);
    }

    // Asks the object. False when the query answers false.
    bool Ask(Config& object)
    {
        Assign(*m_Question);
        m_Question->Ask(object);
        m_Answer = VEXMELKFlatAnswer::Of(*m_Question, Operation());
        return m_Answer->result != VEXMELKPlainValue(false);
    }

    // The argument at that place, counted from 0: of an output, what the query left in it.
    template <std::size_t Place> const auto& Argument() const { return std::get<Place>(Values(*m_Question)); }

    // The name of the field whose address it is, in one of the arguments; empty when it is in none.
    std::string FieldAt(const void* address) const
    {
        std::vector<VEXMELKNamedValue> fields;
        const auto parameters = Operation().Parameters();
        for (std::size_t position = 0; position < parameters.size(); ++position)
            VEXMELKFlatten(std::string(parameters[position].name), m_Question->Parameter(position), {}, fields);
        for (const VEXMELKNamedValue& field : fields)
            if (VEXMELKAddressOf(field.variable) == address && address)
                return field.field;
        return {};
    }

    // Where the answer comes from. The files of the directory are read anew: when they give another answer than the one
    // that was got, "filesHaveChanged" is true and no places are told.
    VEXMELKExplanation Explain(const CATUnicodeString& directory) const
    {
        for (const VEXMELKConfigManager::Configuration& configuration : VEXMELKConfigManager::GetConfigurations())
            if (configuration.description == &Config::description)
            {
                VEXMELKExplanation explanation = VEXMELKExplain(configuration, *this, directory);
                if (m_Answer)
                    explanation.CompareWith(*m_Answer);
                return explanation;
            }
        return {};
    }

    const VEXMELKOperation& Operation() const override { return m_Operation; }
    std::unique_ptr<VEXMELKQuestion> New() const override
    {
        std::unique_ptr<VEXMELKQuestion> question = m_Operation.NewQuestion();
        Assign(*question);
        return question;
    }

private:
    using Arguments = typename Question::Traits::Values;

    // Every operation that can be asked is described.
    static const VEXMELKOperation& Find()
    {
        const VEXMELKOperation* found = nullptr;
        for (const VEXMELKDescription* level = &Config::description; level && !found; level = level->base)
            for (const VEXMELKOperation& operation : level->operations)
                if (const auto question = operation.NewQuestion(); dynamic_cast<Question*>(question.get()))
                    found = &operation;
        return *found;
    }
    static Arguments& Values(VEXMELKQuestion& question) { return static_cast<Question&>(question).Values(); }
    void Assign(VEXMELKQuestion& question) const { Values(question) = m_Before; }

    const VEXMELKOperation& m_Operation;
    Arguments m_Before;
    std::unique_ptr<VEXMELKQuestion> m_Question;
    std::optional<VEXMELKFlatAnswer> m_Answer;
};

#endif
