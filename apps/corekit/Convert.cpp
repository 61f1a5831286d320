// corekit convert: text from one code page to another, a part at a time.
#include "Commands.h"
#include "OutputFile.h"
#include "Table.h"
#include "Terminal.h"

#include "corekit/platform/CodePages.h"
#include "corekit/unicode/codepages/CodePageConversion.h"

#include <CLI/CLI.hpp>

#include "CodePageArgument.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <stdexcept>

namespace {
namespace fs = std::filesystem;

constexpr std::size_t block = 65536;          // bytes read at once
constexpr std::size_t longestLine = 16 << 20; // bytes kept back while a page can only be cut at line ends

struct Wish {
    std::string from, to, file, out;
    bool replaces = false, lists = false;
};

// --- where a text may be cut

bool IsHighSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xD800; }

std::size_t WholeUtf8(std::string_view bytes)
{
    for (std::size_t back = 1; back <= std::min<std::size_t>(3, bytes.size()); ++back) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
        const std::size_t length = byte >= 0xF8   ? 1
                                   : byte >= 0xF0 ? 4
                                   : byte >= 0xE0 ? 3
                                   : byte >= 0xC0 ? 2
                                                  : 1;
        if (length > back) return bytes.size() - back;
        if (length > 1 || byte < 0x80 || byte >= 0xF8) break;
    }
    return bytes.size();
}

// Behind a control character no two-byte character goes on.
std::size_t WholeDouble(UINT page, std::string_view bytes)
{
    const auto control = std::find_if(bytes.rbegin(), bytes.rend(), [](unsigned char c) { return c < 0x20; });
    std::size_t at = static_cast<std::size_t>(bytes.rend() - control);
    while (at < bytes.size()) {
        const bool isLead = IsDBCSLeadByteEx(page, static_cast<BYTE>(bytes[at])) != 0;
        if (isLead && at + 1 == bytes.size()) break;
        at += isLead ? 2 : 1;
    }
    return std::min(at, bytes.size());
}

// How many bytes at the front can be converted without those that are still to come. A page that keeps a
// state is back in its first one at the end of a line.
std::size_t WholeLength(int page, std::string_view bytes)
{
    if (page == utf16Page) return bytes.size() & ~std::size_t{1};
    if (page == CP_ISCII89) return bytes.size();
    if (page == CP_OWN_UTF8 || page == static_cast<int>(CP_UTF8)) return WholeUtf8(bytes);
    CPINFO info{};
    GetCPInfo(static_cast<UINT>(page), &info);
    if (info.MaxCharSize == 1) return bytes.size();
    if (info.LeadByte[0] != 0) return WholeDouble(static_cast<UINT>(page), bytes);
    return bytes.rfind('\n') + 1; // 0 where there is none
}

// --- the two halves of a conversion

bool ReadsWithoutFault(int page, const std::string& bytes, const StringW& units)
{
    if (units.Find(u'\xFFFD') < 0) return true;
    const bool canBeAsked = page != static_cast<int>(CP_UTF7);
    return canBeAsked && MultiByteToWideChar(static_cast<UINT>(page), MB_ERR_INVALID_CHARS, bytes.data(),
                                             static_cast<int>(bytes.size()), nullptr, 0) > 0;
}

bool Read(int page, const std::string& bytes, StringW& units)
{
    const int length = static_cast<int>(bytes.size());
    if (page == utf16Page) {
        std::memcpy(units.GetBufferSetLength(length / 2), bytes.data(), bytes.size() / 2 * 2);
        return length % 2 == 0;
    }
    if (page == CP_OWN_UTF8) return UTF8toUnicode(bytes.data(), length, units) != 0;
    AnsiToUnicode(page, units, bytes.data(), length);
    return page == CP_ISCII89 || ReadsWithoutFault(page, bytes, units);
}

bool CanHold(int page, const char16_t* units, int count)
{
    const auto number = static_cast<UINT>(page);
    if (number == CP_UTF7) return true;
    if (number == CP_UTF8)
        return WideCharToMultiByte(number, WC_ERR_INVALID_CHARS, units, count, nullptr, 0, nullptr, nullptr) >
               0;
    BOOL replaced = FALSE;
    WideCharToMultiByte(number, 0, units, count, nullptr, 0, nullptr, &replaced);
    return !replaced;
}

bool Write(int page, const StringW& units, StringA& bytes)
{
    if (page == utf16Page) {
        const int length = units.GetLength() * 2;
        std::memcpy(bytes.GetBufferSetLength(length), static_cast<const char16_t*>(units),
                    std::size_t(length));
        return true;
    }
    UnicodeToAnsi(page, bytes, units, units.GetLength());
    return page == CP_OWN_UTF8 || units.IsEmpty() || CanHold(page, units, units.GetLength());
}

// --- the stream

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

[[noreturn]] void FailAt(const std::string& name)
{
    throw std::runtime_error(name + ": " + std::strerror(errno));
}

class Conversion {
public:
    Conversion(const Wish& wish, std::FILE* in, OutputFile* out)
        : m_wish(wish), m_from(CodePageFrom(wish.from)), m_to(CodePageFrom(wish.to)), m_in(in), m_out(out)
    {
        if (m_to == CP_ISCII89) throw std::runtime_error("ISCII-89 can be read, but not written");
    }

