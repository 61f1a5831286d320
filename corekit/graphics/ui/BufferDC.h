// CBufferDC: draws off screen and brings the result to the screen in one step.
//
// Its origin is the rectangle's upper left corner: callers offset what they draw. The target must live
// longer.
#pragma once

#include "corekit/framework/ui/DC.h"

class COREKIT_API CBufferDC : public CDC {
    DECLARE_DYNAMIC(CBufferDC)

    // A context with a bitmap of the rectangle's width and height in pixels, in the target's format. The
    // bitmap is not cleared. User-interface thread.
    CBufferDC(CDC* target, CRect rect, int blitOnDestruction);
    // Brings the result to the target first, if that is enabled.
    ~CBufferDC() override;

    void EnableBlitOnDestruction(int enable) { m_blitOnDestruction = enable; }
    // Copies to the rectangle's corner in the target, as wide and high as the rectangle's right and bottom
    // edge are far from 0; what the buffer does not have is not copied.
    void BlitToScreen();

private:
    CDC* m_target;
    CRect m_rect;
    int m_blitOnDestruction;
    HGDIOBJ m_before; // the bitmap that the context had first
    CBitmap m_bitmap;
};
