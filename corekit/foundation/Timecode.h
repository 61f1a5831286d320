// Hours, minutes, seconds and frames in four bytes, at one frame rate for the whole process.
//
// The process starts in PAL, 25 frames a second; module start switches it to 30 where the machine is set to
// NTSC. There is no drop-frame counting. A timecode carries no rate of its own: when the rate changes, values
// change their meaning. Any four bytes may be held; a value is invalid when its frames reach the rate or its
// seconds or minutes pass 59, while hours run to 255. Nothing here throws. Values are plain; the rate may be
// read on any thread and is set at start.
//
//     CTimecode start(10, 0, 0, 0), length;
//     if (length.SetFromString("00:01:30:12"))
//         text = (start + length).MakeString(); // "10:01:30:12"
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
    // 25 frames a second, or 30, for all timecodes of the process at once.
    static void SetPAL();
    static void SetNTSC(int bDropFrame); // the flag is kept and not used

    static int GetFramesPerSec() { return m_nFPS.load(std::memory_order_relaxed); } // 25 or 30

    constexpr CTimecode() = default; // 00:00:00:00
    // Each field is cut to 8 bits.
    constexpr CTimecode(int hours, int minutes, int seconds, int frames)
        : m_hours(static_cast<BYTE>(hours)), m_minutes(static_cast<BYTE>(minutes)),
          m_seconds(static_cast<BYTE>(seconds)), m_frames(static_cast<BYTE>(frames))
    {
    }
    // From the packed form, see GetAsDWORD.
    constexpr explicit CTimecode(DWORD packed) { SetFromDWORD(packed); }
    // As SetFromFrameCount; a negative count is taken as unsigned.
    static CTimecode MakeFromFrameCount(int frames);
    // All four bytes 255, which is invalid at every rate.
    static constexpr CTimecode MakeInvalid() { return {255, 255, 255, 255}; }
    // Of the system's clock, in UTC. Milliseconds become frames, rounded down.
    static CTimecode Now();

    // The four fields as they are held, 0 to 255 each.
    constexpr BYTE GetHours() const { return m_hours; }
    constexpr BYTE GetMinutes() const { return m_minutes; }
    constexpr BYTE GetSeconds() const { return m_seconds; }
    constexpr BYTE GetFrames() const { return m_frames; } // not reduced to the rate
    // At the rate of the moment: frames not below it, or seconds or minutes above 59.
    bool IsInvalid() const;

    // Packed: hours in the top byte, then minutes, seconds and frames. Values are ordered by it, invalid
    // ones too.
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
    // Compare the fields, hours first; no rate and no validity comes into it.
    friend constexpr bool operator==(const CTimecode&, const CTimecode&) = default;
    friend constexpr auto operator<=>(const CTimecode&, const CTimecode&) = default;

    // Frames since 00:00:00:00 at the rate of the moment. At most 27,647,999 for a valid value.
    int GetAsFrameCount() const;
    // The inverse; hours past 255 wrap.
    void SetFromFrameCount(DWORD frames);
    // Two fields are a frame; an odd one is dropped.
    int GetAsFieldCount() const { return 2 * GetAsFrameCount(); }
    void SetFromFieldCount(DWORD fields) { SetFromFrameCount(fields / 2); }
    // Whole seconds since 00:00:00:00, rounded, half the rate and more going up; half of 25 counts as 12.
    int GetAsSeconds() const;
    // The frames alone, 0 to 999 for a valid value, rounded down.
    int GetFramesAsMilliseconds() const;

    // "hh:mm:ss:ff", or dashes for an invalid value.
    CString MakeString() const;
    // Takes two characters each at 0, 3, 6 and 9 of a text with colons between; what follows is let pass and
    // digits are not checked. Otherwise false, and the value is invalid.
    bool SetFromString(const char* text);
    bool SetFromString(const WCHAR* text);

    // Two decimal digits a byte, the tens in the high half, as machine control protocols send them. Digits
    // above 9 are not refused. Reading an invalid value gives 0xFF throughout; hours above 99 have no true
    // form.
    void SetFromBCD(BYTE hours, BYTE minutes, BYTE seconds, BYTE frames);
    void GetAsBCD(BYTE& hours, BYTE& minutes, BYTE& seconds, BYTE& frames) const;
    // All four in one, the hours in the top byte.
    DWORD GetAsBCD() const;

    // Sums carry up to the hours, which wrap at 256. A difference below zero is invalid; operator-= then
    // leaves the borrowed lower fields beside the old hours. Both operands should be valid: fields are not
    // checked.
    CTimecode operator+(const CTimecode& other) const;
    CTimecode& operator+=(const CTimecode& other);
    CTimecode operator-(const CTimecode& other) const; // invalid below zero
    CTimecode& operator-=(const CTimecode& other);
    // The distance either way; invalid if one of the two is.
    CTimecode DifferenceFrom(const CTimecode& other) const;
    // Both ends count; with a after b the range runs through midnight.
    bool IsBetween(const CTimecode& a, const CTimecode& b) const;
    static bool IsBetween(const CTimecode& value, const CTimecode& a, const CTimecode& b);

    // By the zone's offset as it was at the first use; see TimeFunctions.h. The result stays within the
    // day.
    CTimecode LocalToUTC() const;
    CTimecode UTCToLocal() const;

    // The packed form as a 32-bit little-endian integer; throw what the stream throws.
    void WriteStream(CStream& stream) const;
    void ReadStream(CStream& stream);

    // The same form for each element, one after the other. Bytes beyond a whole value are left out.
    static void ConvertToBLOB(const CArray<CTimecode, CTimecode&>& values, CByteArray& blob);
    static void ConvertFromBLOB(const CByteArray& blob, CArray<CTimecode, CTimecode&>& values);
    static void ConvertFromBLOB(const CByteArray& blob, CDWordArray& values);
    static void AddToBLOB(CByteArray& blob, const CTimecode& value);

private:
    static std::atomic<int> m_nFPS;       // frames a second
    static std::atomic<int> m_bDropFrame; // as SetNTSC was given it

    void Fixup();                        // carries from the frames up to the hours
    bool Borrow(const CTimecode& other); // false, with the hours untouched, if they would go below zero

    BYTE m_hours = 0; // 0 to 255
    BYTE m_minutes = 0;
    BYTE m_seconds = 0;
    BYTE m_frames = 0; // below the rate if it is valid
};

static_assert(sizeof(CTimecode) == 4);
