#include "remote/ControllerLine.h"

#include "corekit/devices/SerialPort.h"

#include <chrono>

namespace prompter {
namespace {

constexpr int rate = 9600, dataBits = 8;
constexpr DWORD longestWait = 200; // milliseconds that a read waits for a byte
constexpr auto pause = std::chrono::seconds(1);
constexpr UINT eventsWait = WM_USER + 1;
constexpr std::size_t mostEvents = 1000; // of a user interface that is busy

} // namespace

ControllerLine::ControllerLine(int port, Handler handler)
    : m_handler(std::move(handler)), m_window([this](const MSG& message) -> LRESULT {
          if (message.message == eventsWait) TellAll();
          return 0;
      }),
      m_thread([this, port] { Run(port); })
{
}

ControllerLine::~ControllerLine()
{
    {
        const std::lock_guard lock(m_lock);
        m_isEnding = true;
    }
    m_ends.notify_all();
    m_thread.join();
}

bool ControllerLine::OpenLine(CSerialPort& serial, int port)
{
    if (!serial.OpenPort(port, rate, NOPARITY, dataBits, ONESTOPBIT, flowNone, nullptr)) return false;
    COMMTIMEOUTS limits{INFINITE, INFINITE, longestWait, 0, 0}; // the first bytes within that time
    return serial.SetCommTimeouts(limits) != 0;
}

void ControllerLine::Run(int port)
{
    for (;;) {
        CSerialPort serial;
        if (OpenLine(serial, port)) {
            m_isOpen = true;
            ReadLine(serial);
            m_isOpen = false;
        }
        std::unique_lock lock(m_lock);
        if (m_ends.wait_for(lock, pause, [this] { return m_isEnding; })) return;
    }
}

// Until the line breaks or the object ends.
void ControllerLine::ReadLine(CSerialPort& serial)
{
    ControllerParser parser;
    BYTE bytes[64];
    for (unsigned long received = 0; serial.ReadSynchronous(bytes, sizeof bytes, received);) {
        const std::lock_guard lock(m_lock);
        if (m_isEnding) return;
        const bool wasEmpty = m_events.empty();
        for (unsigned long i = 0; i < received; ++i)
            if (const auto event = parser.Take(bytes[i]); event && m_events.size() < mostEvents)
                m_events.push_back(*event);
        if (wasEmpty && !m_events.empty()) PostMessageA(m_window.GetSafeHwnd(), eventsWait, 0, 0);
    }
}

void ControllerLine::TellAll()
{
    std::deque<ControllerEvent> events;
    {
        const std::lock_guard lock(m_lock);
        events.swap(m_events);
    }
    for (const ControllerEvent& event : events) m_handler(event);
}

} // namespace prompter
