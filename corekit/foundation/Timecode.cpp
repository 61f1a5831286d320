#include "corekit/foundation/Timecode.h"

#include "corekit/foundation/Stream.h"
#include "corekit/platform/SystemTime.h"

#include <cstdlib>
#include <cstring>
#include <string_view>

constinit std::atomic<int> CTimecode::m_nFPS = 25;
constinit std::atomic<int> CTimecode::m_bDropFrame = 0;

namespace {
constexpr std::size_t textLength = 11;

BYTE fromBCD(BYTE value) { return static_cast<BYTE>((value >> 4) * 10 + (value & 15)); }
BYTE toBCD(BYTE value) { return static_cast<BYTE>((value / 10) * 16 + value % 10); }

// What atoi makes of two characters; those outside ASCII are no digits.
template <class Char>
int twoDigits(const Char* text)
{
    const char digits[3] = {text[0] < 128 ? static_cast<char>(text[0]) : 'x',
                            text[1] < 128 ? static_cast<char>(text[1]) : 'x', 0};
    return std::atoi(digits);
}

template <class Char>
bool fromText(const Char* text, CTimecode& value)
{
    value = CTimecode::MakeInvalid();
    if (!text || std::char_traits<Char>::length(text) < textLength) return false;
    if (text[2] != ':' || text[5] != ':' || text[8] != ':') return false;
    value = CTimecode(twoDigits(text), twoDigits(text + 3), twoDigits(text + 6), twoDigits(text + 9));
    return true;
}
} // namespace

void CTimecode::SetPAL()
{
    m_nFPS = 25;
    m_bDropFrame = 0;
}

void CTimecode::SetNTSC(int bDropFrame)
{
    m_nFPS = 30;
    m_bDropFrame = bDropFrame;
}

CTimecode CTimecode::MakeFromFrameCount(int frames)
{
    CTimecode value;
    value.SetFromFrameCount(static_cast<DWORD>(frames));
    return value;
}

CTimecode CTimecode::Now()
{
    SYSTEMTIME now;
    GetSystemTime(&now);
    return {now.wHour, now.wMinute, now.wSecond, now.wMilliseconds * GetFramesPerSec() / 1000};
}

bool CTimecode::IsInvalid() const
{
    return m_frames >= GetFramesPerSec() || m_seconds > 59 || m_minutes > 59;
}

int CTimecode::GetAsFrameCount() const
{
    return ((m_hours * 60 + m_minutes) * 60 + m_seconds) * GetFramesPerSec() + m_frames;
}

void CTimecode::SetFromFrameCount(DWORD frames)
{
    const DWORD rate = static_cast<DWORD>(GetFramesPerSec()), seconds = frames / rate;
    m_frames = static_cast<BYTE>(frames % rate);
    m_seconds = static_cast<BYTE>(seconds % 60);
    m_minutes = static_cast<BYTE>(seconds / 60 % 60);
    m_hours = static_cast<BYTE>(seconds / 3600);
}

int CTimecode::GetAsSeconds() const
{
    return (m_hours * 60 + m_minutes) * 60 + m_seconds + (m_frames >= GetFramesPerSec() / 2 ? 1 : 0);
}

int CTimecode::GetFramesAsMilliseconds() const { return m_frames * 1000 / GetFramesPerSec(); }

CString CTimecode::MakeString() const
{
    CString text("--:--:--:--");
    if (!IsInvalid()) text.Format("%02d:%02d:%02d:%02d", m_hours, m_minutes, m_seconds, m_frames);
    return text;
}

bool CTimecode::SetFromString(const char* text)
{
    return fromText(reinterpret_cast<const unsigned char*>(text), *this);
}
bool CTimecode::SetFromString(const WCHAR* text) { return fromText(text, *this); }

void CTimecode::SetFromBCD(BYTE hours, BYTE minutes, BYTE seconds, BYTE frames)
{
    *this = CTimecode(fromBCD(hours), fromBCD(minutes), fromBCD(seconds), fromBCD(frames));
}

void CTimecode::GetAsBCD(BYTE& hours, BYTE& minutes, BYTE& seconds, BYTE& frames) const
{
    const CTimecode digits(GetAsBCD());
    hours = digits.m_hours;
    minutes = digits.m_minutes;
    seconds = digits.m_seconds;
    frames = digits.m_frames;
}

