#include "corekit/platform/Accelerators.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/posix/user/UserObjects.h"

#include <algorithm>
#include <vector>

namespace {
using Tables =
    corekit::detail::UserTable<HACCEL, const std::vector<ACCEL>, corekit::detail::HandleKind::accelerators>;
}

HACCEL CreateAcceleratorTableA(const ACCEL* rows, int count)
{
    if (!rows || count < 1 || count > maximumAccelerators) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return Tables::Open(std::make_unique<const std::vector<ACCEL>>(rows, rows + count));
}

BOOL DestroyAcceleratorTable(HACCEL table)
{
    if (Tables::Close(table)) return TRUE;
    SetLastError(ERROR_INVALID_ACCEL_HANDLE);
    return FALSE;
}

int CopyAcceleratorTableA(HACCEL handle, ACCEL* rows, int count)
{
    const auto table = Tables::Find(handle);
    if (!table) SetLastError(ERROR_INVALID_ACCEL_HANDLE);
    const int present = table ? static_cast<int>(table->size()) : 0;
    if (!rows || !table) return present;
    const int copied = std::clamp(count, 0, present);
    std::copy_n(table->begin(), copied, rows);
    return copied;
}
