// "GetStandardData" is the main operation where there is one; some configurations have other names for it.
#include "VEXMELKOperations.h"

#include <algorithm>

namespace {

// 0 for an operation that does not ask for a standard.
int RankAsMain(const VEXMELKOperation& operation)
{
    if (!VEXMELKParameterWith(operation, VEXMELKRole::Standard) ||
        !VEXMELKParameterWith(operation, VEXMELKRole::Output))
        return 0;
    return 1 + (VEXMELKParameterWith(operation, VEXMELKRole::Category) ? 1 : 0) +
           (operation.Name() == "GetStandardData" ? 2 : 0);
}

} // namespace

std::vector<const VEXMELKOperation*> VEXMELKOperationsOf(const VEXMELKDescription& description)
{
    std::vector<const VEXMELKOperation*> operations;
    for (const VEXMELKDescription* level = &description; level; level = level->base)
        for (const VEXMELKOperation& operation : level->operations)
            if (std::none_of(operations.begin(), operations.end(),
                    [&](const VEXMELKOperation* own) { return own->Name() == operation.Name(); }))
                operations.push_back(&operation);
    return operations;
}

const VEXMELKOperation* VEXMELKMainOperationOf(const VEXMELKDescription& description)
{
    const VEXMELKOperation* best = nullptr;
    for (const VEXMELKOperation* operation : VEXMELKOperationsOf(description))
        if (RankAsMain(*operation) > (best ? RankAsMain(*best) : 0))
            best = operation;
    return best;
}

const VEXMELKParameter* VEXMELKParameterWith(const VEXMELKOperation& operation, VEXMELKRole role)
{
    for (const VEXMELKParameter& parameter : operation.Parameters())
        if (parameter.role == role)
            return &parameter;
    return nullptr;
}
