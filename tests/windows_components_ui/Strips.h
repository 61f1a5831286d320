// Strips of button pictures as resources: each picture in a colour of its own.
#pragma once

#include "corekit/framework/Module.h"

#include <cstring>
#include <string>
#include <vector>

class StripResources {
public:
    // A strip of `count` pictures under that number.
    void Add(int number, int width, int height, int count)
    {
        const int rowBytes = width * count * 4;
        std::vector<std::byte> dib(40 + static_cast<std::size_t>(rowBytes * height));
        const auto put = [&dib](std::size_t at, DWORD value) { std::memcpy(&dib[at], &value, 4); };
        put(0, 40);
        put(4, static_cast<DWORD>(width * count));
        put(8, static_cast<DWORD>(height));
        put(12, 1 | 32 << 16);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width * count; ++x)
                put(static_cast<std::size_t>(40 + y * rowBytes + x * 4),
                    0xFF000000 | static_cast<DWORD>(0x204060 * (x / width + 1)));
        m_bytes.push_back(std::move(dib));
        m_names.push_back("#" + std::to_string(number));
    }
    // A key table under that number.
    void AddTable(int number, std::span<const std::byte> table)
    {
        m_tables.push_back({"#" + std::to_string(number), table});
    }
    void Use()
    {
        m_resources.clear();
        for (std::size_t i = 0; i < m_bytes.size(); ++i)
            m_resources.push_back({"#2", m_names[i].c_str(), m_bytes[i]});
        for (const auto& [name, table] : m_tables) m_resources.push_back({"#9", name.c_str(), table});
        AfxSetResources(m_resources);
    }
    ~StripResources() { AfxSetResources({}); }

private:
    std::vector<std::vector<std::byte>> m_bytes;
    std::vector<std::string> m_names;
    std::vector<std::pair<std::string, std::span<const std::byte>>> m_tables;
    std::vector<BinaryResource> m_resources;
};
