// All questions: every operation of a configuration, with every argument that its files make meaningful. Whatever
// compares answers asks these.
#ifndef VEXMELKAllQuestions_H
#define VEXMELKAllQuestions_H

#include "VEXMELKTrial.h"

// A question with values for its inputs.
class VEXMELKPreparedQuestion : public VEXMELKAskable
{
public:
    // An input by its parameter: a text, a flag, a number or an integer. Of an output, the integer that chooses what is
    // asked for, or the names of the editable attributes.
    struct Input
    {
        std::size_t parameter;
        VEXMELKPlainValue value;
        bool operator<=>(const Input&) const = default;
    };

    VEXMELKPreparedQuestion(const VEXMELKOperation& operation, std::vector<Input> inputs)
        : m_Operation(&operation), m_Inputs(std::move(inputs))
    {
    }
    const VEXMELKOperation& Operation() const override { return *m_Operation; }
    std::unique_ptr<VEXMELKQuestion> New() const override;
    const std::vector<Input>& Inputs() const { return m_Inputs; }

    // "standard=EU Passenger Car category=suv"; with the integer of an output that chooses what is asked for.
    std::string ArgumentText() const;

private:
    const VEXMELKOperation* m_Operation;
    std::vector<Input> m_Inputs;
};

// The texts of all documents are taken together, so that the questions are meaningful for each of them. An operation
// has at most 200,000 questions; "leftOut" gets the number of those past that.
std::vector<VEXMELKPreparedQuestion> VEXMELKAllQuestions(const VEXMELKDescription& description,
    const std::vector<const VEXMELKDocumentText*>& documents, std::size_t* leftOut = nullptr);

#endif
