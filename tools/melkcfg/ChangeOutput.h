// Changes of answers as people and programs read them.
#ifndef MELKCFG_ChangeOutput_H
#define MELKCFG_ChangeOutput_H

#include "Json.h"
#include "VEXMELKComparison.h"

// "version", "questions" and "changes".
Json ChangesToJson(const VEXMELKComparison& comparison, bool showSecrets);

// "130mm → 195mm", both in one unit.
std::string ValuesText(const VEXMELKChange& change, bool showSecrets);
// "+50 %"; empty when there is none.
std::string PercentText(const VEXMELKChange& change);
// "Default/OVA/UFCurb.xml:50:23"; empty without a place.
std::string PlaceText(const VEXMELKChangedSide& side);

#endif
