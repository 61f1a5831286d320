// Drawing of text and shapes: device contexts, bitmaps, fonts, pens and brushes, and the operations on them,
// a header for each topic.
//
// Threads: an object belongs to one thread at a time. Whatever touches a font or text belongs to the
// user-interface thread, as its caches are not locked.
//
// Handles: a handle that is null, deleted, foreign or of the wrong kind is refused with
// ERROR_INVALID_HANDLE and the failure value told below; it never does harm. Up to 65,535 objects
// exist at a time.
//
// Pixels: every bitmap has 32 bits a pixel, 0xAARRGGBB in the machine's order, colour multiplied by
// alpha. A new bitmap is all 0. Fills and text leave the alpha that covers them, so a bitmap can serve
// as a key; who wants plain colour disregards the top byte.
//
// Text: a font is drawn unhinted and smoothed, at quarter-pixel positions within one call. Widths are
// summed exactly and rounded once, to the nearest pixel, at the end of a call.
//
// Units: coordinates count units of the context. A unit is a pixel of its bitmap; on a window of a display
// with a device pixel ratio it is as many pixels as that says, text and lines are drawn with all of them, and
// a bitmap that is compatible with the window has as many, too.
//
// Nothing is drawn outside of the bitmap or of the clip.
#pragma once

#include "corekit/platform/GdiBitmaps.h"
#include "corekit/platform/GdiContexts.h"
#include "corekit/platform/GdiFonts.h"
#include "corekit/platform/GdiFrames.h"
#include "corekit/platform/GdiRegions.h"
#include "corekit/platform/GdiShapes.h"
#include "corekit/platform/GdiText.h"
