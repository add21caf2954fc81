// The factory of volatile parameters.
#include "CATCkeGlobalFunctions.h"

#include "CATQuantity.h"

CATICkeParm_var CATICkeParmFactory::CreateLength(const char* name, double metres) const
{
    return CATICkeParm_var(CATICkeParm(name, CATLengthFromText, metres));
}

CATICkeParm_var CATICkeParmFactory::CreateAngle(const char* name, double radians) const
{
    return CATICkeParm_var(CATICkeParm(name, CATAngleFromText, radians));
}

CATICkeParm_var CATICkeParmFactory::CreateReal(const char* name, double value) const
{
    return CATICkeParm_var(CATICkeParm(name, CATRealFromText, value));
}

const CATICkeParmFactory* CATCkeGlobalFunctions::GetVolatileFactory()
{
    static const CATICkeParmFactory factory;
    return &factory;
}
