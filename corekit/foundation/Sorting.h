// Sorting in place.
#pragma once

#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/platform/Export.h"

// Sorts `count` elements of `width` bytes. `compare` is given the context and two elements, and answers
// below, equal to or above 0. Not stable, but which of two equal elements comes first is always the same: a
// quicksort around the middle element, with a selection sort for parts of eight elements or fewer. An
// inconsistent `compare` gives some order and harms nothing.
COREKIT_API void QuickSort(void* base, unsigned count, unsigned width, void* context,
                           int (*compare)(void* context, const void* a, const void* b));

// Ascending order. Integers compare by their 32-bit difference, so values more than 2^31 apart do not sort
// rightly; texts compare without regard to case, and equal ones keep their order.
COREKIT_API void SortArray(CByteArray& array);
COREKIT_API void SortArray(CArray<int, int>& array);
// Texts are sorted by pointers first, so that each is moved once.
COREKIT_API void SortArray(CStringArray& array);
COREKIT_API void SortArray(CArray<StringA, const char*>& array);
COREKIT_API void SortArray(CArray<StringW, const WCHAR*>& array);

// The key of a map by GUID: its first 32 bits as they stand.
constexpr UINT HashKey(_GUID guid) { return guid.Data1; }
