// corekit records: record files from the command line.
#include "Commands.h"
#include "Output.h"
#include "Table.h"
#include "Terminal.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/SafeAlloc.h"
#include "corekit/stores/RecordFileSalvage.h"
#include "corekit/stores/VariableLengthRecordFile.h"

#include <CLI/CLI.hpp>

#include <bit>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>

namespace {

constexpr int faulty = 1; // the exit code of a check that found something

struct Options {
    std::string file, target, source, output;
    std::vector<std::string> sources;
    int number = 0;
    std::vector<int> numbers;
    DWORD sectorSize = 512, sectors = 64;
    bool repair = false, verbose = false;
};

// An open record file. What was changed reaches the file with Flush; without it nothing of index and map
// does.
class Records {
public:
    explicit Records(const std::string& name)
    {
        if (!m_file.OpenFile(name.c_str()))
            throw std::runtime_error(name + " cannot be opened as a record file");
    }
    ~Records() { m_file.Close(0); }
    Records(const Records&) = delete;
    Records& operator=(const Records&) = delete;

    CVariableLengthRecordFile* operator->() { return &m_file; }
    // A number that stands for a record.
    int Existing(int number)
    {
        if (m_file.GetRecordSize(number) == 0)
            throw std::runtime_error("there is no record " + std::to_string(number));
        return number;
    }

private:
    CVariableLengthRecordFile m_file;
};

// A record's bytes from a file, or from standard input for "-".
std::string ReadContent(const std::string& source)
{
    std::ifstream file;
    if (source != "-") file.open(source, std::ios::binary);
    std::istream& in = source == "-" ? std::cin : file;
    std::string content;
    if (in) content.assign(std::istreambuf_iterator<char>(in), {});
    if (!in || in.bad()) throw std::runtime_error(source + " cannot be read");
    if (content.empty()) throw std::runtime_error(source + " is empty, and a record is not");
    return content;
}

void Create(const Options& o)
{
    const std::uint64_t size = std::uint64_t{o.sectorSize} * o.sectors;
    CVariableLengthRecordFile file;
    const bool isPossible =
        size <= 0xFFFFFFFF && std::has_single_bit(o.sectorSize) && o.sectorSize >= 64 && o.sectors >= 17;
    if (!isPossible)
        throw std::runtime_error(o.file +
                                 ": the sector size must be a power of two from 64 up, the sectors 17 "
                                 "or more, and both no more than 4 GiB together");
    if (!file.CreateFileA(o.file.c_str(), o.sectorSize, static_cast<DWORD>(size))) FailFor(o.file);
    file.Close(1);
}

void Add(const Options& o)
{
    Records records(o.file);
    ProgressBar bar("adding", o.sources.size());
    for (const std::string& source : o.sources) {
        const std::string content = ReadContent(source);
        Print("%d\n", records->AddRecord(content.data(), static_cast<DWORD>(content.size()), 0));
        bar.Advance();
    }
    records->Flush();
}

void Get(const Options& o)
{
    Records records(o.file);
    void* data = nullptr;
    DWORD size = 0;
    records->GetRecord(records.Existing(o.number), data, size);
    const std::unique_ptr<void, decltype(&safe_free)> block(data, &safe_free);
    const std::string_view bytes(static_cast<const char*>(data), size);
    if (o.output.empty())
        PrintBytes(bytes);
    else
        WriteOutput(o.output, bytes);
}

void Replace(const Options& o)
{
    Records records(o.file);
    const std::string content = ReadContent(o.source);
    records->ReplaceRecord(records.Existing(o.number), content.data(), static_cast<DWORD>(content.size()), 1);
}

void Delete(const Options& o)
{
    Records records(o.file);
    for (const int number : o.numbers) records.Existing(number);
    for (const int number : o.numbers) records->DeleteRecord(number, 0);
    records->Flush();
}

void ListAsJson(Records& records)
{
    const char* before = "[\n";
    for (int i = 0; i < records->GetRecordCount(); ++i) {
        const DWORD size = records->GetRecordSize(i);
        if (size == 0) continue;
        Print("%s  {\"number\": %d, \"bytes\": %u}", before, i, size);
        before = ",\n";
    }
    PrintLine(*before == '[' ? "[]" : "\n]");
}

void List(const Options& o)
{
    Records records(o.file);
    if (IsJsonWanted()) return ListAsJson(records);
    Print("%10s  %10s\n", "number", "bytes"); // at once: there can be millions
    for (int i = 0; i < records->GetRecordCount(); ++i)
        if (const DWORD size = records->GetRecordSize(i)) Print("%10d  %10u\n", i, size);
    Print("%d records, %d numbers\n", records->GetInUseRecordCount(), records->GetRecordCount());
}

void Check(const Options& o)
{
    CVariableLengthRecordFile file;
    const int sound = file.CheckFile(o.file.c_str(), 1, o.verbose, o.repair);
    file.Close(0);
    if (!sound) throw CLI::RuntimeError(faulty);
}

void PrintNumbers(const char* what, const std::vector<int>& numbers)
{
    if (numbers.empty()) return;
    Print("%s:", what);
    for (const int number : numbers) Print(" %d", number);
    PrintLine("");
}

void Salvage(const Options& o)
{
    std::optional<ProgressBar> bar;
    const RecordFileSalvage done = SalvageRecordFile(o.file.c_str(), o.target.c_str(), [&](int, int total) {
        if (!bar) bar.emplace("salvaging", static_cast<std::size_t>(total));
        bar->Advance();
    });
    bar.reset();
    Print("%zu sound, %zu doubtful, %zu lost\n", done.sound.size(), done.doubtful.size(), done.lost.size());
    PrintNumbers("doubtful", done.doubtful);
    PrintNumbers("lost", done.lost);
    if (!done.doubtful.empty() || !done.lost.empty()) throw CLI::RuntimeError(faulty);
}

} // namespace

