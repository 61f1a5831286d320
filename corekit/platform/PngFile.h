// Bitmaps as PNG files.
#pragma once

#include "corekit/platform/GdiBitmaps.h"

// Quick is the way of SaveBitmapAsPng: a few times faster than small, for files that are somewhat larger.
enum class PngEffort { quick, small };

// Fails as SaveBitmapAsPng does.
COREKIT_API BOOL SaveBitmapAsPng(HBITMAP bitmap, const char* path, PngEffort effort);
