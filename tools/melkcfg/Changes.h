// What changes when files do, and what no answer depends on.
#ifndef MELKCFG_Changes_H
#define MELKCFG_Changes_H

#include "Commands.h"

ExitStatus RunWhatIf(const CommandOptions& options);
ExitStatus RunUnused(const CommandOptions& options);

#endif
