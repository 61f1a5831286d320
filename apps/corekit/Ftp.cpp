// corekit ftp: files and folders on an FTP server.
#include "Commands.h"
#include "FtpPlace.h"
#include "OutputFile.h"
#include "Table.h"
#include "Terminal.h"

#include "corekit/net/FtpClient.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/HarmlessText.h"
#include "corekit/stores/EntryPath.h"
#include "corekit/stores/FileStream.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace {
namespace fs = std::filesystem;

constexpr std::uintmax_t largest = 0xFFFFFFFE; // bytes that a stream reaches to

struct Options {
    std::string place, password, accounts, folder = ".";
    std::vector<std::string> names;
    double limit = 30, mostSeconds = 0;
    bool fast = false, trust = false, verbose = false, isLong = false;
};

void Show(void*, int, const char* line)
{
    const bool isSecret = std::string_view(line).starts_with("PASS ");
    const std::string shown = corekit::HarmlessText(line, corekit::LineEnds::escaped);
    std::fprintf(stderr, "%s\n", isSecret ? "PASS ..." : shown.c_str());
}

// A session in the place's folder.
class Session {
public:
    explicit Session(const Options& options)
    {
        const FtpPlace place = ParseFtpPlace(options.place);
        const FtpAccount account = FindFtpAccount(place, options.password, options.accounts);
        m_host = place.host;
        if (options.verbose) m_client.SetLoggingCallback(&Show, nullptr);
        m_client.SetTimeout(static_cast<unsigned long>(options.limit * 1000));
        m_client.SetDataToControlHost(!options.trust);
        m_mostMilliseconds = static_cast<unsigned long>(options.mostSeconds * 1000);
        StartClock();
        Must(m_client.Connect(place.host.c_str(), place.port, account.user.c_str(), account.password.c_str(),
                              1));
        if (options.fast) Must(m_client.SetConnectionMode(ftpModeAvidFast));
        if (!place.folder.empty()) Must(m_client.ChangeDirectory(place.folder.c_str()));
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    CFtpClient* operator->() { return &m_client; }
    // The next file has its time for itself.
    void StartClock() { m_client.SetTotalTimeout(m_mostMilliseconds); }
    // Throws what the client says of a failure.
    void Must(int done, const std::string& name = {})
    {
        if (done) return;
        std::string text = name.empty() ? m_host : name;
        text += std::string(": ") + m_client.GetLastError().GetString();
        if (!m_client.GetLastFtpMessage().IsEmpty())
            text += std::string(" ") + m_client.GetLastFtpMessage().GetString();
        if (m_client.IsTimeOver()) text += "; it took longer than --max-time";
        throw std::runtime_error(text);
    }

private:
    // Ends the session also where the rest of its beginning fails.
    struct Client : CFtpClient {
        ~Client() override { Disconnect(); }
    };

    Client m_client;
    std::string m_host;
    unsigned long m_mostMilliseconds = 0;
};

// A file that shows how far its transfer has come.
class Watched : public CFileStream {
public:
    Watched(const std::string& what, std::uintmax_t size) : m_bar(what, size) {}
    std::string Summary() const { return m_bar.Summary(); }

protected:
    void InternalRead(void* buffer, DWORD count) override
    {
        CFileStream::InternalRead(buffer, count);
        m_bar.Advance(count);
    }
    void InternalWrite(const void* buffer, DWORD count) override
    {
        CFileStream::InternalWrite(buffer, count);
        m_bar.Advance(count);
    }

private:
    TransferBar m_bar;
};

std::vector<std::string> Lines(Session& session, bool isLong)
{
    CStringArray lines;
    session.Must(isLong ? session->GetRawDirectoryListing(lines) : session->GetNameList(lines));
    std::vector<std::string> all;
    for (int i = 0; i < lines.GetSize(); ++i) all.emplace_back(lines[i].GetString());
    return all;
}

void List(const Options& options)
{
    Session session(options);
    const std::vector<std::string> lines = Lines(session, options.isLong);
    if (!IsJsonWanted()) {
        for (const std::string& line : lines) PrintLine(line);
        return;
    }
    TableRows rows = {{options.isLong ? "line" : "name"}};
    for (const std::string& line : lines) rows.push_back({line});
    PrintTable(rows);
}

// The size of a file as the usual long listing tells it; 0 when it does not.
std::uintmax_t SizeIn(const std::vector<std::string>& listing, const std::string& name)
{
    for (const std::string& line : listing) {
        std::istringstream words(line);
        std::string rights, links, owner, group;
        std::uintmax_t size = 0;
        if (line.ends_with(" " + name) && words >> rights >> links >> owner >> group >> size) return size;
    }
    return 0;
}

// The file takes its name when it is whole.
void GetOne(Session& session, const std::string& name, const Options& options, std::uintmax_t size)
{
    const std::string leaf = corekit::LastPart(name);
    if (!corekit::IsInsideName(leaf)) throw std::runtime_error(name + ": no name of a file");
    const std::string path = (fs::path(options.folder) / leaf).string();
    OutputFile target(path);
    Watched file(leaf, size);
    target.Open(file);
    session.Must(session->GetFileToStream(name.c_str(), file), name);
    file.Flush();
    file.Close();
    target.Commit();
    Print("%s: %s\n", path.c_str(), file.Summary().c_str());
}

void Get(const Options& options)
{
    Session session(options);
    std::vector<std::string> listing;
    if (TransferBar::IsVisible()) listing = Lines(session, true);
    for (const std::string& name : options.names) {
        session.StartClock();
        GetOne(session, name, options, SizeIn(listing, name));
    }
}

void Put(const Options& options)
{
    for (const std::string& path : options.names)
        if (fs::file_size(path) > largest) throw std::runtime_error(path + ": longer than 4 GiB");
    Session session(options);
    for (const std::string& path : options.names) {
        const std::string name = fs::path(path).filename().string();
        Watched file(name, fs::file_size(path));
        if (!file.Open(path.c_str(), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, 0)) FailFor(path);
        session.StartClock();
        session.Must(session->UploadStream(name.c_str(), file), path);
        Print("%s: %s\n", path.c_str(), file.Summary().c_str());
    }
}

template <int (CFtpClient::*operation)(const char*)>
void Each(const Options& options)
{
    Session session(options);
    for (const std::string& name : options.names) {
        session.StartClock();
        session.Must(((*session.operator->()).*operation)(name.c_str()), name);
    }
}

bool HasControl(const std::string& text)
{
    return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

void AddSessionOptions(CLI::App& command, const std::shared_ptr<Options>& options)
{
    command
        .add_option("place", options->place,
                    "[user@]host[:port][/folder]; //folder begins at the server's root")
        ->required();
    command.add_option("--password", options->password,
                       "The password, for others to see in the list of processes");
    command.add_option("--accounts", options->accounts,
                       "A file of accounts like ~/.netrc, which is looked at without this");
    command
        .add_option("--timeout", options->limit, "Seconds to wait for the server at each step, by default 30")
        ->check(CLI::Range(0.001, 86400.0));
    command
        .add_option("--max-time", options->mostSeconds,
                    "Seconds that a listing, or each file or folder, may take in all")
        ->check(CLI::Range(0.001, 1e9));
    command.add_flag("--fast", options->fast,
                     "The AvidFast mode, where a downloaded file ends at its first byte 4");
    command.add_flag("--trust-address", options->trust,
                     "Connect for data to whatever address the server names");
    command.add_flag("--verbose", options->verbose, "Show the dialogue on standard error");
}
} // namespace

void AddFtpCommand(CLI::App& app)
{
    const auto options = std::make_shared<Options>();
    CLI::App* ftp = app.add_subcommand("ftp", "Move files to and from an FTP server");
    ftp->require_subcommand(1);
    ftp->footer("A password comes from COREKIT_FTP_PASSWORD, from ~/.netrc (machine HOST login USER password "
                "PASSWORD),\n"
                "or is asked for. Without a user the session is anonymous.");
    const auto add = [&](const char* name, const char* text, void (*run)(const Options&), const char* names) {
        CLI::App* command = ftp->add_subcommand(name, text);
        AddSessionOptions(*command, options);
        if (names)
            command->add_option("names", options->names, names)
                ->required()
                ->check([](const std::string& one) {
                    return HasControl(one) ? std::string("a name cannot hold control characters")
                                           : std::string();
                });
        command->callback([options, run] { run(*options); });
        return command;
    };
    CLI::App* list = add("ls", "List the names in a folder", List, nullptr);
    list->add_flag("-l,--long", options->isLong, "The server's own long form");
    OfferJson(*list);
    add("get", "Fetch files", Get, "Files on the server")
        ->add_option("-o,--output", options->folder, "The folder to put them in, by default this one");
    add("put", "Send files", Put, "Files of this machine");
    add("rm", "Delete files", Each<&CFtpClient::DeleteFileA>, "Files on the server");
    add("mkdir", "Make folders", Each<&CFtpClient::MakeDirectory>, "Folders on the server");
    add("rmdir", "Delete empty folders", Each<&CFtpClient::RemoveDirectoryA>, "Folders on the server");
}
