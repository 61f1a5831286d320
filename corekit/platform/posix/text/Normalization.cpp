#include "corekit/platform/Normalization.h"

#include "corekit/platform/Errors.h"

#include <string_view>
#include <unicode/unorm2.h>

namespace {

const UNormalizer2* normalizerOf(NORM_FORM form)
{
    UErrorCode error = U_ZERO_ERROR;
    if (form == NormalizationC) return unorm2_getNFCInstance(&error);
    if (form == NormalizationD) return unorm2_getNFDInstance(&error);
    return nullptr;
}

int refuse(DWORD error)
{
    SetLastError(error);
    return 0;
}

} // namespace

int NormalizeString(NORM_FORM form, const WCHAR* text, int length, WCHAR* result, int size)
{
    const UNormalizer2* const normalizer = normalizerOf(form);
    if (!normalizer || !text || length < -1 || size < 0) return refuse(ERROR_INVALID_PARAMETER);
    if (length == -1) length = static_cast<int>(std::u16string_view(text).size()) + 1;
    UErrorCode error = U_ZERO_ERROR;
    const int made = unorm2_normalize(normalizer, text, length, result, result ? size : 0, &error);
    if (error == U_BUFFER_OVERFLOW_ERROR) return result ? refuse(ERROR_INSUFFICIENT_BUFFER) : made;
    return U_FAILURE(error) ? refuse(ERROR_INVALID_PARAMETER) : made;
}
