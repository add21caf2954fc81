// What melkcfg can ask: the configurations, and the query operations of each, as the library describes them.
#ifndef MELKCFG_Registry_H
#define MELKCFG_Registry_H

#include "Json.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKDescription.h"

#include <functional>
#include <string>
#include <vector>

struct Parameter
{
    std::string name;
    std::string type;
    std::string unit; // see UnitShown; may be empty
    bool isOutput = false;
    bool isSecret = false;
};

// A text such as "133mm" as the number that the argument takes; anything but a text stays as it is. Throws RequestError
// for a text that is no quantity of the argument's dimension.
Json InUnitOf(const Parameter& parameter, const Json& given);

struct Answered
{
    Json result; // null when the operation has none
    Json outputs = Json::object();
};

class Operation
{
public:
    using Call = std::function<Answered(VEXMELKConfig& object)>;

    explicit Operation(const VEXMELKOperation& described) : name(described.Name()), m_Described(&described) {}

    std::string_view name;
    const VEXMELKOperation& Described() const { return *m_Described; }
    std::string ResultType() const; // empty when the operation has no result
    // Worked out when they are first asked for: there are hundreds of operations, and most runs ask for one.
    const std::vector<Parameter>& Parameters() const;
    // The question with these arguments, and with what the outputs hold before.
    std::unique_ptr<VEXMELKQuestion> NewQuestion(const Json& arguments, const Json& outputs) const;
    // The answer of a question that has been asked.
    Answered AnswerOf(VEXMELKQuestion& question) const;
    // Reads the arguments by name (a missing one is "", 0 or false) and what the outputs hold before, and returns what
    // is then to be run. So a request that cannot be understood does not touch the library.
    Call Prepare(const Json& arguments, const Json& outputs) const;

private:
    const VEXMELKOperation* m_Described;
    mutable std::vector<Parameter> m_Parameters;
};

struct Configuration
{
    std::string name;              // "UFCurb"
    std::vector<std::string> keys; // of VEXMELKConfigManager::GetConfig
    std::string file;              // below the directory; empty when its creator gives it
    bool isSingle = false;         // the folders "Default" and "Customer" play no part
    const VEXMELKConfigManager::Configuration* entry = nullptr;
    VEXMELKConfig* (*get)(VEXMELKConfigManager& manager);
    std::vector<Operation> operations = {}; // its own, then those of its bases that it does not have itself

    std::string ClassName() const { return "VEXMELK" + name + "Config"; }
    const Operation& FindOperation(const std::string& operation) const; // throws RequestError
};

// All configurations, in the order of the manager's getters.
const std::vector<Configuration>& AllConfigurations();

// By name, class name or key, or by its file ("CloseRangeVisibility", "Vision/VisionPlanes.xml"). Null when there is
// none.
const Configuration* LookForConfiguration(const std::string& name);
// The same; throws RequestError when there is none.
const Configuration& FindConfiguration(const std::string& name);

#endif
