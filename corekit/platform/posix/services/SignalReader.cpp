#include "corekit/platform/posix/services/SignalReader.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace corekit::detail {
namespace {

// Where each signal is reported: a descriptor and 1, or 0.
constinit std::atomic<int> pipes[65];

extern "C" void tellSignal(int signal)
{
    const int why = errno;
    const auto byte = static_cast<unsigned char>(signal);
    // A full pipe has told enough.
    if (const int pipe = pipes[signal]) static_cast<void>(!::write(pipe - 1, &byte, 1));
    errno = why;
}

} // namespace

SignalReader::SignalReader()
{
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_NONBLOCK | O_CLOEXEC) != 0) return;
    m_out = Descriptor(ends[0]);
    m_in = Descriptor(ends[1]);
}

SignalReader::~SignalReader()
{
    while (!m_former.empty()) release(m_former.begin()->first);
}

void SignalReader::claim(int signal)
{
    if (!m_in || m_former.contains(signal)) return; // without a pipe nobody would hear of it
    pipes[signal] = m_in.get() + 1;
    struct sigaction telling = {};
    telling.sa_handler = tellSignal;
    telling.sa_flags = SA_RESTART;
    ::sigfillset(&telling.sa_mask);
    ::sigaction(signal, &telling, &m_former[signal]);
}

void SignalReader::release(int signal)
{
    const auto former = m_former.find(signal);
    if (former == m_former.end()) return;
    ::sigaction(signal, &former->second, nullptr);
    pipes[signal] = 0;
    m_former.erase(former);
}

int SignalReader::next()
{
    unsigned char byte = 0;
    return ::read(m_out.get(), &byte, 1) == 1 ? byte : -1;
}

void SignalReader::wake()
{
    const unsigned char byte = 0;
    static_cast<void>(!::write(m_in.get(), &byte, 1));
}

} // namespace corekit::detail
