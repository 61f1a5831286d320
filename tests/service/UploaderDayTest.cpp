// A day and a night of the upload service, by the test clock.
#include "tests/logging/LogFolder.h"
#include "tests/service/SmallFtp.h"

#include "Uploader.h"

#include "corekit/net/XSocketApi.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/Waits.h"
#include "tests/support/FullDisk.h"

#include <memory>
#include <optional>

namespace {

constexpr long quarter = 15 * 60;

class UploaderDay : public LogFolder {
protected:
    void SetUp() override
    {
        ASSERT_EQ(XSocketApi::InitSockets(), nullptr);
        settings.folder = scripts.Path();
        settings.server = "127.0.0.1";
        settings.port = server->Port();
        settings.timeout = 5000;
        alerts.SetLogTarget(&log);
        log.SetOldLogFileDays(1);
        Start();
    }
    void TearDown() override { CloseHandle(stop); }

    void Start()
    {
        ResetEvent(stop);
        ASSERT_TRUE(log.CreateLogFile("Upload", folder.Path().c_str(), 1));
        uploader = std::make_unique<Uploader>(settings, alerts, stop);
    }
    void Write(const std::string& name, std::size_t size)
    {
        std::string text(size, '\0');
        for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char>(i * 7 + written.size());
        WriteWhole(scripts / name, text);
        written[name] = text;
    }
    // Looks four times within an hour, which a new script begins.
    void Hour(int hour)
    {
        Write("script-" + std::to_string(hour) + ".txt", static_cast<std::size_t>(1000 + hour));
        for (int look = 0; look < 4; ++look) {
            uploader->Look();
            clock.Advance(quarter);
        }
    }
    // How many lines of all day files have the text.
    std::size_t Logged(const std::string& text) const
    {
        std::size_t count = 0;
        for (const std::string& name : Names())
            for (const std::string& line : Lines(name)) count += line.find(text) != std::string::npos;
        return count;
    }

    CTestClock clock{2026, 11, 14, 12, 0, 0};
    TempFolder scripts;
    std::map<std::string, std::string> written;
    std::optional<SmallFtp> server{std::in_place};
    HANDLE stop = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    UploadSettings settings;
    CLogTarget log;
    CAlertSink alerts;
    std::unique_ptr<Uploader> uploader;
};

TEST_F(UploaderDay, LosesNoScriptAndNoLineInTwentyFourHours)
{
    for (const char* day : {"2026-11-11", "2026-11-12", "2026-11-13"})
        MakeFile(std::string("Upload.") + day + ".log");
    std::map<std::string, std::string> arrived;
    for (int hour = 0; hour < 24; ++hour) {
        const int port = server ? server->Port() : settings.port;
        if (hour == 3) arrived = server->Files(), server.reset(); // unreachable for three hours
        if (hour == 6) server.emplace(port);
        if (hour == 8) server->SetFull(true); // refuses for two
        if (hour == 10) server->SetFull(false);
        if (hour == 13) { // no room for the log for an hour
            Write("script-13.txt", 1013);
            const FullDisk full;
            for (int look = 0; look < 4; ++look) uploader->Look(), clock.Advance(quarter);
            continue;
        }
        if (hour == 17) { // stopped while a long script is under way, and started again
            Write("long.txt", 32 << 20);
            uploader->Look();
            server->OnNextUpload([this] { SetEvent(stop); });
            EXPECT_EQ(uploader->Look(), 0);
            log.CloseLogFile();
            Start();
        }
        Hour(hour);
    }
    log.CloseLogFile();

    arrived.merge(server->Files());
    EXPECT_EQ(arrived, written);
    EXPECT_EQ(Logged(", 1 lost"), 1u);
    for (const auto& [name, content] : written)
        EXPECT_EQ(Logged(name + ": sent, "), name == "script-13.txt" ? 0u : 1u) << name;
    EXPECT_EQ(Logged("cannot be reached"), 1u);
    EXPECT_EQ(Logged("can be reached again"), 1u);
    EXPECT_EQ(Logged("not sent, "), 2u);
    EXPECT_EQ(Logged("long.txt: broken off, will be sent again"), 1u);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Upload.2026-11-14.log", "Upload.2026-11-15.log"}));
}

TEST_F(UploaderDay, AScriptThatGrowsWhileItIsSentIsSentAgainWhole)
{
    Write("long.txt", 1000);
    uploader->Look();
    server->OnNextUpload([this] {
        written["long.txt"] += "tail";
        WriteWhole(scripts / "long.txt", written["long.txt"]);
    });
    EXPECT_EQ(uploader->Look(), 0);
    uploader->Look();
    uploader->Look();
    EXPECT_EQ(server->Files(), written);
    EXPECT_EQ(ReadWhole(scripts / "sent/long.txt"), written["long.txt"]);
    EXPECT_EQ(Logged("changed while it was sent"), 1u);
}

} // namespace
