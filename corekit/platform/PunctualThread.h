// A thread that must not be late.
//
// For as long as one of these lives, the thread that made it runs the moment it has something to do, also
// while others keep the machine busy: as a real-time thread if the user may have such (limit rtprio), else
// with as large a share as the user may ask for (limit nice), and in either case in turns so short that the
// scheduler lets it in between those of others, and with sleeps that end on time. What is not granted is
// left out. Threads that it starts are as they would be without. One a thread, destroyed where it was made.
#pragma once

#include "corekit/platform/Export.h"

#include <memory>

namespace corekit {

class COREKIT_API PunctualThread {
public:
    PunctualThread();
    ~PunctualThread();
    PunctualThread(const PunctualThread&) = delete;
    PunctualThread& operator=(const PunctualThread&) = delete;

private:
    struct Former;
    std::unique_ptr<Former> m_former;
};

} // namespace corekit
