// How many hold a thing that is freed after the last of them.
#pragma once

#include "corekit/platform/OnlyThread.h"

#include <atomic>
#include <cstdint>

namespace corekit::detail {

class ShareCount {
public:
    // Seen by somebody else than the one who asks; who holds the only share may change the thing.
    bool IsShared() const { return m_shares.load(std::memory_order_acquire) != 1; }
    void Share()
    {
        if (onlyThread())
            m_shares.store(m_shares.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
        else
            m_shares.fetch_add(1, std::memory_order_relaxed);
    }
    // True for the last share.
    bool Unshare()
    {
        if (!IsShared()) return true;
        if (!onlyThread()) return m_shares.fetch_sub(1, std::memory_order_acq_rel) == 1;
        m_shares.store(m_shares.load(std::memory_order_relaxed) - 1, std::memory_order_relaxed);
        return false;
    }

private:
    std::atomic<std::uint32_t> m_shares = 1;
};

} // namespace corekit::detail
