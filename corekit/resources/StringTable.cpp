// The message texts of this library, by number. Numbers are contracts with callers: a text may be reworded,
// its number never moves. %1 to %3 are inserts.
#include "corekit/resources/StringTable.h"

#include <iterator>

namespace {
constexpr ResourceString table[] = {
    {4101, "[FileStream] Set End Of File failed"},
    {4102, "Invalid object version found.  Object=[%1], version found=%2, max supported version=%3"},
    {4103, "[File Stream] Unable to set cursor position"},
    {4104, "[File Stream] Unable to read from file"},
    {4105, "[File Stream] Unable to write to file"},
    {4106, "[Memory Stream] seek position invalid."},
    {4113, "[Memory Stream] Read past end of buffer"},
    {4114, "[Memory Stream] Write requires extension, but extension is disabled."},
    {4115, "[Memory Stream] Unable to allocate additional memory to extend buffer."},
    {4116, "[Memory Stream] Skip request would pass the end of the buffer."},
    {4117, "[File Stream] Seek request to a position beyond the end of the file"},
    {4118, "[File Stream] Read request would pass the end of the file"},
    {4119, "[File Stream] skip would pass past the end of the file"},
    {4147, "Data is corrupt."},
    {4148, "Read from stream of object \"CFontDescriptor\" failed"},
    {4149, "Write to stream of object \"CFontDescriptor\" failed"},
    {4152, "[UniRender] CreateFont() call failed."},
    {4153, "[UniRender] Too many fonts added to object"},
    {4154, "[UniRender] Font \"%1\" is not supported on this machine."},
    {4155, "Create Compatible DC call failed."},
    {4165, "[Stream] I/O error reading data from Win32 file handle"},
    {4169, "Indic Urdu"},
    {4295, "No language"},
    {4296, "Albanian"},
    {4297, "Arabic"},
    {4298, "Bahasa"},
    {4299, "Belgian Dutch"},
    {4300, "Belgian French"},
    {4301, "Brazilian Portuguese"},
    {4302, "Bulgarian"},
    {4303, "Catalan"},
    {4304, "Croato-Serbian (Latin)"},
    {4305, "Czech"},
    {4306, "Danish"},
    {4307, "Dutch"},
    {4308, "English (Australian)"},
    {4309, "English (U.K.)"},
    {4310, "English (U.S.)"},
    {4311, "Finnish"},
    {4312, "French"},
    {4313, "French (Canadian)"},
    {4314, "German"},
    {4315, "Greek"},
    {4316, "Hebrew"},
    {4317, "Hungarian"},
    {4318, "Icelandic"},
    {4319, "Italian"},
    {4320, "Japanese"},
    {4321, "Korean"},
    {4322, "Norwegian (Bokmal)"},
    {4323, "Norwegian (Nynorsk)"},
    {4324, "Polish"},
    {4325, "Portuguese"},
    {4326, "Rhaeto-Romanic"},
    {4327, "Romanian"},
    {4328, "Russian"},
    {4329, "Serbo-Croatian (Cyrillic)"},
    {4330, "Simplified Chinese"},
    {4331, "Slovak"},
    {4332, "Spanish (Castilian)"},
    {4333, "Spanish (Mexican)"},
    {4334, "Swedish"},
    {4335, "Swiss French"},
    {4336, "Swiss German"},
    {4337, "Swiss Italian"},
    {4338, "Thai"},
    {4339, "Traditional Chinese"},
    {4340, "Turkish"},
    {4341, "Urdu"},
    {4342, "Sesotho (Sotho)"},
    {4343, "Afrikaans"},
    {4344, "Zulu"},
    {4345, "Xhosa"},
    {4346, "Venda"},
    {4347, "Tswana"},
    {4348, "Tsonga"},
    {4349, "Farsi (Persian)"},
};

consteval bool Ascending()
{
    for (std::size_t i = 1; i < std::size(table); ++i)
        if (table[i - 1].id >= table[i].id) return false;
    return true;
}
static_assert(Ascending());
} // namespace

std::span<const ResourceString> corekit::detail::StringTable() { return table; }