void AddRecordsCommand(CLI::App& app)
{
    auto* const records = app.add_subcommand("records", "Make, read, change, check and salvage record files");
    records->require_subcommand(1);
    const auto options = std::make_shared<Options>();
    const auto command = [&](const char* name, const char* help, void (*run)(const Options&)) {
        auto* const added = records->add_subcommand(name, help);
        added->add_option("FILE", options->file, "The record file")->required();
        added->callback([options, run] { run(*options); });
        return added;
    };
    auto* const create = command("create", "Make an empty file", Create);
    create->add_option("--sector-size", options->sectorSize, "Bytes, a power of two (512)");
    create->add_option("--sectors", options->sectors, "Size of the new file, 17 or more (64)");
    command("add", "Add records and print their numbers", Add)
        ->add_option("SOURCE", options->sources, "Files with the records' bytes, - for standard input")
        ->required();
    auto* const get = command("get", "Write a record to standard output", Get);
    get->add_option("NUMBER", options->number)->required();
    get->add_option("-o,--output", options->output, "Write it there instead");
    auto* const replace = command("replace", "Give a record other bytes", Replace);
    replace->add_option("NUMBER", options->number)->required();
    replace->add_option("SOURCE", options->source, "File with the bytes, - for standard input")->required();
    command("delete", "Delete records", Delete)->add_option("NUMBER", options->numbers)->required();
    OfferJson(*command("list", "Print numbers and sizes", List));
    auto* const check = command("check", "Look for faults; exit code 1 if there are any", Check);
    check->add_flag("--repair", options->repair,
                    "Delete overlapping records, rebuild a faulty free-space map");
    check->add_flag("--verbose", options->verbose, "Tell every record");
    command("salvage", "Copy what can be read into a new file; exit code 1 if not all was sound", Salvage)
        ->add_option("OUT", options->target, "The new file")
        ->required();
}
