// Round trips on the loopback with a limit of time for every read and write, beside poll before each call,
// Asio and libuv. The peer is a thread with blocking calls.
#include "corekit/net/XSocket.h"

#include <asio.hpp>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <netinet/tcp.h>
#include <poll.h>
#include <pthread.h>
#include <sched.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <uv.h>
#include <vector>

namespace {

constexpr int limitMs = 5000;

sockaddr_in loopback(std::uint16_t port = 0)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

void sendAtOnce(int s)
{
    const int on = 1;
    ::setsockopt(s, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

// Client and peer have a processor each; where the scheduler put them would say more than the libraries do.
void pinTo(int cpu)
{
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(cpu, &set);
    ::pthread_setaffinity_np(::pthread_self(), sizeof set, &set);
}

// Sends back every block of `size` bytes to its one client.
class Echo {
public:
    explicit Echo(std::size_t size) : m_block(size), m_listener(::socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address = loopback();
        socklen_t length = sizeof address;
        if (::bind(m_listener, reinterpret_cast<sockaddr*>(&address), length) || ::listen(m_listener, 4))
            std::abort();
        ::getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &length);
        port = ntohs(address.sin_port);
        m_thread = std::thread([this] { serve(); });
    }
    ~Echo()
    {
        m_thread.join();
        ::close(m_listener);
    }
    std::uint16_t port;

private:
    void serve()
    {
        pinTo(1);
        const int s = ::accept(m_listener, nullptr, nullptr);
        sendAtOnce(s);
        while (::recv(s, m_block.data(), m_block.size(), MSG_WAITALL) == static_cast<ssize_t>(m_block.size()))
            if (::send(s, m_block.data(), m_block.size(), MSG_NOSIGNAL) < 0) break;
        ::close(s);
    }

    std::vector<char> m_block;
    int m_listener;
    std::thread m_thread;
};

int dial(std::uint16_t port)
{
    const int s = ::socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = loopback(port);
    if (::connect(s, reinterpret_cast<const sockaddr*>(&address), sizeof address)) std::abort();
    sendAtOnce(s);
    return s;
}

void corekit(benchmark::State& state, std::size_t size)
{
    const Echo echo(size);
    {
        if (XSocketApi::InitSockets()) std::abort();
        XSocket socket;
        if (!socket.ConnectTCPStream("127.0.0.1", echo.port, WSA_FLAG_OVERLAPPED, 1)) std::abort();
        std::vector<char> block(size, 1);
        for (auto _ : state) {
            if (!socket.WriteSocket(block.data(), block.size(), limitMs)) std::abort();
            DWORD received = 0;
            for (std::size_t got = 0; got < block.size(); got += received)
                if (!socket.ReadSocket(block.data() + got, block.size() - got, received, limitMs))
                    std::abort();
        }
    }
    state.SetItemsProcessed(state.iterations());
}

enum class Wait { never, pollFirst };

template <Wait wait>
void plain(benchmark::State& state, std::size_t size)
{
    const Echo echo(size);
    const int s = dial(echo.port);
    const auto await = [s](short events) {
        pollfd one{s, events, 0};
        if (wait == Wait::pollFirst && ::poll(&one, 1, limitMs) != 1) std::abort();
    };
    std::vector<char> block(size, 1);
    for (auto _ : state) {
        for (std::size_t put = 0; put < block.size();) {
            await(POLLOUT);
            put += static_cast<std::size_t>(::send(s, block.data() + put, block.size() - put, MSG_NOSIGNAL));
        }
        for (std::size_t got = 0; got < block.size();) {
            await(POLLIN);
            got += static_cast<std::size_t>(::recv(s, block.data() + got, block.size() - got, 0));
        }
    }
    ::close(s);
    state.SetItemsProcessed(state.iterations());
}

void asioWithLimit(benchmark::State& state, std::size_t size)
{
    const Echo echo(size);
    {
        asio::io_context io;
        asio::ip::tcp::socket socket(io);
        socket.connect({asio::ip::address_v4::loopback(), echo.port});
        socket.set_option(asio::ip::tcp::no_delay(true));
        std::vector<char> block(size, 1);
        const auto run = [&io] {
            io.restart();
            io.run_for(std::chrono::milliseconds(limitMs));
        };
        for (auto _ : state) {
            asio::async_write(socket, asio::buffer(block), [](auto, auto) {});
            run();
            asio::async_read(socket, asio::buffer(block), [](auto, auto) {});
            run();
        }
    }
    state.SetItemsProcessed(state.iterations());
}

// libuv with a timer that is set for every trip.
struct Uv {
    uv_loop_t loop;
    uv_tcp_t tcp;
    uv_timer_t timer;
    uv_connect_t connection;
    std::vector<char> block;
    std::size_t got = 0;
    std::int64_t left = 0;

    void send()
    {
        uv_timer_start(
            &timer, [](uv_timer_t*) { std::abort(); }, limitMs, 0);
        const uv_buf_t buffer = uv_buf_init(block.data(), static_cast<unsigned>(block.size()));
        uv_write(new uv_write_t, reinterpret_cast<uv_stream_t*>(&tcp), &buffer, 1,
                 [](uv_write_t* request, int) { delete request; });
    }
    void received(std::size_t count)
    {
        got += count;
        if (got < block.size()) return;
        got = 0;
        if (--left > 0) return send();
        uv_timer_stop(&timer);
        uv_stop(&loop);
    }
};

void libuv(benchmark::State& state, std::size_t size)
{
    constexpr std::int64_t trips = 500;
    const Echo echo(size);
    Uv uv;
    uv.block.assign(size, 1);
    uv_loop_init(&uv.loop);
    uv_timer_init(&uv.loop, &uv.timer);
    uv_tcp_init(&uv.loop, &uv.tcp);
    uv_tcp_nodelay(&uv.tcp, 1);
    uv.tcp.data = &uv;
    const sockaddr_in address = loopback(echo.port);
    uv_tcp_connect(&uv.connection, &uv.tcp, reinterpret_cast<const sockaddr*>(&address),
                   [](uv_connect_t* c, int) { uv_stop(c->handle->loop); });
    uv_run(&uv.loop, UV_RUN_DEFAULT);
    uv_read_start(
        reinterpret_cast<uv_stream_t*>(&uv.tcp),
        [](uv_handle_t* handle, std::size_t, uv_buf_t* out) {
            auto& own = *static_cast<Uv*>(handle->data);
            *out = uv_buf_init(own.block.data() + own.got, static_cast<unsigned>(own.block.size() - own.got));
        },
        [](uv_stream_t* stream, ssize_t count, const uv_buf_t*) {
            if (count < 0) std::abort();
            static_cast<Uv*>(stream->data)->received(static_cast<std::size_t>(count));
        });
    for (auto _ : state) {
        uv.left = trips;
        uv.send();
        uv_run(&uv.loop, UV_RUN_DEFAULT);
    }
    uv_close(reinterpret_cast<uv_handle_t*>(&uv.tcp), nullptr);
    uv_close(reinterpret_cast<uv_handle_t*>(&uv.timer), nullptr);
    uv_run(&uv.loop, UV_RUN_DEFAULT);
    uv_loop_close(&uv.loop);
    state.SetItemsProcessed(state.iterations() * trips);
}

void add(const char* path, std::size_t size)
{
    const std::string name = std::string("sockets/") + path + "/";
    const auto peer = [&](const char* who, void (*run)(benchmark::State&, std::size_t)) {
        benchmark::RegisterBenchmark((name + who).c_str(), run, size)->UseRealTime();
    };
    peer("corekit", corekit);
    peer("poll_each_call", plain<Wait::pollFirst>);
    peer("no_limit", plain<Wait::never>);
    peer("asio", asioWithLimit);
    peer("libuv", libuv);
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    pinTo(0);
    add("echo_64", 64);
    add("echo_4096", 4096);
    benchmark::RunSpecifiedBenchmarks();
}
