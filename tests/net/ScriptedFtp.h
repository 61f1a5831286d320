// An FTP server that says what a test has it say.
#pragma once

#include "tests/net/Loopback.h"

#include <functional>
#include <optional>
#include <string>
#include <thread>

// Serves one control connection on a thread of its own with the script, which runs until it is done or the
// client has gone.
class ScriptedFtp {
public:
    class Session {
    public:
        explicit Session(loopback::End control) : m_control(std::move(control)) {}

        void say(std::string_view text) const { m_control.send(text); }
        // The next command without its line end; empty when the client has gone.
        std::string hear()
        {
            for (;;) {
                if (const auto end = m_heard.find("\r\n"); end != m_heard.npos) {
                    const std::string line = m_heard.substr(0, end);
                    m_heard.erase(0, end + 2);
                    return line;
                }
                const std::string more = m_control.receive(1);
                if (more.empty()) return more;
                m_heard += more;
            }
        }
        void expect(std::string_view command) { EXPECT_EQ(hear(), command); }
        void answer(std::string_view command, std::string_view reply)
        {
            expect(command);
            say(reply);
        }
        void logon()
        {
            say("220 ready\r\n");
            answer("USER u", "331 who\r\n");
            answer("PASS p", "230 in\r\n");
        }
        // Answers TYPE and PASV; data connections are taken with `data`.
        void passive(std::string_view type)
        {
            answer(std::string("TYPE ").append(type), "200 ok\r\n");
            expect("PASV");
            offerData();
        }
        void offerData()
        {
            m_data.emplace();
            say(passiveReply(m_data->port()));
        }
        loopback::End data() const { return m_data->accept(); }
        static std::string passiveReply(int port, const std::string& host = "127,0,0,1")
        {
            return "227 Entering (" + host + "," + std::to_string(port / 256) + "," +
                   std::to_string(port % 256) + ").\r\n";
        }
        loopback::End& control() { return m_control; }
        void awaitEnd() { EXPECT_EQ(hear(), ""); }

    private:
        loopback::End m_control;
        std::string m_heard;
        std::optional<loopback::Listener> m_data;
    };

    explicit ScriptedFtp(std::function<void(Session&)> script)
        : m_thread([this, script = std::move(script)] {
              Session session(m_listener.accept());
              script(session);
          })
    {
    }
    ~ScriptedFtp()
    {
        if (m_thread.joinable()) m_thread.join();
    }
    int port() const { return m_listener.port(); }

private:
    loopback::Listener m_listener;
    std::thread m_thread;
};
