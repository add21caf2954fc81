// The dictionary of external components. It is never destroyed, because callers may still ask at exit.
#include "CATBaseUnknown.h"

#include <atomic>
#include <cstring>

namespace {

// There before any library registers a component. One that is loaded later may register while others are asked for.
constinit std::atomic<CATExternalComponent*> firstComponent = nullptr;

} // namespace

CATExternalComponent::CATExternalComponent(const char* className, Creator creator)
    : m_ClassName(className), m_Creator(creator), m_Next(firstComponent)
{
    while (!firstComponent.compare_exchange_weak(m_Next, this))
        ;
}

CATBaseUnknown* CATExternalComponent::Instantiate(const char* className)
{
    for (const CATExternalComponent* entry = firstComponent; entry; entry = entry->m_Next)
        if (std::strcmp(entry->m_ClassName, className) == 0)
            return entry->m_Creator();
    return nullptr;
}
