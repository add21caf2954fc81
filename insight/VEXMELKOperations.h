// The operations of a configuration, and which of them a check asks it for.
#ifndef VEXMELKOperations_H
#define VEXMELKOperations_H

#include "VEXMELKDescription.h"

#include <vector>

// Its own operations, then those of its bases that it does not have itself.
std::vector<const VEXMELKOperation*> VEXMELKOperationsOf(const VEXMELKDescription& description);

// The query for the data of a standard, of a category where they have some; null when there is none.
const VEXMELKOperation* VEXMELKMainOperationOf(const VEXMELKDescription& description);

// The first parameter with the role; null when there is none.
const VEXMELKParameter* VEXMELKParameterWith(const VEXMELKOperation& operation, VEXMELKRole role);

#endif
