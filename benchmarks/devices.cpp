// A serial line's round trips over a pseudo-terminal, beside plain read and write on the same line; a
// service's status from a manager at the other end of a socket pair, beside the bus's library used directly.
#include "corekit/devices/SerialPort.h"
#include "corekit/hosts/NTServiceControlMgr.h"
#include "corekit/platform/DeviceFolders.h"

#include <atomic>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <pthread.h>
#include <pty.h>
#include <sched.h>
#include <string>
#include <sys/socket.h>
#include <systemd/sd-bus.h>
#include <termios.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

// Client and peer have a processor each.
void pinTo(int cpu)
{
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(cpu, &set);
    ::pthread_setaffinity_np(::pthread_self(), sizeof set, &set);
}

// A line whose other end sends everything back.
class Line {
public:
    Line()
    {
        if (::openpty(&m_other, &m_keeper, m_name, nullptr, nullptr) != 0) std::abort();
        termios raw;
        ::tcgetattr(m_keeper, &raw);
        ::cfmakeraw(&raw);
        ::tcsetattr(m_keeper, TCSANOW, &raw);
        m_thread = std::thread([this] {
            pinTo(1);
            char block[4096];
            for (ssize_t n; (n = ::read(m_other, block, sizeof block)) > 0 && block[0] != 'q';)
                if (::write(m_other, block, static_cast<std::size_t>(n)) != n) std::abort();
        });
    }
    ~Line()
    {
        if (::write(m_keeper, "q", 1) != 1) std::abort();
        m_thread.join();
        ::close(m_other);
        ::close(m_keeper);
    }
    const char* name() const { return m_name; }

private:
    int m_other = -1, m_keeper = -1;
    char m_name[128];
    std::thread m_thread;
};

void serialCorekit(benchmark::State& state)
{
    const Line line;
    const std::string folder = std::filesystem::temp_directory_path() / "corekit-bench-line";
    std::filesystem::create_directories(folder);
    std::filesystem::remove(folder + "/COM1");
    std::filesystem::create_symlink(line.name(), folder + "/COM1");
    SetDeviceFolders({folder, folder});
    {
        CSerialPort port;
        if (!port.OpenPort(1, 115200, 0, 8, 0, flowNone, nullptr)) std::abort();
        std::vector<char> block(static_cast<std::size_t>(state.range(0)), 'x');
        for (auto _ : state) {
            unsigned long received = 0;
            if (!port.WriteSynchronous(block.data(), block.size()) ||
                !port.ReadSynchronous(block.data(), block.size(), received) || received != block.size())
                std::abort();
        }
    }
    std::filesystem::remove_all(folder);
    state.SetItemsProcessed(state.iterations());
}

void serialPlain(benchmark::State& state)
{
    const Line line;
    const int fd = ::open(line.name(), O_RDWR | O_NOCTTY);
    std::vector<char> block(static_cast<std::size_t>(state.range(0)), 'x');
    for (auto _ : state) {
        if (::write(fd, block.data(), block.size()) != static_cast<ssize_t>(block.size())) std::abort();
        for (std::size_t got = 0; got < block.size();) {
            const ssize_t part = ::read(fd, block.data() + got, block.size() - got);
            if (part <= 0) std::abort();
            got += static_cast<std::size_t>(part);
        }
    }
    ::close(fd);
    state.SetItemsProcessed(state.iterations());
}

// Knows one running unit.
class Manager {
public:
    Manager()
    {
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, m_ends) != 0) std::abort();
        m_thread = std::thread([this] { serve(); });
    }
    ~Manager()
    {
        m_isEnding = true;
        m_thread.join();
    }
    int end() const { return m_ends[0]; }

private:
    void serve()
    {
        pinTo(1);
        sd_bus* bus = nullptr;
        sd_bus_new(&bus);
        sd_bus_set_fd(bus, m_ends[1], m_ends[1]);
        sd_bus_set_server(bus, 1, sd_id128_t{});
        sd_bus_set_anonymous(bus, 1);
        sd_bus_add_filter(bus, nullptr, &Manager::answer, nullptr);
        sd_bus_start(bus);
        for (int done = 0; done >= 0 && !m_isEnding;)
            if (done = sd_bus_process(bus, nullptr); done == 0) sd_bus_wait(bus, 50000);
        sd_bus_close(bus);
        sd_bus_unref(bus);
    }
    static int answer(sd_bus_message* call, void*, sd_bus_error*)
    {
        const char *interface = "", *property = "";
        sd_bus_message_read(call, "ss", &interface, &property);
        const char* const text = std::strcmp(property, "LoadState") == 0     ? "loaded"
                                 : std::strcmp(property, "ActiveState") == 0 ? "active"
                                                                             : "Running";
        return sd_bus_reply_method_return(call, "v", "s", text), 1;
    }

    int m_ends[2];
    std::atomic<bool> m_isEnding = false;
    std::thread m_thread;
};

void statusCorekit(benchmark::State& state)
{
    const Manager machine;
    SetServicePlaces({"/nowhere", [&] { return machine.end(); }, 25000});
    CNTServiceControlMgr manager;
    if (!manager.OpenLocal(SC_MANAGER_CONNECT)) std::abort();
    for (auto _ : state) {
        SERVICE_STATUS status;
        if (!manager.QueryServiceStatus("Script Upload", status) || status.dwCurrentState != SERVICE_RUNNING)
            std::abort();
    }
    state.SetItemsProcessed(state.iterations());
}

void statusBus(benchmark::State& state)
{
    const Manager machine;
    sd_bus* bus = nullptr;
    sd_bus_new(&bus);
    sd_bus_set_fd(bus, machine.end(), machine.end());
    sd_bus_start(bus);
    for (auto _ : state) {
        constexpr const char* wanted[][2] = {{"org.freedesktop.systemd1.Unit", "LoadState"},
                                             {"org.freedesktop.systemd1.Unit", "ActiveState"},
                                             {"org.freedesktop.systemd1.Service", "StatusText"}};
        char* path = nullptr;
        sd_bus_path_encode("/org/freedesktop/systemd1/unit", "Script\\x20Upload.service", &path);
        for (const auto& [interface, property] : wanted) {
            char* text = nullptr;
            if (sd_bus_get_property_string(bus, "org.freedesktop.systemd1", path, interface, property,
                                           nullptr, &text) < 0)
                std::abort();
            std::free(text);
        }
        std::free(path);
    }
    sd_bus_close(bus);
    sd_bus_unref(bus);
    state.SetItemsProcessed(state.iterations());
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    pinTo(0);
    const auto add = [](const char* name, void (*run)(benchmark::State&)) {
        return benchmark::RegisterBenchmark(name, run)->UseRealTime();
    };
    for (const auto& [path, size] :
         {std::pair("devices/serial_echo_64/", 64), std::pair("devices/serial_echo_1024/", 1024)}) {
        benchmark::RegisterBenchmark((std::string(path) + "corekit").c_str(), serialCorekit)
            ->Arg(size)
            ->UseRealTime();
        benchmark::RegisterBenchmark((std::string(path) + "read_write").c_str(), serialPlain)
            ->Arg(size)
            ->UseRealTime();
    }
    add("devices/service_status/corekit", statusCorekit);
    add("devices/service_status/sdbus", statusBus);
    benchmark::RunSpecifiedBenchmarks();
}
