#include <corekit/CoreKit.h>
#include <cstdio>

int main()
{
    StringW word(u"\u0645\u0627\u0644\u0633"), glyphs; // in display order, left to right
    ConvertToGlyphs(word, -1, glyphs, false);
    for (int i = 0; i < glyphs.GetLength(); ++i) std::printf("U+%04X ", static_cast<unsigned>(glyphs[i]));

    CMemoryStream stream(0, 4096);
    stream.Write(static_cast<const WCHAR*>(glyphs));
    std::printf("in %u bytes\n", stream.GetSize());
}
