// Fonts for the glyph codes of Devanagari, Bengali and Tamil, made from an ordinary face of the machine.
//
// The shaping steps write codes U+E0xx, U+E1xx and U+E2xx, each a piece of writing: a letter without its
// stem, a half form, a mark that hangs over what stands before it. A glyph font holds the piece of code xx at
// position xx. The pieces are shaped by the base face's own rules, and its outlines and widths are taken
// over, so that the pieces of a word, set beside each other, make what the base face would have drawn.
//
// User-interface thread; needs a running toolkit.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/ShapingFace.h"
#include "corekit/platform/Types.h"

#include <string>
#include <vector>

enum class GlyphScript { Devanagari, Bengali, Tamil };

// "Devanagari", "Bengali", "Tamil".
COREKIT_API const char* NameOf(GlyphScript script);

struct BuiltGlyphFont {
    std::vector<BYTE> file; // a TrueType font
    int pieces = 0;         // positions with a meaning
    std::vector<WORD>
        withoutPart; // codes whose piece the base face does not draw apart; their positions are left out
};

// Makes the font of a script from `base`, under a face name of its own (printable ASCII, up to 31 bytes, as
// the font mapping finds it by this name). Copyright and licence of the base face go along.
COREKIT_API BuiltGlyphFont BuildGlyphFont(GlyphScript script, const ShapingFace& base,
                                          const std::string& faceName);

// Enters the face under "Font Mapping" in the registry as the one that holds the codes of the script. Throws
// message::createKeyFailed or message::setValueFailed if the registry cannot be written.
COREKIT_API void RegisterGlyphFont(GlyphScript script, const std::string& faceName);
// The same for this process only, by the script that the face is named after, as "CoreKit Tamil" is. False if
// the name ends in no script, the face has the script's own letters, or the machine has no such face. The
// manager must be there.
COREKIT_API bool UseAsGlyphFont(const std::string& faceName);
