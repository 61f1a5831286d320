#include "TypedLine.h"

#include "ShownText.h"

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "corekit/unicode/shaping/GlyphConversion.h"

#include <algorithm>
#include <utility>

TypedLine::Change TypedLine::Press(const KeyStroke& stroke, char16_t platform)
{
    Typist::Typed typed = m_typist.Press(stroke);
    if (!typed.consumed && stroke.key == VK_BACK) {
        if (!m_text.empty()) m_text.pop_back();
        return {false, {}};
    }
    if (!typed.consumed) {
        const char16_t character = platform != 0 ? platform : PlatformCharacter(m_board, stroke);
        if (character != 0) typed.characters = character;
    }
    m_text += typed.characters;
    return {typed.consumed, std::move(typed.characters)};
}

std::u16string TypedLine::GetGlyphs() const
{
    StringW visual(m_text.data(), static_cast<int>(m_text.size()));
    CArray<int, int> order, types;
    ReorderToVisual(visual, order, types, GetBaseLevel(visual, visual.GetLength()));
    StringW glyphs;
    ConvertToGlyphs(visual, visual.GetLength(), glyphs, false);
    return {static_cast<const WCHAR*>(glyphs), static_cast<std::size_t>(glyphs.GetLength())};
}

std::u16string TerminalText(const std::u16string& glyphs, const std::u16string& text)
{
    const auto isPrivate = [](char16_t c) { return c >= 0xE000 && c <= 0xF8FF; };
    return std::ranges::any_of(glyphs, isPrivate) ? StandardText(text) : glyphs;
}
