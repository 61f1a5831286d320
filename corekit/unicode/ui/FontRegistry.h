// The faces of the machine, with what each covers.
#pragma once

#include "corekit/framework/Map.h"
#include "corekit/framework/String.h"
#include "corekit/framework/ui/DC.h"
#include "corekit/platform/Types.h"

class CFontMapInfo;
class CFontSignature;
struct LOGFONTA;
struct TEXTMETRICA;

namespace corekit::detail {

// Names of faces compare without regard to case. User-interface thread.
class FontRegistry {
public:
    // Drawn under its name also where the machine has not got it, so it is always listed.
    static constexpr const char* usualFace = "Arial";

    // That of the process; empty until List.
    static FontRegistry& OfProcess();

    FontRegistry();
    ~FontRegistry();
    FontRegistry(const FontRegistry&) = delete;
    FontRegistry& operator=(const FontRegistry&) = delete;

    // Lists the scalable faces. Throws CMemoryException if that cannot be done.
    void List();

    bool Has(const char* face) const;
    // The record of a face, its signature read; null for a face that is not listed.
    CFontMapInfo* Find(const char* face);
    // Walks all faces, in no order. Null when there is none or no more.
    POSITION First() const;
    CString Next(POSITION& position) const;

private:
    static int Take(const LOGFONTA* font, const TEXTMETRICA* metrics, DWORD type, LPARAM registry);
    void Add(const char* face);

    CMapStringToOb m_faces; // upper-case face name to an owned CFontMapInfo
    CDC m_dc;               // a memory context, to read font data
};

// What a language needs of a font. A private language (bit 0x200) needs one range of private glyphs. Left as
// it was for a language that neither the platform nor this library knows.
void getLocaleFontSignature(WORD locale, CFontSignature& signature);

} // namespace corekit::detail
