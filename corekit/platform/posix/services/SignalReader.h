// Signals as bytes that a thread reads.
#pragma once

#include "corekit/platform/posix/files/File.h"

#include <csignal>
#include <map>

namespace corekit::detail {

// Belongs to one thread but for wake. A signal has one reader at a time; it goes back to what it did before
// when its reader gives it up.
class SignalReader {
public:
    SignalReader();
    ~SignalReader();
    SignalReader(const SignalReader&) = delete;
    SignalReader& operator=(const SignalReader&) = delete;

    // The signal keeps its effect where the pipe could not be made.
    void claim(int signal);
    void release(int signal);

    // Readable when next has something to tell.
    int descriptor() const { return m_out.get(); }
    // The next signal that came; 0 for a call of wake, -1 for none.
    int next();
    // Any thread.
    void wake();

private:
    Descriptor m_out, m_in;
    std::map<int, struct sigaction> m_former;
};

} // namespace corekit::detail
