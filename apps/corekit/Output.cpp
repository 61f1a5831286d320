#include "Output.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Console.h"
#include "corekit/platform/HarmlessText.h"
#include "corekit/platform/ReplacedFile.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <stdexcept>
#include <system_error>

namespace {
[[noreturn]] void FailToPrint()
{
    const int reason = errno;
    throw std::runtime_error("standard output: " + std::generic_category().message(reason));
}
} // namespace

void PrintBytes(std::string_view bytes)
{
    static const bool isTerminal = TerminalColumns(StandardStream::Output) > 0;
    std::string shown;
    if (isTerminal) bytes = shown = corekit::HarmlessText(bytes, corekit::LineEnds::kept);
    if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size()) FailToPrint();
}

void PrintLine(std::string_view text) { PrintBytes(std::string(text) + "\n"); }

void Print(const char* format, ...)
{
    std::va_list arguments, again;
    va_start(arguments, format);
    va_copy(again, arguments);
    std::string text(static_cast<std::size_t>(std::vsnprintf(nullptr, 0, format, again)), '\0');
    va_end(again);
    std::vsnprintf(text.data(), text.size() + 1, format, arguments);
    va_end(arguments);
    PrintBytes(text);
}

void FinishOutput()
{
    if (std::fflush(stdout) != 0) FailToPrint();
    if (std::ferror(stdout)) throw std::runtime_error("standard output: not all of it was taken");
}

void FailFor(const std::string& name)
{
    throw std::runtime_error(name + ": " + static_cast<const char*>(GetLastErrorString()));
}

void WriteOutput(const std::string& target, std::string_view bytes)
{
    corekit::ReplacedFile file(target);
    if (!file || !file.Write(bytes) || !file.Commit()) FailFor(target);
}
