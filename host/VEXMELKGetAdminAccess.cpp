// The settings that are read from the environment, unless the host has put its own in their place.
#include "VEXMELKGetAdminAccess.h"

#include "CATEnvironment.h"

#include <atomic>
#include <cstddef>
#include <new>

namespace {

class EnvironmentAccess final : public VEXIMELKAccessAdminAttr
{
public:
    CATResult GetConfigurationDirectory(CATString& directory) const override
    {
        const std::string value = CATEnvironmentVariable("MELK_CFG_PATH");
        if (value.empty())
            return E_FAIL;
        directory = value.c_str();
        return S_OK;
    }
    CATUnicodeString GetTestPath() const override { return {CATEnvironmentVariable("MELK_TEST_PATH")}; }
    CATResult GetBaseDataDBPath(CATUnicodeString& path, CATUnicodeString& user) const override
    {
        const std::string value = CATEnvironmentVariable("MELK_BASEDATA_DB");
        if (value.empty())
            return E_FAIL;
        path = value;
        user = CATEnvironmentVariable("MELK_BASEDATA_DB_USER");
        return S_OK;
    }
};

std::atomic<const VEXIMELKAccessAdminAttr*> replacement = nullptr;
std::atomic<bool> isReplaced = false;

} // namespace

const VEXIMELKAccessAdminAttr* VEXMELKGetAdminAccess::VEXMELKGetAdminAccessAttr()
{
    // Never destroyed: callers may ask while the process ends.
    alignas(EnvironmentAccess) static std::byte storage[sizeof(EnvironmentAccess)];
    static const EnvironmentAccess* const environment = new (storage) EnvironmentAccess;
    return isReplaced ? replacement.load() : environment;
}

void VEXMELKGetAdminAccess::ReplaceAccessAttr(const VEXIMELKAccessAdminAttr* access)
{
    replacement = access;
    isReplaced = true;
}

void VEXMELKGetAdminAccess::Reset() { isReplaced = false; }