    void Run(ProgressBar& bar)
    {
        std::string bytes;
        for (bool isLast = false; !isLast; bar.Advance()) {
            const std::size_t kept = bytes.size();
            bytes.resize(kept + block);
            const std::size_t count = std::fread(bytes.data() + kept, 1, block, m_in);
            if (std::ferror(m_in)) FailAt(Name());
            bytes.resize(kept + count);
            isLast = count == 0;
            const std::size_t whole = isLast ? bytes.size() : WholeLength(m_from, bytes);
            if (bytes.size() - whole > longestLine)
                Complain("is longer than a line may be in this code page");
            Part(bytes.substr(0, whole), isLast);
            bytes.erase(0, whole);
        }
    }

private:
    void Part(const std::string& bytes, bool isLast)
    {
        StringW units;
        const bool reads = Read(m_from, bytes, units);
        if (!reads && (!m_wish.replaces || m_from >= 0x10000 || m_from == utf16Page)) ComplainOfBytes(units);
        units = m_kept + units;
        m_kept.Empty();
        const int length = units.GetLength();
        if (!isLast && length > 0 && IsHighSurrogate(units[length - 1])) {
            m_kept = units.Right(1);
            units = units.Left(length - 1);
        }
        StringA result;
        if (!Write(m_to, units, result) && !m_wish.replaces) ComplainOfUnits(units);
        const auto size = static_cast<std::size_t>(result.GetLength());
        const std::string_view text(static_cast<const char*>(result), size);
        m_out ? m_out->Write(text) : PrintBytes(text);
        CountLines(units, units.GetLength());
    }

    std::string Name() const { return m_wish.file.empty() ? "standard input" : m_wish.file; }
    void CountLines(const char16_t* units, int count) { m_line += std::count(units, units + count, u'\n'); }

    [[noreturn]] void Complain(const std::string& what) const
    {
        throw std::runtime_error(Name() + ": line " + std::to_string(m_line) + " " + what);
    }

    // The fault stands at the first character that was replaced, or behind the last that was read.
    [[noreturn]] void ComplainOfBytes(const StringW& units)
    {
        const int at = units.Find(u'\xFFFD');
        CountLines(units, at < 0 ? units.GetLength() : at);
        Complain("has bytes that are no text in code page " + std::to_string(m_from) +
                 (at < 0 ? "" : " (--replace puts U+FFFD there)"));
    }

    [[noreturn]] void ComplainOfUnits(const StringW& text)
    {
        const char16_t* const units = text;
        int at = 0, length = 1;
        for (; at < text.GetLength(); at += length) {
            length = IsHighSurrogate(units[at]) && (units[at + 1] & 0xFC00) == 0xDC00 ? 2 : 1;
            if (!CanHold(m_to, units + at, length)) break;
        }
        CountLines(units, at);
        char point[12];
        const unsigned high = units[at], low = units[at + length - 1];
        std::snprintf(point, sizeof point, "U+%04X",
                      length == 1 ? high : 0x10000 + ((high - 0xD800) << 10) + low - 0xDC00);
        Complain("has " + std::string(point) + ", which code page " + std::to_string(m_to) +
                 " lacks (--replace puts ? there)");
    }

    const Wish& m_wish;
    int m_from;
    int m_to;
    std::FILE* m_in;
    OutputFile* m_out; // null: standard output
    StringW m_kept;    // the first half of a surrogate pair
    std::ptrdiff_t m_line = 1;
};

void Convert(const Wish& wish)
{
    if (wish.lists) return PrintCodePages();
    if (wish.from.empty() || wish.to.empty())
        throw std::runtime_error("--from and --to must both be given (see convert --help)");
    std::error_code none;
    const auto size = wish.file.empty() ? 0 : fs::file_size(wish.file, none);
    const bool isFile = !wish.file.empty() && wish.file != "-";
    const File in(!isFile ? nullptr : std::fopen(wish.file.c_str(), "rb"));
    if (!in && isFile) FailAt(wish.file);
    ProgressBar bar("converting", none ? 0 : static_cast<std::size_t>(size / block));
    std::FILE* const source = in ? in.get() : stdin;
    if (wish.out.empty() || wish.out == "-") return Conversion(wish, source, nullptr).Run(bar);
    OutputFile out(wish.out);
    Conversion(wish, source, &out).Run(bar);
    out.Commit();
}

} // namespace

void AddConvertCommand(CLI::App& app)
{
    const auto wish = std::make_shared<Wish>();
    CLI::App* command = app.add_subcommand("convert", "Convert text from one code page to another");
    command->footer(
        "A code page is a number, a common name such as windows-1256 or shift_jis, or a text of the list.\n"
        "What cannot be converted ends the work with its line, unless --replace is given.");
    command->add_option("--from", wish->from, "The code page that the text is in");
    command->add_option("--to", wish->to, "The code page that it is wanted in");
    command->add_option("file", wish->file, "The file to read; - or none is standard input");
    command->add_option("-o,--output", wish->out, "The file to write; - or none is standard output");
    command->add_flag("--replace", wish->replaces, "Put ? or U+FFFD for what cannot be converted, and go on");
    OfferJson(*command);
    command->add_flag("--list", wish->lists, "Print all code pages with their names");
    command->callback([wish] { Convert(*wish); });
}
