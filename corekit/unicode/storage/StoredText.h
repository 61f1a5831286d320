// Text as this suite keeps it, and as everybody else does.
//
// The shaping steps, the keyboards and the fonts of glyph codes agree on spellings of their own: the Farsi
// yeh is kept as the letters that have joined forms, Bengali vowel signs by codes that stand behind their
// cluster, conjuncts of Devanagari as letters. Text that comes in (files, the clipboard, messages) passes
// ToStoredText before it is shown or edited here, and ToPlainText before it leaves; both work on whole lines
// or more, as letters take their form from their neighbours. docs/stored-text.md shows each rule.
//
// ToStoredText changes nothing in text that it has made, and ToPlainText gives back the text composed (NFC)
// in the letters of its language; what cannot come back stands in the page. Any thread.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

using StoredText = StringW;

// A negative length means up to the terminator. The language decides between letters that are kept as one:
// the Farsi and the Arabic yeh, heh with hamza and teh marbuta of Urdu; only its primary part counts, and for
// 0 it is seen from the letters. No rule asks for it on the way in.
COREKIT_API StoredText ToStoredText(const WCHAR* text, int length, LANGID language = 0);
COREKIT_API StringW ToPlainText(const WCHAR* stored, int length, LANGID language = 0);