DWORD CTimecode::GetAsBCD() const
{
    if (IsInvalid()) return 0xFFFFFFFF;
    return CTimecode(toBCD(m_hours), toBCD(m_minutes), toBCD(m_seconds), toBCD(m_frames)).GetAsDWORD();
}

void CTimecode::Fixup()
{
    const int rate = GetFramesPerSec();
    m_seconds = static_cast<BYTE>(m_seconds + m_frames / rate);
    m_frames = static_cast<BYTE>(m_frames % rate);
    m_minutes = static_cast<BYTE>(m_minutes + m_seconds / 60);
    m_seconds %= 60;
    m_hours = static_cast<BYTE>(m_hours + m_minutes / 60);
    m_minutes %= 60;
}

CTimecode& CTimecode::operator+=(const CTimecode& other)
{
    *this = CTimecode(m_hours + other.m_hours, m_minutes + other.m_minutes, m_seconds + other.m_seconds,
                      m_frames + other.m_frames);
    Fixup();
    return *this;
}
CTimecode CTimecode::operator+(const CTimecode& other) const { return CTimecode(*this) += other; }

bool CTimecode::Borrow(const CTimecode& other)
{
    const auto take = [](BYTE& field, BYTE amount, int borrowed, int unit) {
        const int difference = field - amount - borrowed;
        field = static_cast<BYTE>(difference < 0 ? difference + unit : difference);
        return difference < 0 ? 1 : 0;
    };
    const CTimecode less = other; // it may be this value
    int borrowed = take(m_frames, less.m_frames, 0, GetFramesPerSec());
    borrowed = take(m_seconds, less.m_seconds, borrowed, 60);
    borrowed = take(m_minutes, less.m_minutes, borrowed, 60);
    const int hours = m_hours - less.m_hours - borrowed;
    if (hours < 0) return false;
    m_hours = static_cast<BYTE>(hours);
    return true;
}

CTimecode CTimecode::operator-(const CTimecode& other) const
{
    CTimecode result = *this;
    return result.Borrow(other) ? result : MakeInvalid();
}
CTimecode& CTimecode::operator-=(const CTimecode& other)
{
    static_cast<void>(Borrow(other));
    return *this;
}

CTimecode CTimecode::DifferenceFrom(const CTimecode& other) const
{
    if (IsInvalid() || other.IsInvalid()) return MakeInvalid();
    return *this > other ? *this - other : other - *this;
}

bool CTimecode::IsBetween(const CTimecode& a, const CTimecode& b) const
{
    return a > b ? *this >= a || *this <= b : *this >= a && *this <= b;
}
bool CTimecode::IsBetween(const CTimecode& value, const CTimecode& a, const CTimecode& b)
{
    return value.IsBetween(a, b);
}

void CTimecode::WriteStream(CStream& stream) const { stream.write_DWORD(GetAsDWORD()); }
void CTimecode::ReadStream(CStream& stream) { SetFromDWORD(stream.read_DWORD()); }

void CTimecode::ConvertToBLOB(const CArray<CTimecode, CTimecode&>& values, CByteArray& blob)
{
    if (values.GetSize() > INT_MAX / 4) AfxThrowMemoryException();
    blob.SetSize(values.GetSize() * 4);
    for (int i = 0; i < values.GetSize(); ++i) {
        const DWORD packed = values[i].GetAsDWORD();
        std::memcpy(blob.GetData() + i * 4, &packed, sizeof packed);
    }
}

void CTimecode::ConvertFromBLOB(const CByteArray& blob, CArray<CTimecode, CTimecode&>& values)
{
    values.SetSize(blob.GetSize() / 4);
    for (int i = 0; i < values.GetSize(); ++i) {
        DWORD packed;
        std::memcpy(&packed, blob.GetData() + i * 4, sizeof packed);
        values[i].SetFromDWORD(packed);
    }
}

void CTimecode::ConvertFromBLOB(const CByteArray& blob, CDWordArray& values)
{
    values.SetSize(blob.GetSize() / 4);
    if (values.GetSize() == 0) return;
    std::memcpy(values.GetData(), blob.GetData(), static_cast<std::size_t>(values.GetSize()) * sizeof(DWORD));
}

void CTimecode::AddToBLOB(CByteArray& blob, const CTimecode& value)
{
    const DWORD packed = value.GetAsDWORD();
    for (int shift = 0; shift < 32; shift += 8) blob.Add(static_cast<BYTE>(packed >> shift));
}
