#include "corekit/platform/posix/services/ControlSocket.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace corekit::detail {
namespace {

std::string variable(const char* name)
{
    const char* const value = ::getenv(name);
    return value ? value : "";
}

std::string folderBelow(const std::string& root, std::string serviceName)
{
    const auto isPlain = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '-'; };
    std::ranges::replace_if(serviceName, std::not_fn(isPlain), '_');
    return root + "/corekit/" + serviceName;
}

// Makes the last two parts of the path as far as they are missing.
void makeFolder(const std::string& folder)
{
    ::mkdir(folder.substr(0, folder.find_last_of('/')).c_str(), 0755);
    ::mkdir(folder.c_str(), 0755);
}

// Where a service of that name listens.
std::string ownFolder(const std::string& serviceName)
{
    const std::string given = variable("RUNTIME_DIRECTORY");
    if (!given.empty()) return given.substr(0, given.find(':'));
    const std::string session = variable("XDG_RUNTIME_DIR");
    return folderBelow(session.empty() ? "/run" : session, serviceName);
}

Descriptor makeSocket()
{
    return Descriptor(::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

// An errno, 0 for success. What is longer than an address cannot be one.
template <class Operation>
int atAddress(const std::string& path, Operation operation)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return ENAMETOOLONG;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return operation(reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 ? 0 : errno;
}

int connectTo(const Descriptor& socket, const std::string& path)
{
    return atAddress(path,
                     [&](auto* address, socklen_t size) { return ::connect(socket.get(), address, size); });
}

} // namespace

ControlSocket::ControlSocket(const std::string& serviceName)
{
    const std::string folder = ownFolder(serviceName);
    makeFolder(folder);
    const std::string path = folder + "/control";
    if (connectTo(makeSocket(), path) == 0) return;
    Descriptor socket = makeSocket();
    ::fchmod(socket.get(), 0600); // what bind makes has these rights
    ::unlink(path.c_str());       // left behind by a service that was killed
    if (atAddress(path, [&](auto* address, socklen_t size) { return ::bind(socket.get(), address, size); }) !=
        0)
        return;
    m_socket = std::move(socket);
    m_path = path;
}

ControlSocket::~ControlSocket()
{
    if (m_socket) ::unlink(m_path.c_str());
}

DWORD ControlSocket::next()
{
    char text[16];
    for (;;) {
        const ssize_t length = ::recv(m_socket.get(), text, sizeof text, 0);
        if (length < 0) return 0;
        DWORD control = 0;
        const auto end = std::from_chars(text, text + length, control);
        if (end.ec == std::errc() && control >= 1 && control <= 255) return control;
    }
}

int ControlSocket::send(const std::string& serviceName, DWORD control)
{
    const std::string text = std::to_string(control);
    int error = ENOENT;
    for (const std::string& root : {variable("XDG_RUNTIME_DIR"), std::string("/run")}) {
        const Descriptor socket = makeSocket();
        error = connectTo(socket, folderBelow(root, serviceName) + "/control");
        if (error == 0) return ::send(socket.get(), text.data(), text.size(), MSG_NOSIGNAL) < 0 ? errno : 0;
    }
    return error;
}

} // namespace corekit::detail
