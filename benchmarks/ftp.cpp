// Files to and from vsftpd in one session, beside libcurl. The server is started here on a free port and
// ended by its process id.
#include "corekit/net/FtpClient.h"
#include "corekit/stores/FileStream.h"
#include "workload.h"

#include <benchmark/benchmark.h>
#include <csignal>
#include <cstdlib>
#include <curl/curl.h>
#include <filesystem>
#include <fstream>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <pwd.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace {

constexpr int files = 20; // in each turn; all turns are one session
constexpr std::size_t small = 1024, large = 64 << 20;

[[noreturn]] void giveUp(const std::string& why)
{
    std::fprintf(stderr, "ftp: %s\n", why.c_str());
    std::_Exit(1);
}

// Bound for as long as the result lives.
int bindAnyPort(int& port)
{
    const int s = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    if (::bind(s, reinterpret_cast<sockaddr*>(&address), length)) giveUp("no port");
    ::getsockname(s, reinterpret_cast<sockaddr*>(&address), &length);
    port = ntohs(address.sin_port);
    return s;
}

bool answers(int port)
{
    CFtpClient client;
    const bool isThere = client.Connect("127.0.0.1", port, "anonymous", "a@b", 1);
    client.Disconnect();
    return isThere;
}

class Server {
public:
    Server()
    {
        ::close(bindAnyPort(port));
        std::filesystem::create_directories(workload::scratch("site/upload"));
        std::ofstream(workload::scratch("vsftpd.conf"))
            << "listen=YES\nlisten_ipv6=NO\nlisten_address=127.0.0.1\nbackground=NO\nanonymous_enable=YES\n"
               "local_enable=NO\nwrite_enable=YES\nanon_upload_enable=YES\nanon_other_write_enable=YES\n"
               "anon_world_readable_only=NO\nanon_umask=022\nseccomp_sandbox=NO\nxferlog_enable=NO\n"
               "run_as_launching_user=YES\nlisten_port="
            << port << "\nftp_username=" << ::getpwuid(::geteuid())->pw_name
            << "\nanon_root=" << workload::scratch("site")
            << "\nsecure_chroot_dir=" << workload::scratch("site") << "\n";
        std::string program = "/usr/sbin/vsftpd", settings = workload::scratch("vsftpd.conf");
        char* const line[] = {program.data(), settings.data(), nullptr};
        if (::posix_spawn(&m_id, line[0], nullptr, nullptr, line, environ)) giveUp("no " + program);
        for (int tries = 0; !answers(port); ++tries) {
            if (tries == 200) giveUp("vsftpd does not answer");
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }
    ~Server()
    {
        ::kill(m_id, SIGTERM);
        ::waitpid(m_id, nullptr, 0);
    }
    int port = 0;

private:
    pid_t m_id = -1;
};

const Server* server = nullptr;

int port() { return server->port; }

std::string localFile(const char* name, std::size_t size)
{
    const std::string path = workload::scratch(name);
    const auto bytes = workload::randomBytes(size);
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(size));
    return path;
}

std::string target() { return workload::scratch("target.bin"); }

class CoreKit {
public:
    CoreKit()
    {
        if (!m_ftp.Connect("127.0.0.1", port(), "anonymous", "a@b", 1) || !m_ftp.ChangeDirectory("upload"))
            giveUp(m_ftp.GetLastError().GetString());
    }
    ~CoreKit() { m_ftp.Disconnect(); }
    bool put(const std::string& from, std::size_t, const std::string& name)
    {
        CFileStream file;
        return file.Open(from.c_str(), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, 0) &&
               m_ftp.UploadStream(name.c_str(), file);
    }
    bool get(const std::string& name)
    {
        CFileStream file;
        if (!file.Open(target().c_str(), GENERIC_READ | GENERIC_WRITE, 0, CREATE_ALWAYS, 0)) return false;
        const bool done = m_ftp.GetFileToStream(name.c_str(), file);
        file.Flush();
        return done;
    }

private:
    CFtpClient m_ftp;
};

