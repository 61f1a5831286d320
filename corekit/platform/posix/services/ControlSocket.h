// The socket on which a service hears controls that have no signal.
#pragma once

#include "corekit/platform/posix/files/File.h"

#include <string>

namespace corekit::detail {

class ControlSocket {
public:
    // Has no descriptor if the place cannot be had or another service of that name listens there.
    explicit ControlSocket(const std::string& serviceName);
    ~ControlSocket(); // removes it from the file system
    ControlSocket(const ControlSocket&) = delete;
    ControlSocket& operator=(const ControlSocket&) = delete;

    int descriptor() const { return m_socket.get(); }
    // The next control from 1 to 255 that came, 0 for none.
    DWORD next();

    // Sends one to the service of that name; an errno, 0 for success.
    static int send(const std::string& serviceName, DWORD control);

private:
    Descriptor m_socket;
    std::string m_path;
};

} // namespace corekit::detail
