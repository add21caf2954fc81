// Variables of the environment, as UTF-8 on every system.
#ifndef CATEnvironment_H
#define CATEnvironment_H

#include <string>

// Empty when the variable is not set.
std::string CATEnvironmentVariable(const char* name);

#endif
