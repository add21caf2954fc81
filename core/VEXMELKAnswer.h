// The frame around every public operation.
#ifndef VEXMELKAnswer_H
#define VEXMELKAnswer_H

#include "VEXMELKConfig.h"

#include <exception>
#include <type_traits>

// While the outermost operation of an object runs, a load that failed is not repeated. The object outlives its
// operation: a box may run the host's own code, and that may have the manager release it.
class VEXMELKConfig::QueryScope
{
public:
    explicit QueryScope(VEXMELKConfig& config) : m_Config(config)
    {
        m_Config.AddRef();
        ++m_Config.m_RunningQueries;
    }
    QueryScope(const QueryScope&) = delete;
    QueryScope& operator=(const QueryScope&) = delete;
    ~QueryScope()
    {
        if (--m_Config.m_RunningQueries == 0)
            m_Config.m_LoadFailed = false;
        m_Config.Release();
    }

private:
    VEXMELKConfig& m_Config;
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
    if constexpr (!std::is_void_v<decltype(body())>)
        return decltype(body())();
}

#endif
