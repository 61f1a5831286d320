// Hours, minutes, seconds and frames in four bytes, at one frame rate for the whole process.
//
// The process starts in PAL, 25 frames a second; module start switches it to 30 where the machine is set to
// NTSC. There is no drop-frame counting. A timecode carries no rate of its own: when the rate changes, values
// change their meaning. Any four bytes may be held; a value is invalid when its frames reach the rate or its
// seconds or minutes pass 59, while hours run to 255. Nothing here throws. Values are plain; the rate may be
// read on any thread and is set at start.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <atomic>
#include <compare>

class CStream;

class COREKIT_API CTimecode {
public:
    static void SetPAL();
    static void SetNTSC(int bDropFrame); // the flag is kept and not used
    static int GetFramesPerSec() { return m_nFPS.load(std::memory_order_relaxed); }

    constexpr CTimecode() = default;
    // Each field is cut to 8 bits.
    constexpr CTimecode(int hours, int minutes, int seconds, int frames)
        : m_hours(static_cast<BYTE>(hours)), m_minutes(static_cast<BYTE>(minutes)),
          m_seconds(static_cast<BYTE>(seconds)), m_frames(static_cast<BYTE>(frames))
    {
    }
    constexpr explicit CTimecode(DWORD packed) { SetFromDWORD(packed); }
    static CTimecode MakeFromFrameCount(int frames);
    static constexpr CTimecode MakeInvalid() { return {255, 255, 255, 255}; }
    static CTimecode Now(); // of the system's clock, in UTC

    constexpr BYTE GetHours() const { return m_hours; }
    constexpr BYTE GetMinutes() const { return m_minutes; }
    constexpr BYTE GetSeconds() const { return m_seconds; }
    constexpr BYTE GetFrames() const { return m_frames; }
    bool IsInvalid() const;

    // Packed: hours in the top byte, then minutes, seconds and frames. Values are ordered by it.
    constexpr DWORD GetAsDWORD() const
    {
        return static_cast<DWORD>(m_hours) << 24 | static_cast<DWORD>(m_minutes) << 16 |
               static_cast<DWORD>(m_seconds) << 8 | m_frames;
    }
    constexpr void SetFromDWORD(DWORD packed)
    {
        m_hours = static_cast<BYTE>(packed >> 24);
        m_minutes = static_cast<BYTE>(packed >> 16);
        m_seconds = static_cast<BYTE>(packed >> 8);
        m_frames = static_cast<BYTE>(packed);
    }
    friend constexpr bool operator==(const CTimecode&, const CTimecode&) = default;
    friend constexpr auto operator<=>(const CTimecode&, const CTimecode&) = default;

    int GetAsFrameCount() const;
    void SetFromFrameCount(DWORD frames); // hours past 255 wrap
    int GetAsFieldCount() const { return 2 * GetAsFrameCount(); }
    void SetFromFieldCount(DWORD fields) { SetFromFrameCount(fields / 2); }
    int GetAsSeconds() const; // rounded, half the rate and more going up
    int GetFramesAsMilliseconds() const;

    // "hh:mm:ss:ff", or dashes for an invalid value.
    CString MakeString() const;
    // Takes two characters each at 0, 3, 6 and 9 of a text with colons between; what follows is let pass and
    // digits are not checked. Otherwise false, and the value is invalid.
    bool SetFromString(const char* text);
    bool SetFromString(const WCHAR* text);

    // Two decimal digits a byte, the tens in the high half. Reading an invalid value gives 0xFF throughout.
    void SetFromBCD(BYTE hours, BYTE minutes, BYTE seconds, BYTE frames);
    void GetAsBCD(BYTE& hours, BYTE& minutes, BYTE& seconds, BYTE& frames) const;
    DWORD GetAsBCD() const;

    // Sums carry up to the hours, which wrap at 256. A difference below zero is invalid; operator-= then
    // leaves the borrowed lower fields beside the old hours.
    CTimecode operator+(const CTimecode& other) const;
    CTimecode& operator+=(const CTimecode& other);
    CTimecode operator-(const CTimecode& other) const;
    CTimecode& operator-=(const CTimecode& other);
    // The distance either way; invalid if one of the two is.
    CTimecode DifferenceFrom(const CTimecode& other) const;
    // Both ends count; with a after b the range runs through midnight.
    bool IsBetween(const CTimecode& a, const CTimecode& b) const;
    static bool IsBetween(const CTimecode& value, const CTimecode& a, const CTimecode& b);

    // By the zone's offset as it was at the first use; see TimeFunctions.h.
    CTimecode LocalToUTC() const;
    CTimecode UTCToLocal() const;

    // The packed form as a 32-bit little-endian integer.
    void WriteStream(CStream& stream) const;
    void ReadStream(CStream& stream);

    // The same form for each element, one after the other. Bytes beyond a whole value are left out.
    static void ConvertToBLOB(const CArray<CTimecode, CTimecode&>& values, CByteArray& blob);
    static void ConvertFromBLOB(const CByteArray& blob, CArray<CTimecode, CTimecode&>& values);
    static void ConvertFromBLOB(const CByteArray& blob, CDWordArray& values);
    static void AddToBLOB(CByteArray& blob, const CTimecode& value);

private:
    static std::atomic<int> m_nFPS;
    static std::atomic<int> m_bDropFrame;

    void Fixup();
    bool Borrow(const CTimecode& other); // false, with the hours untouched, if they would go below zero

    BYTE m_hours = 0;
    BYTE m_minutes = 0;
    BYTE m_seconds = 0;
    BYTE m_frames = 0;
};

static_assert(sizeof(CTimecode) == 4);
