// Fonts: the faces of the machine, and what they measure.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr int LF_FACESIZE = 32;
// Weights and character sets that calls here answer.
inline constexpr int FW_NORMAL = 400;
inline constexpr int FW_BOLD = 700; // any weight from 600 up gives it
inline constexpr DWORD ANSI_CHARSET = 0;
inline constexpr DWORD DEFAULT_CHARSET = 1;   // says nothing
inline constexpr DWORD TRUETYPE_FONTTYPE = 4; // of EnumFontsA: a face with outlines

// What CreateFontA takes, in the same order: height and width in units, angles in tenths of a degree (only 0
// is had), weight as FW_ values. GetObjectA answers the height and width asked for.
struct LOGFONTA {
    LONG lfHeight, lfWidth, lfEscapement, lfOrientation, lfWeight;
    BYTE lfItalic, lfUnderline, lfStrikeOut, lfCharSet;
    BYTE lfOutPrecision, lfClipPrecision, lfQuality, lfPitchAndFamily;
    char lfFaceName[LF_FACESIZE]; // a longer name is cut; CreateFontA finds the face by the cut name, too
};

// All in units of the context. tmInternalLeading is what the cell has beyond the em, tmMaxCharWidth the
// width of the widest character.
struct TEXTMETRICA {
    LONG tmHeight; // tmAscent + tmDescent, the height of a line's cell
    LONG tmAscent, tmDescent, tmInternalLeading, tmExternalLeading;
    LONG tmAveCharWidth, tmMaxCharWidth, tmWeight, tmOverhang;
    LONG tmDigitizedAspectX, tmDigitizedAspectY;
    BYTE tmFirstChar, tmLastChar, tmDefaultChar, tmBreakChar;
    BYTE tmItalic, tmUnderlined, tmStruckOut, tmPitchAndFamily, tmCharSet;
};

struct FONTSIGNATURE {
    DWORD fsUsb[4]; // Unicode subset bits, as the face's OS/2 table has them
    DWORD fsCsb[2]; // code page bits
};

// A font of the face with this name, compared without regard to case (UTF-8); an unknown or empty name
// gives the default face, and GetTextFaceA tells which. A positive height is that of the cell, exactly
// (winAscent + winDescent); a negative one that of the em; 0 stands for an em of 16 pixels. A non-zero
// width is the average character width that the face is stretched to. Weights from 600 are bold.
// Character set, precisions, quality and pitch do not choose between faces here.
// Null if the em is above 4096 pixels, an angle is not 0 or the toolkit is not running.
COREKIT_API HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight,
                              DWORD italic, DWORD underline, DWORD strikeOut, DWORD charSet,
                              DWORD outPrecision, DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily,
                              const char* face);

COREKIT_API HFONT CreateFontIndirectA(const LOGFONTA* font);

// Metrics of the selected font in units: ascent is rounded to the nearest pixel, and descent completes the
// cell height asked for or, with an em height, is rounded likewise; widths are rounded to the nearest.
COREKIT_API BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics);
// Copies the real face name, cut to `size` bytes with its zero; returns the bytes copied, or needed if
// `face` is null, the zero counted. 0 on failure.
COREKIT_API int GetTextFaceA(HDC dc, int size, char* face);
// Fills `signature` (may be null) from the selected face: a Unicode bit stands if the face has what a text of
// the range cannot do without. Returns the face's character set, DEFAULT_CHARSET if it names none or on
// failure; the signature then is all 0. `flags` must be 0.
COREKIT_API int GetTextCharsetInfo(HDC dc, FONTSIGNATURE* signature, DWORD flags);

// Makes the faces of a font file known to this process, as if they were installed, until it ends; the
// file itself may go. Returns the number of faces that are new; 0 with a last error if the file is no font or
// the toolkit is not running.
COREKIT_API int AddFontResourceA(const char* path);

using FONTENUMPROCA = int (*)(const LOGFONTA*, const TEXTMETRICA*, DWORD type, LPARAM);
// Calls back for each style of the face named, with its metrics at an em of 32 pixels; for a null or empty
// name once for each face of the machine, which opens none of them: the metrics are all 0 then, and the font
// has little more than its name. Only scalable faces are told, so type has TRUETYPE_FONTTYPE set. Ends when
// the callback answers 0, and returns its last answer; 0 if there is nothing to tell or the toolkit is not
// running.
COREKIT_API int EnumFontsA(HDC dc, const char* face, FONTENUMPROCA callback, LPARAM parameter);
