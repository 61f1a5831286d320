#include "corekit/platform/posix/ports/Poller.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <iterator>
#include <mutex>
#include <new>
#include <pthread.h>
#include <sys/epoll.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace corekit::detail {
namespace {

constexpr int roundSize = 256; // descriptors told of in one round

class Poller {
public:
    int watch(int descriptor, std::uint32_t events, std::shared_ptr<Watcher> watcher);
    int rearm(int descriptor, std::uint32_t events);
    void unwatch(int descriptor);

    void beforeFork() { m_lock.lock(); }
    void afterFork() { m_lock.unlock(); }
    void beginInChild();

private:
    // A descriptor's number comes back soon after it was closed; the turn tells its lives apart.
    struct Entry {
        std::shared_ptr<Watcher> watcher;
        std::uint32_t turn = 0;
    };
    using Round = std::array<epoll_event, roundSize>;

    int start();
    int control(int operation, int descriptor, std::uint32_t events, std::uint32_t turn);
    [[noreturn]] void run();
    void tell(const Round& round, int count);

    std::mutex m_lock;
    std::vector<Entry> m_entries; // by descriptor
    std::vector<Entry> m_parents; // what this process had before it divided: not to be called, and not to end
    int m_epoll = -1;
};

// Never taken down: its thread has no end.
Poller& instance()
{
    static Poller* const poller = [] {
        auto* const only = new Poller;
        if (::pthread_atfork([] { instance().beforeFork(); }, [] { instance().afterFork(); },
                             [] { instance().beginInChild(); }) != 0)
            throw std::bad_alloc();
        return only;
    }();
    return *poller;
}

// The parent's epoll instance would take what the child says for the parent's word.
void Poller::beginInChild()
{
    if (m_epoll >= 0) ::close(std::exchange(m_epoll, -1));
    std::ranges::move(m_entries, std::back_inserter(m_parents));
    m_entries.clear();
    m_lock.unlock();
}

int Poller::start()
{
    if (m_epoll >= 0) return 0;
    m_epoll = ::epoll_create1(EPOLL_CLOEXEC);
    if (m_epoll < 0) return errno;
    // The program's signals are for its own threads.
    sigset_t all, before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    int error = 0;
    try {
        std::thread([this] { run(); }).detach();
    } catch (const std::system_error& e) {
        error = e.code().value();
        ::close(std::exchange(m_epoll, -1));
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return error;
}

int Poller::control(int operation, int descriptor, std::uint32_t events, std::uint32_t turn)
{
    epoll_event event{};
    event.events = events;
    event.data.u64 = std::uint64_t{turn} << 32 | static_cast<std::uint32_t>(descriptor);
    return ::epoll_ctl(m_epoll, operation, descriptor, &event) == 0 ? 0 : errno;
}

int Poller::watch(int descriptor, std::uint32_t events, std::shared_ptr<Watcher> watcher)
{
    const std::lock_guard lock(m_lock);
    if (const int error = start(); error != 0) return error;
    const auto index = static_cast<std::size_t>(descriptor);
    if (index >= m_entries.size()) m_entries.resize(index + 1);
    Entry& entry = m_entries[index];
    if (entry.watcher != nullptr) return EEXIST;
    const int error = control(EPOLL_CTL_ADD, descriptor, events, ++entry.turn);
    if (error == 0) entry.watcher = std::move(watcher);
    return error;
}

int Poller::rearm(int descriptor, std::uint32_t events)
{
    const std::lock_guard lock(m_lock);
    const auto index = static_cast<std::size_t>(descriptor);
    if (index >= m_entries.size() || m_entries[index].watcher == nullptr) return ENOENT;
    return control(EPOLL_CTL_MOD, descriptor, events, m_entries[index].turn);
}

void Poller::unwatch(int descriptor)
{
    std::shared_ptr<Watcher> last; // goes after the lock
    const std::lock_guard lock(m_lock);
    const auto index = static_cast<std::size_t>(descriptor);
    if (descriptor < 0 || index >= m_entries.size() || m_entries[index].watcher == nullptr) return;
    last = std::exchange(m_entries[index].watcher, nullptr);
    control(EPOLL_CTL_DEL, descriptor, 0, 0);
}

void Poller::run()
{
    Round round;
    for (;;) {
        const int count = ::epoll_wait(m_epoll, round.data(), roundSize, -1);
        if (count > 0) tell(round, count);
    }
}

void Poller::tell(const Round& round, int count)
{
    std::array<std::shared_ptr<Watcher>, roundSize> watchers;
    {
        const std::lock_guard lock(m_lock);
        for (int i = 0; i < count; ++i) {
            const auto index = static_cast<std::uint32_t>(round[i].data.u64);
            if (index >= m_entries.size()) continue;
            const Entry& entry = m_entries[index];
            if (entry.turn == round[i].data.u64 >> 32) watchers[i] = entry.watcher;
        }
    }
    for (int i = 0; i < count; ++i)
        if (watchers[i] != nullptr) watchers[i]->onReady(round[i].events);
    for (int i = 0; i < count; ++i)
        if (watchers[i] != nullptr) watchers[i]->onRoundEnd();
}

} // namespace

namespace poller {
int watch(int descriptor, std::uint32_t events, std::shared_ptr<Watcher> watcher)
{
    return instance().watch(descriptor, events, std::move(watcher));
}
int rearm(int descriptor, std::uint32_t events) { return instance().rearm(descriptor, events); }
void unwatch(int descriptor) { instance().unwatch(descriptor); }
} // namespace poller

} // namespace corekit::detail
