// In place of the fuzzer, where that is not built: runs every file of the directories that are its arguments.
#include "Require.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

int main(int argc, char** argv)
{
    int files = 0;
    for (int number = 1; number < argc; ++number)
        for (const auto& entry : std::filesystem::directory_iterator(argv[number]))
        {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes(std::istreambuf_iterator<char>(file), {});
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++files;
        }
    return files > 0 ? 0 : 1;
}
