// The dictionary of external components. It is never destroyed, because callers may still ask at exit.
#include "CATBaseUnknown.h"

#include <cstring>

namespace {

CATExternalComponent*& FirstComponent()
{
    static CATExternalComponent* first = nullptr;
    return first;
}

} // namespace

CATExternalComponent::CATExternalComponent(const char* className, Creator creator)
    : m_ClassName(className), m_Creator(creator), m_Next(FirstComponent())
{
    FirstComponent() = this;
}

CATBaseUnknown* CATExternalComponent::Instantiate(const char* className)
{
    for (const CATExternalComponent* entry = FirstComponent(); entry; entry = entry->m_Next)
        if (std::strcmp(entry->m_ClassName, className) == 0)
            return entry->m_Creator();
    return nullptr;
}
