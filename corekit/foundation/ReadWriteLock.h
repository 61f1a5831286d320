// Shared access for readers, exclusive access for one writer.
//
//     lock.GetReadLock();
//     ... // others may read, too
//     lock.ReleaseReadLock();
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
    // Nobody may hold or wait for access.
    ~CReadWriteLock() override;

    // Waits without end while a writer has access. Other readers wait with it.
    void GetReadLock();
    // Once for each GetReadLock, on any thread. The last one lets a writer in.
    void ReleaseReadLock();
    // Waits without end until nobody has access.
    void GetExclusiveLock();
    // Lets in one of those who wait, reader or writer.
    void ReleaseExclusiveLock();

private:
    HANDLE m_token;             // auto-reset event, signalled while nobody has access
    LONG m_readers = 0;         // read locks that are held now
    CRITICAL_SECTION m_section; // guards m_readers
};