class Curl {
public:
    Curl() : m_curl(curl_easy_init()), m_loop(curl_multi_init())
    {
        curl_easy_setopt(m_curl, CURLOPT_FTP_SKIP_PASV_IP, 1L);
        curl_easy_setopt(m_curl, CURLOPT_UPLOAD_BUFFERSIZE, 524288L);
        curl_easy_setopt(m_curl, CURLOPT_BUFFERSIZE, 524288L);
        curl_easy_setopt(m_curl, CURLOPT_TIMEOUT, 60L);
        curl_easy_setopt(m_curl, CURLOPT_SOCKOPTDATA, this);
        curl_easy_setopt(m_curl, CURLOPT_SOCKOPTFUNCTION, &Curl::opened);
        curl_easy_setopt(m_curl, CURLOPT_HEADERDATA, this);
        curl_easy_setopt(m_curl, CURLOPT_HEADERFUNCTION, &Curl::received);
    }
    ~Curl()
    {
        curl_easy_cleanup(m_curl);
        curl_multi_cleanup(m_loop);
    }
    bool put(const std::string& from, std::size_t size, const std::string& name)
    {
        std::FILE* const file = std::fopen(from.c_str(), "rb");
        curl_easy_setopt(m_curl, CURLOPT_UPLOAD, 1L);
        curl_easy_setopt(m_curl, CURLOPT_READDATA, file);
        curl_easy_setopt(m_curl, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(size));
        return perform(file, name);
    }
    bool get(const std::string& name)
    {
        std::FILE* const file = std::fopen(target().c_str(), "wb");
        curl_easy_setopt(m_curl, CURLOPT_UPLOAD, 0L);
        curl_easy_setopt(m_curl, CURLOPT_HTTPGET, 1L);
        curl_easy_setopt(m_curl, CURLOPT_WRITEDATA, file);
        return perform(file, name);
    }

private:
    bool perform(std::FILE* file, const std::string& name)
    {
        const std::string url = "ftp://127.0.0.1:" + std::to_string(port()) + "/upload/" + name;
        curl_easy_setopt(m_curl, CURLOPT_URL, url.c_str());
        const bool done = run();
        std::fclose(file);
        return done;
    }

    // As curl_easy_perform, which waits a whole second where a reply comes before it has begun to wait for
    // it.
    bool run()
    {
        curl_multi_add_handle(m_loop, m_curl);
        int running = 1;
        while (running && curl_multi_perform(m_loop, &running) == CURLM_OK)
            if (running) curl_multi_poll(m_loop, nullptr, 0, 1, nullptr);
        int left = 0;
        const CURLMsg* const message = curl_multi_info_read(m_loop, &left);
        const bool done = message && message->data.result == CURLE_OK;
        curl_multi_remove_handle(m_loop, m_curl);
        return done;
    }

    static int opened(void* self, curl_socket_t socket, curlsocktype)
    {
        if (auto& control = static_cast<Curl*>(self)->m_control; control < 0) control = socket;
        return CURL_SOCKOPT_OK;
    }

    // The server sends the reply behind a transfer once the one before it has been acknowledged, which the
    // system may put off for 40 ms: that would be measured, and nothing else.
    static std::size_t received(char*, std::size_t size, std::size_t count, void* self)
    {
        const int on = 1;
        ::setsockopt(static_cast<Curl*>(self)->m_control, IPPROTO_TCP, TCP_QUICKACK, &on, sizeof on);
        return size * count;
    }

    CURL* m_curl;
    CURLM* m_loop;
    int m_control = -1; // the first socket of the session
};

template <class Client>
void upload(benchmark::State& state, std::size_t size, int count)
{
    const std::string from = localFile("source.bin", size);
    Client client;
    for (auto _ : state)
        for (int i = 0; i < count; ++i)
            if (!client.put(from, size, "up" + std::to_string(i))) giveUp("upload");
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count == 1 ? size : count));
}

template <class Client>
void download(benchmark::State& state, std::size_t size, int count)
{
    const std::string from = localFile("source.bin", size);
    Client client;
    for (int i = 0; i < count; ++i)
        std::filesystem::copy_file(from, workload::scratch("site/upload/down" + std::to_string(i)),
                                   std::filesystem::copy_options::overwrite_existing);
    for (auto _ : state)
        for (int i = 0; i < count; ++i)
            if (!client.get("down" + std::to_string(i))) giveUp("download");
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count == 1 ? size : count));
}

template <class Client>
void add(const std::string& who)
{
    const auto one = [&](const char* path, auto run, std::size_t size, int count) {
        benchmark::RegisterBenchmark(("ftp/" + std::string(path) + "/" + who).c_str(), run, size, count)
            ->UseRealTime()
            ->Unit(benchmark::kMillisecond);
    };
    one("upload_64_mib", upload<Client>, large, 1);
    one("download_64_mib", download<Client>, large, 1);
    one("upload_small_files", upload<Client>, small, files);
    one("download_small_files", download<Client>, small, files);
}

} // namespace

int main(int argc, char** argv)
{
    curl_global_init(CURL_GLOBAL_ALL);
    benchmark::Initialize(&argc, argv);
    const Server own;
    server = &own;
    add<CoreKit>("corekit");
    add<Curl>("libcurl");
    benchmark::RunSpecifiedBenchmarks();
}
