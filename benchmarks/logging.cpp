// Log lines: one that is flushed, and one that the level filters out. Every logger gets a ready text and
// stamps it with time and level; in formatted_line each composes the text by its own means as well.
#include "workload.h"

#include "corekit/foundation/StringA.h"
#include "corekit/logging/LogTarget.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <glog/logging.h>
#include <log4cplus/fileappender.h>
#include <log4cplus/initializer.h>
#include <log4cplus/layout.h>
#include <log4cplus/logger.h>
#include <log4cplus/loggingmacros.h>
#include <memory>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>
#include <unistd.h>

namespace {

struct Message {
    workload::LogMessage parts;
    std::string ready;
};

const std::vector<Message>& Messages()
{
    static const auto messages = [] {
        std::vector<Message> all;
        for (const workload::LogMessage& m : workload::logMessages())
            all.push_back({m, "item " + std::to_string(m.item) + " of " + std::to_string(m.total) + " took " +
                                  std::to_string(m.millis) + " ms: " + m.text});
        return all;
    }();
    return messages;
}

std::string Folder()
{
    const char* folder = std::getenv("BENCH_SCRATCH");
    return folder ? folder : "/tmp";
}

// Runs write for every message, and removes the file in the end.
template <class Write>
void EachMessage(benchmark::State& state, const std::string& file, Write write)
{
    for (auto _ : state)
        for (const Message& message : Messages()) write(message);
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Messages().size()));
    ::unlink(file.c_str());
}

void CoreKit(benchmark::State& state, unsigned long mask, bool composes)
{
    CLogTarget log;
    if (!log.CreateLogFile("corekit", Folder().c_str(), 1)) state.SkipWithError("open");
    log.SetLogMask(mask);
    std::string file;
    for (const auto& entry : std::filesystem::directory_iterator(Folder()))
        if (entry.path().filename().string().starts_with("corekit")) file = entry.path();
    if (composes)
        EachMessage(state, file, [&log](const Message& m) {
            StringA text;
            text.Format("item %d of %d took %d ms: %s", m.parts.item, m.parts.total, m.parts.millis,
                        m.parts.text.c_str());
            log.LogInfoMsg(text);
        });
    else
        EachMessage(state, file, [&log](const Message& m) { log.LogInfoMsg(m.ready.c_str()); });
}

void Spdlog(benchmark::State& state, spdlog::level::level_enum level, bool composes)
{
    const std::string file = Folder() + "/spdlog.log";
    spdlog::logger log("peer", std::make_shared<spdlog::sinks::basic_file_sink_mt>(file, true));
    log.set_pattern("%d:%m:%Y %H:%M:%S  %-16l  %v");
    log.set_level(level);
    log.flush_on(spdlog::level::trace);
    if (composes)
        EachMessage(state, file, [&log](const Message& m) {
            log.info("item {} of {} took {} ms: {}", m.parts.item, m.parts.total, m.parts.millis,
                     m.parts.text);
        });
    else
        EachMessage(state, file, [&log](const Message& m) { log.info(m.ready); });
}

void Log4cplus(benchmark::State& state, log4cplus::LogLevel level)
{
    static const log4cplus::Initializer initializer;
    const std::string file = Folder() + "/log4cplus.log";
    log4cplus::Logger log = log4cplus::Logger::getInstance("peer");
    log.removeAllAppenders();
    log.setAdditivity(false);
    log4cplus::SharedAppenderPtr appender(new log4cplus::FileAppender(file, std::ios_base::trunc, true));
    appender->setLayout(std::make_unique<log4cplus::PatternLayout>("%D{%d:%m:%Y %H:%M:%S}  %-16p  %m%n"));
    log.addAppender(appender);
    log.setLogLevel(level);
    EachMessage(state, file, [&log](const Message& m) { LOG4CPLUS_INFO(log, m.ready); });
    log.removeAllAppenders();
}

void Glog(benchmark::State& state)
{
    const std::string file = Folder() + "/glog";
    static const bool once = [&file] {
        FLAGS_logbufsecs = 0;
        FLAGS_logtostderr = false;
        FLAGS_stderrthreshold = 4;
        google::InitGoogleLogging("bench");
        google::SetLogDestination(google::INFO, file.c_str());
        for (const auto severity : {google::WARNING, google::ERROR, google::FATAL})
            google::SetLogDestination(severity, "");
        google::SetLogSymlink(google::INFO, "");
        return true;
    }();
    benchmark::DoNotOptimize(once);
    EachMessage(state, file, [](const Message& m) { LOG(INFO) << m.ready; });
}

// What no logger can pass: the line is ready and goes out as it is.
void BareWrite(benchmark::State& state)
{
    const std::string file = Folder() + "/write.log";
    std::vector<std::string> lines;
    for (const Message& m : Messages())
        lines.push_back("14:11:2026 18:30:05  Information       " + m.ready + "\n");
    const int fd = ::open(file.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_APPEND | O_CLOEXEC, 0600);
    std::size_t next = 0;
    EachMessage(state, file, [&](const Message&) {
        const std::string& line = lines[next++ % lines.size()];
        benchmark::DoNotOptimize(::write(fd, line.data(), line.size()));
    });
    ::close(fd);
}

void CoreKitFlushed(benchmark::State& state) { CoreKit(state, ~0ul, false); }
void SpdlogFlushed(benchmark::State& state) { Spdlog(state, spdlog::level::trace, false); }
void Log4cplusFlushed(benchmark::State& state) { Log4cplus(state, log4cplus::TRACE_LOG_LEVEL); }
void CoreKitFormatted(benchmark::State& state) { CoreKit(state, ~0ul, true); }
void SpdlogFormatted(benchmark::State& state) { Spdlog(state, spdlog::level::trace, true); }
void CoreKitFiltered(benchmark::State& state) { CoreKit(state, logMajorError, false); }
void SpdlogFiltered(benchmark::State& state) { Spdlog(state, spdlog::level::err, false); }
void Log4cplusFiltered(benchmark::State& state) { Log4cplus(state, log4cplus::ERROR_LOG_LEVEL); }

} // namespace

BENCHMARK(CoreKitFlushed)->Name("logging/flushed_line/corekit");
BENCHMARK(SpdlogFlushed)->Name("logging/flushed_line/spdlog");
BENCHMARK(Log4cplusFlushed)->Name("logging/flushed_line/log4cplus");
BENCHMARK(Glog)->Name("logging/flushed_line/glog");
BENCHMARK(BareWrite)->Name("logging/flushed_line/limit_write");
BENCHMARK(CoreKitFormatted)->Name("logging/formatted_line/corekit");
BENCHMARK(SpdlogFormatted)->Name("logging/formatted_line/spdlog");
BENCHMARK(CoreKitFiltered)->Name("logging/filtered_out/corekit");
BENCHMARK(SpdlogFiltered)->Name("logging/filtered_out/spdlog");
BENCHMARK(Log4cplusFiltered)->Name("logging/filtered_out/log4cplus");
BENCHMARK_MAIN();
