// One step of a shaping run, for callers that go through a text by themselves.
#pragma once

#include "corekit/unicode/shaping/GlyphSink.h"

namespace corekit::detail {

// Appends to `out` what `shape(sink, text, end, index)` writes for the character at `index`, and moves the
// index to where it comes to. An index outside the text, or on its zero, moves by one and gives nothing.
template <class Shape>
void takeStep(StringW& out, const WCHAR* text, int& index, Shape shape)
{
    const int end = countedLength(textLength(text));
    if (index < 0 || index >= end) {
        ++index;
        return;
    }
    StringW keeper;
    text = GlyphSink::KeepApart(text, out, keeper);
    GlyphSink sink(out);
    index = shape(sink, text, end, index);
}

} // namespace corekit::detail
