// prompter: the desktop host of scripts that are read to a camera.
#include "desk/Desk.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/WinApp.h"
#include "corekit/platform/Toolkit.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <stdexcept>

namespace {

struct Order {
    prompter::DeskOptions desk;
    int remotePort = -1;
    std::string remoteAddress = "127.0.0.1", remoteWord;
};

void Describe(CLI::App& app, Order& order)
{
    app.footer("Example: prompter --news /srv/news --remote 4000 evening.txt\n"
               "F5 shows the script on the display, Space starts it, Escape comes back.");
    app.add_option("script", order.desk.script,
                   "the script; one that does not exist yet is made when it is saved");
    app.add_option("--codepage", order.desk.codePage,
                   "number of the code page of a script without a byte order mark");
    app.add_option("--news", order.desk.newsFolder, "folder whose new and changed .txt files become stories");
    app.add_option("--controller", order.desk.controllerPort,
                   "number of the serial port of a hand controller")
        ->check(CLI::Range(1, 256));
    app.add_option("--settings", order.desk.settingsPath, "file of the settings")->capture_default_str();
    app.add_option("--remote", order.remotePort, "port for remote control, 0 for any free one")
        ->check(CLI::Range(0, 65535));
    app.add_option("--remote-address", order.remoteAddress,
                   "address to listen at; others than 127.0.0.1 need a word")
        ->capture_default_str();
    app.add_option("--remote-word", order.remoteWord,
                   "shared word that the first line of a connection must hold");
}

int Run(Order& order)
{
    if (!StartToolkit()) throw std::runtime_error("the window toolkit could not be started");
    if (order.remotePort >= 0) order.desk.remote = {order.remoteAddress, order.remotePort, order.remoteWord};
    CWinApp application("prompter");
    prompter::Desk desk(order.desk);
    desk.Open();
    if (desk.RemotePort()) std::printf("Remote control: port %d\n", desk.RemotePort());
    std::fflush(stdout);
    application.m_pMainWnd = &desk;
    const int exitCode = application.Run();
    application.m_pMainWnd = nullptr;
    return exitCode;
}

int Complain(const char* why)
{
    std::fprintf(stderr, "prompter: %s\n", why);
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Shows a script on a prompter's display, and lets it be edited while it runs.", "prompter");
    Order order;
    Describe(app, order);
    CLI11_PARSE(app, argc, argv);
    try {
        return Run(order);
    } catch (const std::exception& e) {
        return Complain(e.what());
    } catch (CException* e) {
        char text[1024] = "";
        e->GetErrorMessage(text, sizeof text);
        e->Delete();
        return Complain(text);
    }
}
