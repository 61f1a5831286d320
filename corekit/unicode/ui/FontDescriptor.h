// A font choice: an ordered list of faces at one size. A script mixes writing systems that no face covers
// alone, so drawing takes for each character the first face of the list that has it.
//
// As text it is the size, the number of faces and the faces, each followed by a line feed. That text is
// how a choice travels inside other text, and two descriptors are equal if their texts are equal without
// regard to case.
//
//     CFontDescriptor font;
//     font.SetSize(24);
//     font.AddFont("Arial");
//     font.AddFont("Noto Sans Devanagari");
//     CUnicodeManager::GetObjectA()->SetControlsFontDescriptor(font);
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"

class CRegistryKey;
class CStream;
class CWnd;
class IXPCConfigNode;

// A value. One thread at a time.
class COREKIT_API CFontDescriptor : public CObject {
    DECLARE_DYNAMIC(CFontDescriptor)
public:
    // Size 0, no faces, empty text.
    CFontDescriptor();
    CFontDescriptor(const CFontDescriptor& other);
    // Tolerant of any text: where a line is missing the size becomes 12 and "Arial" ends the faces.
    CFontDescriptor(const WCHAR* text);
    ~CFontDescriptor() override;

    CFontDescriptor& operator=(const CFontDescriptor& other);
    // Expects a whole text. Of any other, what was read up to the missing line stays.
    CFontDescriptor& operator=(const WCHAR* text);

    // No faces and size 0. The text, and so equality, stay as they were until the next change of face or
    // size, or the next load or read.
    void Empty();
    // At the end, behind the faces that are asked before it. Duplicates and unknown faces are taken.
    void AddFont(const char* face);
    // Nothing happens outside the list.
    void ReplaceFont(int index, const char* face);
    // Height as CreateFontA takes it: above 0 of a line, below 0 of the letters. It is not checked.
    void SetSize(int size);

    int GetCount() const { return m_fonts.GetSize(); }
    int GetSize() const { return m_size; } // as CreateFontA takes it
    // Face 0 is the primary one. Empty outside the list.
    CString GetFont(int index) const;
    // The descriptor as text, and the same as wide text.
    const CString& GetCombinedString() const { return m_combined; }
    StringW GetEmbeddingString() const;

    // The first face whose signature holds all of the language's; the primary face if none does or if a
    // face before it is unknown here.
    CString GetFontForLocale(WORD langId) const;

    // A key below `parent` with the values "Size", "Count" and "Font 1" and on. A load returns 0, without
    // faces, if one of them is missing or a number is not above 0 ("Size" may be below); a save reports
    // nothing.
    int LoadFromRegistry(CRegistryKey& parent, const char* keyName);
    void SaveToRegistry(CRegistryKey& parent, const char* keyName) const;

    // Count, size, faces. Throw CChainedException; a failed read leaves no faces.
    void ReadStream(CStream& stream);
    void WriteStream(CStream& stream) const;

    // Keys "size", "count", "font-1" and on, with the prefix and a hyphen before each unless it is null or
    // empty. A failed load returns false and keeps the faces that it found.
    bool Load(IXPCConfigNode* node, const char* prefix);
    // Writes what Load reads; keys of former faces stay.
    void Save(IXPCConfigNode* node, const char* prefix) const;

    // Lets the user choose: one font and its size, from there or with two faces and more several. 1 if the
    // choice was confirmed; otherwise nothing changes. With `readOnly` the user only looks.
    int DoSelectFontDialog(CWnd* parent, int readOnly);

    friend bool operator==(const CFontDescriptor& a, const CFontDescriptor& b)
    {
        return a.m_combined.CompareNoCase(b.m_combined) == 0;
    }

private:
    // Takes faces, size and text over.
    void CopyHelper(const CFontDescriptor& other);
    void UpdateCombinedString(); // after every change but Empty
    bool Parse(const WCHAR* text);

    int m_size = 0;
    CStringArray m_fonts; // the first one is asked first
    CString m_combined;   // what equality compares
};
