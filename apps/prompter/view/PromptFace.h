// Measures and draws lines of stored text in the faces of the prompt view.
#pragma once

#include "model/PromptLayout.h"
#include "view/PromptStyle.h"

#include "corekit/unicode/ui/UniRender.h"

#include <string>
#include <unordered_map>

namespace prompter {

class PromptFace : public TextRuler {
public:
    PromptFace();
    ~PromptFace() override;
    PromptFace(const PromptFace&) = delete;
    PromptFace& operator=(const PromptFace&) = delete;

    // Throws CChainedException if no face can be made.
    void SetStyle(const PromptStyle& style);

    int Width(std::u16string_view stored) override;
    // `level` is that of the line's paragraph: 0, or 1 from right to left. Colours are those of the context,
    // whose alignment must be TA_LEFT | TA_BASELINE.
    void Draw(HDC dc, int x, int baseline, std::u16string_view stored, int level);

private:
    // The line in display order as glyph codes, in m_glyphs and m_types.
    void Shape(std::u16string_view stored, int level);
    int Measured(std::u16string_view stored);

    struct Hash : std::hash<std::u16string_view> {
        using is_transparent = void;
    };

    CUniRender m_render;
    HDC m_measuring; // a context for measuring, which has no pixels
    Brackets m_brackets = Brackets::mirrored;
    StringW m_text, m_glyphs;
    CArray<int, int> m_order, m_types;
    std::unordered_map<std::u16string, int, Hash, std::equal_to<>> m_widths; // of words that were measured
};

} // namespace prompter
