// A service manager for the tests, at the other end of a socket pair. It speaks the bus's protocol and knows
// what the test has it do.
#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <sys/socket.h>
#include <systemd/sd-bus.h>
#include <thread>
#include <unistd.h>
#include <vector>

class FakeManager {
public:
    struct Unit {
        std::string active = "inactive", status;
        unsigned job = 0;
        int exitStatus = 0;
    };
    // What it does when it is asked to start or stop a unit; the default is to have it running or stopped.
    std::function<void(Unit&)> onStart = [](Unit& unit) { unit.active = "active"; };
    std::function<void(Unit&)> onStop = [](Unit& unit) { unit.active = "inactive"; };
    std::function<void(Unit&)> onLook = [](Unit&) {}; // before each look at its state

    enum class Fault { None, Silent, Gone, WrongType, Denied };
    std::atomic<Fault> fault = Fault::None;

    ~FakeManager()
    {
        m_isEnding = true;
        for (std::thread& thread : m_threads) thread.join();
    }

    // A connection to it.
    int Connect()
    {
        int ends[2];
        socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends);
        m_threads.emplace_back([this, end = ends[1]] { Serve(end); });
        return ends[0];
    }

    void Set(const std::string& name, const Unit& unit)
    {
        const std::lock_guard guard(m_lock);
        m_units[name] = unit;
    }
    // The calls that change something, in their order.
    std::vector<std::string> Calls()
    {
        const std::lock_guard guard(m_lock);
        return m_calls;
    }

private:
    void Serve(int end)
    {
        sd_bus* bus = nullptr;
        sd_id128_t id{};
        sd_bus_new(&bus);
        sd_bus_set_fd(bus, end, end);
        sd_bus_set_server(bus, 1, id);
        sd_bus_set_anonymous(bus, 1);
        sd_bus_add_filter(bus, nullptr, &FakeManager::Take, this);
        for (int done = fault == Fault::Silent ? 0 : sd_bus_start(bus); done >= 0 && !m_isEnding;) {
            if (fault == Fault::Silent) {
                usleep(1000);
                continue;
            }
            done = fault == Fault::Gone ? -1 : sd_bus_process(bus, nullptr);
            if (done == 0) sd_bus_wait(bus, 2000);
        }
        sd_bus_close(bus);
        sd_bus_unref(bus);
    }

    static int Take(sd_bus_message* call, void* self, sd_bus_error*)
    {
        return static_cast<FakeManager*>(self)->Answer(call);
    }

    int Answer(sd_bus_message* call)
    {
        if (fault == Fault::Silent || fault == Fault::Gone) return 1;
        if (fault == Fault::Denied)
            return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_ACCESS_DENIED, "no"), 1;
        const std::lock_guard guard(m_lock);
        const std::string member = sd_bus_message_get_member(call);
        if (member == "Get") return Tell(call);
        const char* name = "";
        if (member == "StartUnit" || member == "StopUnit") {
            sd_bus_message_read(call, "s", &name);
            m_calls.push_back(member + " " + name);
            (member == "StartUnit" ? onStart : onStop)(m_units[name]);
            return sd_bus_reply_method_return(call, "o", "/org/freedesktop/systemd1/job/1"), 1;
        }
        if (member.ends_with("ableUnitFiles")) sd_bus_message_read(call, "as", 1, &name);
        m_calls.push_back(member + (*name ? " " : "") + name);
        if (member == "EnableUnitFiles") return sd_bus_reply_method_return(call, "ba(sss)", 1, 0), 1;
        if (member == "DisableUnitFiles") return sd_bus_reply_method_return(call, "a(sss)", 0), 1;
        return sd_bus_reply_method_return(call, ""), 1;
    }

    int Tell(sd_bus_message* call)
    {
        const char *interface = "", *property = "";
        sd_bus_message_read(call, "ss", &interface, &property);
        char* name = nullptr;
        sd_bus_path_decode(sd_bus_message_get_path(call), "/org/freedesktop/systemd1/unit", &name);
        const std::string unit = name ? name : "";
        free(name);
        const std::string wanted = property;
        const auto it = m_units.find(unit);
        if (fault == Fault::WrongType) return sd_bus_reply_method_return(call, "v", "u", 7), 1;
        if (wanted == "LoadState")
            return sd_bus_reply_method_return(call, "v", "s", it == m_units.end() ? "not-found" : "loaded"),
                   1;
        if (it == m_units.end())
            return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_UNKNOWN_OBJECT, "no"), 1;
        if (wanted == "ActiveState") onLook(it->second);
        if (wanted == "ActiveState")
            return sd_bus_reply_method_return(call, "v", "s", it->second.active.c_str()), 1;
        if (wanted == "StatusText")
            return sd_bus_reply_method_return(call, "v", "s", it->second.status.c_str()), 1;
        if (wanted == "ExecMainStatus")
            return sd_bus_reply_method_return(call, "v", "i", it->second.exitStatus), 1;
        return sd_bus_reply_method_return(call, "v", "(uo)", it->second.job, "/"), 1;
    }

    std::mutex m_lock;
    std::map<std::string, Unit> m_units;
    std::vector<std::string> m_calls;
    std::vector<std::thread> m_threads;
    std::atomic<bool> m_isEnding = false;
};
