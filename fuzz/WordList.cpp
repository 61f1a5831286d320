// Any bytes as a word list: opened, searched, added to.
#include "corekit/framework/Exception.h"
#include "corekit/stores/WordListFile.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

const std::string name = (std::filesystem::exists("/dev/shm") ? "/dev/shm/fuzz-words-" : "/tmp/fuzz-words-") +
                         std::to_string(::getpid());

struct RemoveFile {
    ~RemoveFile() { std::filesystem::remove(name); }
} removeFile;

// A list is mostly zeros, and the mutations that matter are in the numbers: the input is a patch of a sound
// one. A first byte of 0 takes the rest as it is.
std::string FileOf(const std::uint8_t* data, std::size_t size)
{
    if (size == 0 || data[0] == 0)
        return {reinterpret_cast<const char*>(data) + (size != 0), size - (size != 0)};
    static const std::string sound = [] {
        std::filesystem::remove(name);
        CWordListFile list;
        list.Create(name.c_str());
        for (DWORD i = 1; i <= 200; ++i)
            list.AddWord((u"W" + std::u16string(i % 20, u'A' + i % 7)).c_str(), i);
        list.Close();
        std::ifstream in(name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }();
    std::string bytes = sound;
    for (std::size_t at = 1; at + 8 <= size; at += 8) {
        DWORD place, value;
        std::memcpy(&place, data + at, 4);
        std::memcpy(&value, data + at + 4, 4);
        place = place % (12 * 1024) * 4;
        std::memcpy(bytes.data() + place, &value, 4);
    }
    return bytes;
}

void Use(CWordListFile& list)
{
    CDWordArray ids;
    for (int round = 0; round < 40; ++round)
        for (const WCHAR* word : {u"W", u"WAAAA", u"\u00e9", u"ZZ"}) list.FindWord(word);
    for (const WCHAR* pattern : {u"*A*", u"W*", u"WA?A*", u"?B*", u"ZZZ"}) list.FindPattern(pattern, ids);
    for (WCHAR c = u'A'; c < u'A' + 200; ++c) {
        const WCHAR word[] = {u'W', c, 0};
        list.AddWord(word, c);
        list.FindWord(word);
    }
    list.FindPattern(u"*W", ids);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes = FileOf(data, size);
    std::ofstream(name, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    CWordListFile list;
    if (!list.Open(name.c_str())) return 0;
    try {
        Use(list);
    } catch (CException* e) {
        e->Delete();
    }
    return 0;
}
