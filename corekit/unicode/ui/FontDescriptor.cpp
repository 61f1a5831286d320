#include "corekit/unicode/ui/FontDescriptor.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/Stream.h"
#include "corekit/framework/Exception.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/RegistryKey.h"
#include "corekit/unicode/ui/FontMapInfo.h"
#include "corekit/unicode/ui/FontRegistry.h"
#include "corekit/unicode/ui/XPCConfigNode.h"

#include <algorithm>
#include <string_view>

IMPLEMENT_DYNAMIC(CFontDescriptor, CObject)

namespace {

constexpr int fallbackSize = 12;
constexpr const char* fallbackFace = "Arial";

// Takes the text up to the next line feed off the front, false if there is none.
bool takeLine(std::u16string_view& rest, std::u16string_view& line)
{
    const std::size_t end = rest.find(u'\n');
    if (end == rest.npos) return false;
    line = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return true;
}

// Leading blanks, a sign, digits; 0 if there are none. Held at the ends of the range.
int numberOf(std::u16string_view line)
{
    while (!line.empty() && (line.front() == u' ' || (line.front() >= u'\t' && line.front() <= u'\r')))
        line.remove_prefix(1);
    const bool negative = !line.empty() && line.front() == u'-';
    if (negative || (!line.empty() && line.front() == u'+')) line.remove_prefix(1);
    LONGLONG value = 0;
    for (const WCHAR c : line) {
        if (c < u'0' || c > u'9') break;
        value = std::min<LONGLONG>(value * 10 + (c - u'0'), LONGLONG{1} << 31);
    }
    return static_cast<int>(negative ? -value : std::min<LONGLONG>(value, INT32_MAX));
}

CString keyOf(const char* prefix, const char* name)
{
    CString key;
    if (prefix && *prefix) key.Format("%s-", prefix);
    return key + name;
}

CString fontValueName(int number)
{
    CString name;
    name.Format("Font %d", number);
    return name;
}

CString fontKeyOf(const char* prefix, unsigned number)
{
    CString name;
    name.Format("font-%u", number);
    return keyOf(prefix, name);
}

} // namespace

CFontDescriptor::CFontDescriptor() = default;
CFontDescriptor::~CFontDescriptor() = default;

CFontDescriptor::CFontDescriptor(const CFontDescriptor& other) : CObject() { CopyHelper(other); }

CFontDescriptor::CFontDescriptor(const WCHAR* text)
{
    if (!Parse(text)) {
        m_size = fallbackSize;
        m_fonts.Add(fallbackFace);
    }
    UpdateCombinedString();
}

CFontDescriptor& CFontDescriptor::operator=(const CFontDescriptor& other)
{
    if (this != &other) CopyHelper(other);
    return *this;
}

CFontDescriptor& CFontDescriptor::operator=(const WCHAR* text)
{
    Empty();
    Parse(text);
    UpdateCombinedString();
    return *this;
}

void CFontDescriptor::CopyHelper(const CFontDescriptor& other)
{
    m_size = other.m_size;
    m_fonts.Copy(other.m_fonts);
    m_combined = other.m_combined;
}

// False if a line is missing. The faces are limited by the lines that are there, whatever the count says.
bool CFontDescriptor::Parse(const WCHAR* text)
{
    std::u16string_view rest = text ? text : u"", size, count, face;
    if (!takeLine(rest, size) || !takeLine(rest, count)) return false;
    m_size = numberOf(size);
    for (int left = numberOf(count); left > 0; --left) {
        if (!takeLine(rest, face)) return false;
        m_fonts.Add(CString(face.data(), static_cast<int>(face.size())));
    }
    return true;
}

void CFontDescriptor::UpdateCombinedString()
{
    m_combined.Format("%d\n%d\n", m_size, GetCount());
    for (int i = 0; i < GetCount(); ++i) {
        m_combined += m_fonts.GetAt(i);
        m_combined += '\n';
    }
}

void CFontDescriptor::Empty()
{
    m_fonts.RemoveAll();
    m_size = 0;
}

void CFontDescriptor::AddFont(const char* face)
{
    m_fonts.Add(face);
    UpdateCombinedString();
}

void CFontDescriptor::ReplaceFont(int index, const char* face)
{
    if (index < 0 || index >= GetCount()) return;
    m_fonts.SetAt(index, face);
    UpdateCombinedString();
}

