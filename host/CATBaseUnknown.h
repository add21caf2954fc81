// Components: reference-counted objects, their class names, and the handles that hold them.
#ifndef CATBaseUnknown_H
#define CATBaseUnknown_H

#include "VEXMELKConfigurationExport.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

// Result codes: negative is a failure, in a long of any width.
using CATResult = long;
constexpr CATResult S_OK = 0;
constexpr CATResult E_FAIL = static_cast<std::int32_t>(0x80004005U);

constexpr bool SUCCEEDED(CATResult result) { return result >= 0; }
constexpr bool FAILED(CATResult result) { return result < 0; }

// Base of every component. An object starts with one reference, its creator's; the last Release destroys it.
// A component belongs to one thread, and so do the handles that hold it: the count is not atomic.
class CATBaseUnknown
{
public:
    CATBaseUnknown() = default;
    CATBaseUnknown(const CATBaseUnknown& /*other*/) {} // a copy is an object of its own, with a count of its own
    CATBaseUnknown& operator=(const CATBaseUnknown& /*other*/) { return *this; }
    virtual ~CATBaseUnknown() = default;

    unsigned long AddRef() { return ++m_References; }
    unsigned long Release()
    {
        const unsigned long left = --m_References;
        if (left == 0)
        {
            m_References = dying;
            delete this;
        }
        return left;
    }

    // The name under which the class is registered as a component; "CATBaseUnknown" for all others.
    virtual const char* IsA() const { return "CATBaseUnknown"; }

private:
    // Whoever takes a reference while the destructor runs, and lets go of it, does not delete the object again.
    static constexpr unsigned long dying = std::numeric_limits<unsigned long>::max() / 2;

    unsigned long m_References = 1;
};

// The null of every handle: handle == NULL_var tells that nothing was found.
struct CATNullHandle
{
};
constexpr CATNullHandle NULL_var{};

// Holds a reference to a component for as long as it lives.
template <class Component> class CATHandle
{
public:
    CATHandle() = default;
    CATHandle(CATNullHandle /*null*/) {}
    explicit CATHandle(Component* component) : m_Component(component)
    {
        if (m_Component)
            m_Component->AddRef();
    }
    CATHandle(const CATHandle& other) : CATHandle(other.m_Component) {}
    CATHandle(CATHandle&& other) noexcept : m_Component(std::exchange(other.m_Component, nullptr)) {}
    CATHandle& operator=(CATHandle other) noexcept
    {
        std::swap(m_Component, other.m_Component);
        return *this;
    }
    ~CATHandle()
    {
        if (m_Component)
            m_Component->Release();
    }

    // A handle that takes over the creator's reference of a new component.
    template <class... Arguments> static CATHandle Create(Arguments&&... arguments)
    {
        return Adopt(new Component(std::forward<Arguments>(arguments)...));
    }
    static CATHandle Adopt(Component* component)
    {
        CATHandle handle;
        handle.m_Component = component;
        return handle;
    }

    Component* operator->() const { return m_Component; }
    Component* Get() const { return m_Component; }
    bool operator==(CATNullHandle /*null*/) const { return !m_Component; }
    bool operator!=(CATNullHandle /*null*/) const { return m_Component; }

private:
    Component* m_Component = nullptr;
};

// The dictionary of external components: class name to creator. A library registers its components by objects of
// this type with static storage; nothing is created before somebody asks.
class ExportedByVEXMELKConfiguration CATExternalComponent
{
public:
    using Creator = CATBaseUnknown* (*)();
    CATExternalComponent(const char* className, Creator creator);

    // A new component of that class with one reference, the caller's; null when no such class is registered.
    static CATBaseUnknown* Instantiate(const char* className);

private:
    const char* m_ClassName;
    Creator m_Creator;
    CATExternalComponent* m_Next;
};

#endif
