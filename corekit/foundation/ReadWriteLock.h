// Shared access for readers, exclusive access for one writer.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/CriticalSection.h"

// The first reader takes the one token for all readers and the last one gives it back; a writer takes it
// alone. Readers come first: a writer waits until no reader is left, and nothing keeps new readers out. A
// reader may nest. A thread that asks for one kind of access while it holds the other waits for itself, and
// so does a writer that asks twice. Exclusive access may be released by any thread.
class COREKIT_API CReadWriteLock : public CObject {
    DECLARE_DYNAMIC(CReadWriteLock)
public:
    CReadWriteLock();
    ~CReadWriteLock() override;

    void GetReadLock();
    void ReleaseReadLock();
    void GetExclusiveLock();
    void ReleaseExclusiveLock();

private:
    HANDLE m_token; // auto-reset event, signalled while nobody has access
    LONG m_readers = 0;
    CRITICAL_SECTION m_section; // guards m_readers
};
