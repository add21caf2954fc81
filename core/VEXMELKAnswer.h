// The frame around every public operation.
#ifndef VEXMELKAnswer_H
#define VEXMELKAnswer_H

#include "VEXMELKConfig.h"

#include <exception>
#include <type_traits>

// While the outermost operation of an object runs, a load that failed is not repeated: all of its look-ups fail alike.
// The object outlives its operation: a box may run the host's own code, and that may have the manager release it.
class VEXMELKQuery
{
public:
    explicit VEXMELKQuery(VEXMELKConfig& config) : m_Config(config)
    {
        m_Config.AddRef();
        ++m_Config.m_Query.running;
    }
    VEXMELKQuery(const VEXMELKQuery&) = delete;
    VEXMELKQuery& operator=(const VEXMELKQuery&) = delete;
    ~VEXMELKQuery()
    {
        if (--m_Config.m_Query.running == 0)
            m_Config.m_Query.load = VEXMELKConfig::LoadResult::Loaded;
        m_Config.Release();
    }

    static void ReportFailure(const char* reason) noexcept { VEXMELKConfig::ReportFailure(reason); }
    static CATIDOMNamedNodeMap_var CategoryAttributes(VEXMELKConfig& config, const CATUnicodeString& standard,
        const CATUnicodeString& category, CATIDOMNamedNodeMap_var& defaultMap)
    {
        return config.GetCategoryAttributeMap(standard, category, defaultMap);
    }

private:
    VEXMELKConfig& m_Config;
};

// While a box may be shown: what the host asks in there is a query of its own, which may load what could not be loaded
// before. The query outside of the box goes on from what it has seen.
class VEXMELKConfig::BoxScope
{
public:
    explicit BoxScope(VEXMELKConfig& config) : m_Config(config), m_Outside(config.m_Query.State())
    {
        m_Config.AddRef();
        m_Config.m_Query.SetState({0, LoadResult::Loaded, m_Outside.boxes + 1});
    }
    BoxScope(const BoxScope&) = delete;
    BoxScope& operator=(const BoxScope&) = delete;
    ~BoxScope()
    {
        m_Config.m_Query.SetState(m_Outside);
        m_Config.Release();
    }

private:
    VEXMELKConfig& m_Config;
    QueryState m_Outside;
};

// One public operation: runs its body and returns its answer. When memory runs out, a message box says so and the
// answer is false, 0, empty or null. Within one operation a load that fails is not tried, nor told, again.
template <class Body> auto Answer(VEXMELKConfig& config, Body body) -> decltype(body())
{
    const VEXMELKQuery query(config);
    try
    {
        return body();
    }
    catch (const std::exception& failure)
    {
        VEXMELKQuery::ReportFailure(failure.what());
    }
    catch (...) // of the host
    {
        VEXMELKQuery::ReportFailure("an exception of the application");
    }
    if constexpr (!std::is_void_v<decltype(body())>)
        return decltype(body())();
}

// What the body returns, or the other result when memory runs out or the host fails: for operations of no object.
template <class Result, class Body> Result OrElse(Result whenFailed, Body body) noexcept
{
    try
    {
        return static_cast<Result>(body());
    }
    catch (...) // said by the result alone
    {
        return whenFailed;
    }
}

#endif
