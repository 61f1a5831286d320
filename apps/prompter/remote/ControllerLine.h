// A hand controller on a serial port (9600 bits a second, 8 data bits, no parity, one stop bit, no flow
// control).
//
// A thread reads the port; what a pair of bytes means is told on the thread that made the object. A port that
// is not there, or goes away, is tried again every second.
#pragma once

#include "model/HandController.h"

#include "corekit/platform/Messages.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

class CSerialPort;

namespace prompter {

class ControllerLine {
public:
    using Handler = std::function<void(const ControllerEvent&)>;

    // `port` is the number of COM1 and so on.
    ControllerLine(int port, Handler handler);
    ~ControllerLine(); // waits for the thread
    ControllerLine(const ControllerLine&) = delete;
    ControllerLine& operator=(const ControllerLine&) = delete;

    bool IsOpen() const { return m_isOpen; } // as of now; any thread

private:
    void Run(int port);
    bool OpenLine(CSerialPort& serial, int port);
    void ReadLine(CSerialPort& serial);
    void TellAll();

    Handler m_handler;
    MessageWindow m_window; // its messages say that events wait
    std::atomic<bool> m_isOpen = false;
    std::mutex m_lock; // of what stands below
    std::condition_variable m_ends;
    bool m_isEnding = false;
    std::deque<ControllerEvent> m_events;
    std::thread m_thread; // the last member: it uses the others
};

} // namespace prompter
