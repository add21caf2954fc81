// The frame around every public operation.
#ifndef VEXMELKAnswer_H
#define VEXMELKAnswer_H

#include "VEXMELKConfig.h"

#include <exception>
#include <type_traits>

// While the outermost operation of an object runs, a load that failed is not repeated: all of its look-ups fail alike.
// The object outlives its operation: a box may run the host's own code, and that may have the manager release it.
class VEXMELKConfig::QueryScope
{
public:
    explicit QueryScope(VEXMELKConfig& config) : m_Config(config)
    {
        m_Config.AddRef();
        ++m_Config.m_Query.running;
    }
    QueryScope(const QueryScope&) = delete;
    QueryScope& operator=(const QueryScope&) = delete;
    ~QueryScope()
    {
        if (--m_Config.m_Query.running == 0)
            m_Config.m_Query.load = LoadResult::Loaded;
        m_Config.Release();
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

template <class Body> auto VEXMELKConfig::Answer(Body body) -> decltype(body())
{
    const QueryScope scope(*this);
    try
    {
        return body();
    }
    catch (const std::exception& failure)
    {
        ReportFailure(failure.what());
    }
    catch (...) // of the host
    {
        ReportFailure("an exception of the application");
    }
    if constexpr (!std::is_void_v<decltype(body())>)
        return decltype(body())();
}

#endif
