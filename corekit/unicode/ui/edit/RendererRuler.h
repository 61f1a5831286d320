// Measures text with a renderer, on a context of its own.
#pragma once

#include "corekit/platform/Gdi.h"
#include "corekit/unicode/ui/edit/TextRuler.h"

class CUniRender;

namespace corekit::detail {

class COREKIT_API RendererRuler final : public TextRuler {
public:
    // The renderer must outlive it and be used for nothing else; it may get other fonts.
    explicit RendererRuler(CUniRender& renderer) : m_renderer(renderer) {}
    ~RendererRuler();
    RendererRuler(const RendererRuler&) = delete;
    RendererRuler& operator=(const RendererRuler&) = delete;

    int Width(const WCHAR* text, int count) override;
    int Height(const WCHAR* text, int count); // of its tallest font, and 2

private:
    void Attach();

    CUniRender& m_renderer;
    HDC m_context = nullptr;
};

} // namespace corekit::detail
