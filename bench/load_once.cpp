// melk_load_once READER FILE...: loads the files once, for instruction counts.
#include "Load.h"

#include <cstdio>
#include <stdexcept>

int main(int count, char** arguments)
{
    try
    {
        if (count < 3)
            throw std::runtime_error("usage: melk_load_once READER FILE...");
        const auto loaded = Load(arguments[1], {arguments + 2, arguments + count});
        return loaded ? 0 : 1;
    }
    catch (const std::exception& problem)
    {
        std::fprintf(stderr, "%s\n", problem.what());
        return 1;
    }
}
