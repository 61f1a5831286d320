// Pictures from files of the forms that the toolkit reads.
#pragma once

#include "corekit/platform/GdiBitmaps.h"

// The picture of a PNG file (or another form that the toolkit knows), laid over white where it is
// transparent. Up to 256 MiB of pixels. For the caller to delete; null with a last error.
COREKIT_API HBITMAP LoadPictureFile(const char* path);
