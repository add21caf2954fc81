// Sessions of a host: whatever its managers have been through, they answer as fresh ones do.
#include "Session.h"

#include "Require.h"
#include <iostream>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Directory normal;
    static const Directory test;
    static Host host(false);
    host.SetTestPath(test.Path());
    normal.Clear();
    test.Clear();
    host.SetConfigurationDirectory(normal.Path());

    Script script(TextOf(data, size));
    const std::vector<Session::Asked> asked = Session(script, normal, test).Play();
    for (const Session::Asked& each : asked)
    {
        normal.Clear();
        for (const auto& [name, contents] : each.files)
            normal.Write(name, contents);
        VEXMELKUtilities::SetCommaDelimeter(each.writesCommas);
        const Json fresh = Ask(*each.configuration, {each.question});
        if (fresh != Json::array({each.answer}))
            std::cerr << each.configuration->name << "." << each.question.operation->name << " answered " << each.answer
                      << ", and afresh " << fresh << '\n';
        Require(fresh == Json::array({each.answer}));
        VEXMELKConfigManager::ReleaseConfigManager();
    }
    host.TakeMessages();
    return 0;
}
