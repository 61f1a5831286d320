// Measures text with a renderer, on a context of its own.
#pragma once

#include "corekit/platform/Gdi.h"
#include "corekit/unicode/ui/edit/TextRuler.h"

#include <string>
#include <unordered_map>

class CUniRender;

namespace corekit::detail {

// User-interface thread. The context is made by the first question and given up with the object.
class COREKIT_API RendererRuler final : public TextRuler {
public:
    // The renderer must outlive it and be used for nothing else; it may get other fonts, after which Forget
    // is called.
    explicit RendererRuler(CUniRender& renderer) : m_renderer(renderer) {}
    ~RendererRuler(); // detaches the renderer
    RendererRuler(const RendererRuler&) = delete;
    RendererRuler& operator=(const RendererRuler&) = delete;

    // Text of more than 512 characters is measured in pieces of that many, runs of marks in shorter ones.
    int Width(const WCHAR* text, int count) override;

    int Height(const WCHAR* text, int count); // of its tallest font, and 2

    void Forget() { m_markWidths.clear(); }

private:
    void Attach(); // the renderer to the context, once
    int PieceWidth(const WCHAR* text, int count);

    // Attached to the context from the first question on, so that none costs that again.
    CUniRender& m_renderer;
    HDC m_context = nullptr;                              // owned
    std::unordered_map<std::u16string, int> m_markWidths; // of pieces that are marks from end to end
};

} // namespace corekit::detail
