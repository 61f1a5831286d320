// An FTP server that keeps what it is sent in memory. One session at a time.
#pragma once

#include "tests/net/ScriptedFtp.h"

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>

class SmallFtp {
public:
    // Port 0 takes a free one.
    explicit SmallFtp(int port = 0) : m_listener(4, port), m_thread([this] { Serve(); }) {}
    ~SmallFtp()
    {
        m_listener.stop();
        m_thread.join();
    }

    int Port() const { return m_listener.port(); }
    std::map<std::string, std::string> Files() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_files;
    }
    // From now on uploads are refused, or not.
    void SetFull(bool full)
    {
        const std::scoped_lock lock(m_mutex);
        m_isFull = full;
    }
    // Called when the next upload has begun, before anything more is read of it.
    void OnNextUpload(std::function<void()> call)
    {
        const std::scoped_lock lock(m_mutex);
        m_onUpload = std::move(call);
    }

private:
    using Session = ScriptedFtp::Session;

    void Serve()
    {
        while (loopback::End control = m_listener.accept(-1)) Talk(Session(std::move(control)));
    }
    void Talk(Session session)
    {
        session.say("220 ready\r\n");
        for (std::string line; !(line = session.hear()).empty();) {
            const std::string verb = line.substr(0, 4), argument = line.size() > 5 ? line.substr(5) : "";
            if (verb == "USER")
                session.say("331 who\r\n");
            else if (verb == "PASS")
                session.say("230 in\r\n");
            else if (verb == "PASV")
                session.offerData();
            else if (verb == "STOR")
                Store(session, session.data(), argument);
            else
                session.say("200 ok\r\n");
        }
    }
    void Store(const Session& session, const loopback::End& data, const std::string& name)
    {
        std::function<void()> onUpload;
        {
            const std::scoped_lock lock(m_mutex);
            if (m_isFull) return session.say("552 no room\r\n");
            onUpload.swap(m_onUpload);
        }
        session.say("150 go\r\n");
        std::string content;
        if (onUpload) {
            content = data.receive(1);
            onUpload();
        }
        if (!ReadToEnd(data, content)) return session.say("426 cut\r\n");
        {
            const std::scoped_lock lock(m_mutex);
            m_files[name] = content;
        }
        session.say("226 done\r\n");
    }
    // False if the connection was cut.
    static bool ReadToEnd(const loopback::End& data, std::string& content)
    {
        std::string part(65536, '\0');
        for (;;) {
            if (!data.isReady()) return false;
            const ssize_t count = ::recv(data.fd(), part.data(), part.size(), 0);
            if (count <= 0) return count == 0;
            content.append(part, 0, static_cast<std::size_t>(count));
        }
    }

    loopback::Listener m_listener;
    mutable std::mutex m_mutex;
    std::map<std::string, std::string> m_files;
    std::function<void()> m_onUpload;
    bool m_isFull = false;
    std::thread m_thread; // uses all the rest
};