void CFontDescriptor::SetSize(int size)
{
    m_size = size;
    UpdateCombinedString();
}

CString CFontDescriptor::GetFont(int index) const
{
    return index >= 0 && index < GetCount() ? CString(m_fonts.GetAt(index)) : CString();
}

StringW CFontDescriptor::GetEmbeddingString() const { return StringW(m_combined.GetString()); }

int CFontDescriptor::LoadFromRegistry(CRegistryKey& parent, const char* keyName)
{
    m_fonts.RemoveAll();
    const auto load = [&] {
        CRegistryKey key;
        int count = 0;
        if (!key.Open(parent, keyName)) return 0;
        if (!key.GetValue("Size", m_size) || m_size == 0) return 0;
        if (!key.GetValue("Count", count) || count < 1) return 0;
        for (int i = 1; i <= count; ++i) {
            CString face;
            if (!key.GetValue(fontValueName(i), face)) return 0;
            m_fonts.Add(face);
        }
        return 1;
    };
    const int isLoaded = load();
    if (!isLoaded) m_fonts.RemoveAll();
    UpdateCombinedString();
    return isLoaded;
}

void CFontDescriptor::SaveToRegistry(CRegistryKey& parent, const char* keyName) const
{
    try {
        CRegistryKey key;
        key.Create(parent, keyName);
        key.SetValue("Size", m_size);
        key.SetValue("Count", GetCount());
        for (int i = 0; i < GetCount(); ++i) key.SetValue(fontValueName(i + 1), m_fonts.GetAt(i));
    } catch (CException* e) {
        e->Delete();
    }
}

void CFontDescriptor::ReadStream(CStream& stream)
{
    try {
        m_fonts.RemoveAll();
        const int count = stream.read_int32();
        if (count < 1) ThrowChainedException(nullptr, message::dataCorrupt);
        m_size = stream.read_int32();
        for (int i = 0; i < count; ++i) {
            CString face;
            stream.Read(face);
            m_fonts.Add(face);
        }
        UpdateCombinedString();
    } catch (CException* e) {
        m_fonts.RemoveAll();
        UpdateCombinedString();
        ThrowChainedException(e, message::fontReadFailed);
    }
}

void CFontDescriptor::WriteStream(CStream& stream) const
{
    try {
        stream.write_int32(GetCount());
        stream.write_int32(m_size);
        for (int i = 0; i < GetCount(); ++i) stream.Write(m_fonts.GetAt(i).GetString());
    } catch (CException* e) {
        ThrowChainedException(e, message::fontWriteFailed);
    }
}

bool CFontDescriptor::Load(IXPCConfigNode* node, const char* prefix)
{
    m_fonts.RemoveAll();
    const auto load = [&] {
        unsigned count = 0;
        if (!node->ReadInteger(keyOf(prefix, "size"), m_size) || m_size == 0) return false;
        if (!node->ReadInteger(keyOf(prefix, "count"), count) || count == 0) return false;
        for (unsigned i = 0; i < count; ++i) {
            CString face;
            if (!node->ReadString(fontKeyOf(prefix, i + 1), face)) return false;
            m_fonts.Add(face);
        }
        return true;
    };
    const bool isLoaded = load();
    UpdateCombinedString();
    return isLoaded;
}

void CFontDescriptor::Save(IXPCConfigNode* node, const char* prefix) const
{
    node->WriteInteger(keyOf(prefix, "size"), static_cast<DWORD>(m_size), m_size < 0 ? 0xFFFFFFFF : 0);
    node->WriteInteger(keyOf(prefix, "count"), static_cast<DWORD>(GetCount()), 0);
    for (int i = 0; i < GetCount(); ++i)
        node->WriteString(fontKeyOf(prefix, static_cast<unsigned>(i) + 1), m_fonts.GetAt(i));
}

CString CFontDescriptor::GetFontForLocale(WORD langId) const
{
    CFontSignature wanted, held;
    corekit::detail::getLocaleFontSignature(langId, wanted);
    for (int i = 0; i < GetCount(); ++i) {
        CFontMapInfo* const info = corekit::detail::FontRegistry::OfProcess().Find(GetFont(i));
        if (!info) break;
        info->GetSignature(held);
        if (held.Contains(wanted)) return GetFont(i);
    }
    return GetFont(0);
}
