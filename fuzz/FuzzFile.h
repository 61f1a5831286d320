// Inputs as files, for what is read from files only.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <unistd.h>

// In memory where there is such a folder.
inline std::string FuzzFolder()
{
    const std::string place = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
    return place + "/corekit-fuzz-" + std::to_string(getpid());
}

class FuzzHome {
public:
    FuzzHome() { setenv("COREKIT_HOME", FuzzFolder().c_str(), 1); }
    ~FuzzHome() { std::filesystem::remove_all(FuzzFolder()); }
};

class FuzzFile {
public:
    FuzzFile(const char* name, const std::uint8_t* data, std::size_t size) : m_path(FuzzFolder() + "/" + name)
    {
        std::filesystem::create_directories(FuzzFolder());
        std::FILE* file = std::fopen(m_path.c_str(), "wb");
        std::fwrite(data, 1, size, file);
        std::fclose(file);
    }
    ~FuzzFile() { std::filesystem::remove_all(FuzzFolder()); }
    const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};
