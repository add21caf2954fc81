// melk_tree BYTES: writes a configuration directory whose Default file has about so many bytes, and prints its path.
#include "Trees.h"

#include <cstdio>
#include <stdexcept>

int main(int count, char** arguments)
{
    try
    {
        const std::size_t bytes = count == 2 ? std::stoul(arguments[1]) : 0;
        if (bytes == 0)
            throw std::runtime_error("usage: melk_tree BYTES");
        std::puts(TreeOf(ShapeOfSize(bytes)).c_str());
        return 0;
    }
    catch (const std::exception& problem)
    {
        std::fprintf(stderr, "%s\n", problem.what());
        return 1;
    }
}
