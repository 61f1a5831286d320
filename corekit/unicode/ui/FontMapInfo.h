// What is kept for each face of the machine: its signature, read when it is first asked for.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"
#include "corekit/unicode/ui/FontSignature.h"

class CDC;
class CRegistryKey;

// The signature of a face that the registry maps comes from there, with the rules of its private glyphs:
// HKEY_LOCAL_MACHINE\Software\Corvane\Unicode Support\Font Mapping\<face name>, see
// docs/unicode-manager.md. That of all others is what the face itself claims.
//
// Owned by the list of faces; belongs to the user-interface thread.
class COREKIT_API CFontMapInfo : public CObject {
    DECLARE_DYNAMIC(CFontMapInfo)
public:
    // Of a face of the machine, whose name is kept as the system writes it. Nothing is read yet.
    explicit CFontMapInfo(const char* face);

    ~CFontMapInfo() override;

    bool IsLoaded() const { return m_loaded != 0; } // by Load or BecomeGlyphFont
    const CString& GetFaceName() const { return m_face; }
    // Fills the signature from the registry, else from the face. Never fails: where the face cannot be had,
    // it is what the platform answers.
    void Load(CDC* dc);
    // Makes it a font of the private range whose bit this is, whatever registry and face say; until the
    // manager goes.
    void BecomeGlyphFont(DWORD customSignature);
    // A copy, or the signature itself, which lives as long as the record; empty before Load.
    void GetSignature(CFontSignature& out) const { out = m_signature; }
    const CFontSignature& GetSignature() const { return m_signature; }

private:
    // False if the registry does not map the face; the rules are read with it.
    bool LoadFromRegistry();
    void LoadRules(const CRegistryKey& key); // zones and mappings
    void LoadFromPlatform(CDC* dc);          // selects the face for a moment

    BOOL m_loaded = FALSE;
    CString m_face;
    CFontSignature m_signature;
};
