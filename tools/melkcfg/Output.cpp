// A file is written beside its place and then moved there, so that nobody ever sees half of it.
#include "Output.h"

#include "Json.h"

#include <filesystem>
#include <fstream>
#include <iostream>

void WriteOutput(const std::string& name, const std::string& bytes)
{
    if (name.empty() || name == "-")
    {
        std::cout << bytes;
        return;
    }
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path path(name);
    // A device or a pipe is written as it is.
    const bool isFile = !fs::exists(path, error) || fs::is_regular_file(path, error);
    const fs::path written = isFile ? fs::path(name + ".part") : path;
    std::ofstream stream(written, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    bool isWritten = stream.good();
    if (isFile && isWritten)
    {
        fs::rename(written, path, error);
        isWritten = !error;
    }
    if (isFile && !isWritten)
        fs::remove(written, error);
    if (!isWritten)
        throw RequestError(name + " cannot be written");
}
