// A directory of its own for each process, in memory where there is such a place; gone with the object.
#ifndef FUZZ_Directory_H
#define FUZZ_Directory_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

class Directory
{
public:
    Directory()
    {
        const std::filesystem::path memory = "/dev/shm";
        const bool inMemory = std::filesystem::is_directory(memory);
        std::string name = (inMemory ? memory : std::filesystem::temp_directory_path()) / "melk-fuzz-XXXXXX";
        m_Path = mkdtemp(name.data());
    }
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;
    ~Directory() { std::filesystem::remove_all(m_Path); }

    std::string Path() const { return m_Path; }
    // Writes a file, with the folders above it; without contents, removes it.
    void Write(const std::filesystem::path& name, std::string_view contents) const
    {
        const std::filesystem::path path = m_Path / name;
        if (contents.empty())
        {
            std::filesystem::remove(path);
            return;
        }
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << contents;
    }
    void Clear() const
    {
        for (const auto& entry : std::filesystem::directory_iterator(m_Path))
            std::filesystem::remove_all(entry.path());
    }

private:
    std::filesystem::path m_Path;
};

#endif
