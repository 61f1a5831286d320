// corekit applet: what is in a library of control-panel applets, opened where wanted.
#include "Commands.h"
#include "PictureNames.h"
#include "Table.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/ControlPanel.h"
#include "corekit/platform/Libraries.h"
#include "corekit/platform/Toolkit.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>

namespace {

// A loaded library of applets, from CPL_INIT to CPL_EXIT.
class Applets {
public:
    explicit Applets(const std::string& path)
        : m_module(LoadLibraryA(std::filesystem::absolute(path).c_str()))
    {
        if (!m_module) throw std::runtime_error(path + ": cannot be loaded as a library");
        m_entry =
            reinterpret_cast<APPLET_PROC>(reinterpret_cast<void*>(GetProcAddress(m_module, "CPlApplet")));
        const std::string reason = !m_entry ? ": holds no applets" : Ask(CPL_INIT) ? "" : ": does not start";
        if (reason.empty()) return;
        FreeLibrary(m_module);
        throw std::runtime_error(path + reason);
    }
    ~Applets()
    {
        Ask(CPL_EXIT);
        FreeLibrary(m_module);
    }
    Applets(const Applets&) = delete;
    Applets& operator=(const Applets&) = delete;

    int Count() const { return static_cast<int>(Ask(CPL_GETCOUNT)); }
    CPLINFO Inquire(int index) const
    {
        CPLINFO info{};
        Ask(CPL_INQUIRE, index, reinterpret_cast<LPARAM>(&info));
        return info;
    }
    void Open(int index) const { Ask(CPL_DBLCLK, index, Inquire(index).lData); }

private:
    LONG Ask(UINT message, LPARAM first = 0, LPARAM second = 0) const
    {
        return m_entry(nullptr, message, first, second);
    }

    HMODULE m_module;
    APPLET_PROC m_entry = nullptr;
};

void List(const Applets& applets)
{
    TableRows rows = {{"N", "NAME", "WHAT IT DOES"}};
    for (int i = 0; i < applets.Count(); ++i) {
        const CPLINFO info = applets.Inquire(i);
        rows.push_back({std::to_string(i), LoadResourceString(static_cast<UINT>(info.idName)).GetString(),
                        LoadResourceString(static_cast<UINT>(info.idInfo)).GetString()});
    }
    PrintTable(rows, {"N"});
}

void Run(const std::string& library, std::optional<int> index)
{
    if (index && !(StartToolkit() && ToolkitHasDisplay()))
        throw std::runtime_error("the windows of an applet need a display");
    const Applets applets(library);
    if (!index) return List(applets);
    if (*index < 0 || *index >= applets.Count())
        throw std::runtime_error(library + ": has no applet " + std::to_string(*index));
    applets.Open(*index);
}

} // namespace

void AddAppletCommand(CLI::App& app)
{
    const auto library = std::make_shared<std::string>();
    const auto index = std::make_shared<std::optional<int>>();
    CLI::App* applet = app.add_subcommand("applet", PictureDescription("applet"));
    applet->add_option("library", *library, "The shared library")->required()->check(CLI::ExistingFile);
    applet->add_option("n", *index, "Open this one, from 0");
    OfferJson(*applet);
    applet->callback([library, index] { Run(*library, *index); });
}
