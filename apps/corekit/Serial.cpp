// corekit serial: the machine's serial ports, and what goes through them.
#include "Commands.h"
#include "Output.h"
#include "Table.h"
#include "Terminal.h"

#include "corekit/devices/SerialPort.h"
#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/DeviceFolders.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>

namespace {

struct Options {
    std::string port, file = "-";
    std::optional<std::string> text;
    int baudRate = 9600, dataBits = 8;
    int parity = NOPARITY, stopBits = ONESTOPBIT;
    eFlowControlMode flow = flowNone;
    double limit = 0; // seconds, 0 for none
    unsigned long count = 0;
    bool isHex = false;
};

const std::map<std::string, int> parities = {{"none", NOPARITY},
                                             {"odd", ODDPARITY},
                                             {"even", EVENPARITY},
                                             {"mark", MARKPARITY},
                                             {"space", SPACEPARITY}};
const std::map<std::string, int> stopBits = {{"1", ONESTOPBIT}, {"1.5", ONE5STOPBITS}, {"2", TWOSTOPBITS}};
const std::map<std::string, eFlowControlMode> flows = {
    {"none", flowNone}, {"hardware", flowHardware}, {"software", flowSoftware}};

template <class Names, class Value>
std::string NameOf(const Names& names, Value value)
{
    for (const auto& [name, meant] : names)
        if (meant == value) return name;
    return std::to_string(value);
}

// "COM3", "com3", "3", or the device file of a port that is listed.
int NumberOf(const std::string& port)
{
    std::string digits = port;
    if (digits.size() > 3 && (digits.starts_with("COM") || digits.starts_with("com"))) digits.erase(0, 3);
    if (!digits.empty() && digits.size() < 6 && digits.find_first_not_of("0123456789") == digits.npos)
        return std::stoi(digits);
    for (const SerialPortFacts& facts : ListSerialPorts())
        if (facts.device == port) return facts.number;
    throw std::runtime_error(port + ": no port of this name (see corekit serial list)");
}

std::string PortName(const Options& options) { return "COM" + std::to_string(NumberOf(options.port)); }

[[noreturn]] void Fail(const Options& options)
{
    const DWORD reason = GetLastError();
    const std::string text = reason == ERROR_INVALID_FUNCTION ? "this device is no serial port"
                             : reason == ERROR_FILE_NOT_FOUND ? "there is no such port"
                             : reason == ERROR_ACCESS_DENIED  ? "the port is in use, or not for this user"
                                                              : GetSystemErrorString(reason).GetString();
    throw std::runtime_error(PortName(options) + ": " + text);
}

void List(const Options&)
{
    TableRows rows = {{"PORT", "DEVICE", "DRIVER", "DESCRIPTION"}};
    for (const SerialPortFacts& port : ListSerialPorts())
        rows.push_back({"COM" + std::to_string(port.number), port.device, port.driver, port.description});
    if (rows.size() > 1 || IsJsonWanted())
        PrintTable(rows);
    else
        PrintLine("This machine has no serial ports.");
}

void Show(const Options& options)
{
    CSerialPort port;
    DCB line{};
    if (!port.OpenPort(NumberOf(options.port), nullptr) || !GetCommState(port, &line)) Fail(options);
    const eFlowControlMode flow = line.fOutxCtsFlow         ? flowHardware
                                  : line.fOutX || line.fInX ? flowSoftware
                                                            : flowNone;
    Print("port          %s\n", PortName(options).c_str());
    Print("rate          %u bits per second\n", line.BaudRate);
    Print("data bits     %d\n", line.ByteSize);
    Print("parity        %s\n", NameOf(parities, int{line.Parity}).c_str());
    Print("stop bits     %s\n", NameOf(stopBits, int{line.StopBits}).c_str());
    Print("flow control  %s\n", NameOf(flows, flow).c_str());
    unsigned long signals = 0;
    if (!port.GetCommModemStatus(&signals)) return; // a device without signals
    const auto on = [&](unsigned long signal) { return signals & signal ? "on" : "off"; };
    Print("signals       CTS %s, DSR %s, ring %s, carrier %s\n", on(MS_CTS_ON), on(MS_DSR_ON), on(MS_RING_ON),
          on(MS_RLSD_ON));
}

void Open(CSerialPort& port, const Options& options, COMMTIMEOUTS timeouts)
{
    if (!port.OpenPort(NumberOf(options.port), options.baudRate, options.parity, options.dataBits,
                       options.stopBits, options.flow, nullptr) ||
        !port.SetCommTimeouts(timeouts))
        Fail(options);
}

void SendAll(CSerialPort& port, const Options& options, std::istream& from, TransferBar& bar)
{
    std::vector<char> block(4096);
    while (from.read(block.data(), static_cast<std::streamsize>(block.size())), from.gcount() > 0) {
        SetLastError(ERROR_TIMEOUT); // what it is when nothing was taken in time
        if (!port.WriteSynchronous(block.data(), static_cast<unsigned long>(from.gcount()))) Fail(options);
        bar.Advance(static_cast<std::uintmax_t>(from.gcount()));
    }
    if (from.bad()) throw std::runtime_error(options.file + ": cannot be read");
}

void Send(const Options& options)
{
    CSerialPort port;
    std::ifstream file;
    std::istringstream text(options.text.value_or(""));
    const bool isFile = !options.text && options.file != "-";
    if (isFile) file.open(options.file, std::ios::binary);
    if (isFile && !file) throw std::runtime_error(options.file + ": cannot be read");
    Open(port, options, {0, 0, 0, 0, static_cast<DWORD>(options.limit * 1000)});
    TransferBar bar(PortName(options), 0);
    SendAll(port, options, options.text ? text : isFile ? static_cast<std::istream&>(file) : std::cin, bar);
}

// Bytes as they are, or sixteen to a line with their place.
class Output {
public:
    explicit Output(bool isHex) : m_isHex(isHex) {}
    ~Output()
    {
        if (m_isHex && m_count % 16 != 0) std::putchar('\n');
    }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void Write(const char* bytes, std::size_t count)
    {
        if (!m_isHex) std::fwrite(bytes, 1, count, stdout);
        for (std::size_t i = 0; m_isHex && i < count; ++i, ++m_count) {
            if (m_count % 16 == 0) Print("%08zx ", m_count);
            Print(" %02x%s", static_cast<unsigned>(static_cast<unsigned char>(bytes[i])),
                  m_count % 16 == 15 ? "\n" : "");
        }
        std::fflush(stdout);
    }

private:
    bool m_isHex;
    std::size_t m_count = 0;
};

void Listen(const Options& options)
{
    using Clock = std::chrono::steady_clock;
    CSerialPort port;
    Open(port, options, {INFINITE, INFINITE, 100, 0, 0});
    Output output(options.isHex);
    const auto begun = Clock::now();
    unsigned long left = options.count;
    while (options.limit == 0 || Clock::now() - begun < std::chrono::duration<double>(options.limit)) {
        char block[4096];
        unsigned long received = 0;
        const unsigned long wanted =
            options.count > 0 ? std::min<unsigned long>(left, sizeof block) : sizeof block;
        if (!port.ReadSynchronous(block, wanted, received)) Fail(options);
        output.Write(block, received);
        if (options.count > 0 && (left -= received) == 0) return;
    }
}

void AddLineOptions(CLI::App* command, const std::shared_ptr<Options>& options)
{
    command->add_option("--baud", options->baudRate, "Bits per second")->capture_default_str();
    command->add_option("--bits", options->dataBits, "Data bits")
        ->check(CLI::Range(5, 8))
        ->capture_default_str();
    const auto named = [&](const char* name, auto& value, const auto& names, const char* help) {
        command->add_option(name, value, help)
            ->type_name("NAME")
            ->transform(CLI::CheckedTransformer(names, CLI::ignore_case).description(""));
    };
    named("--parity", options->parity, parities, "none (the default), odd, even, mark, space");
    named("--stop", options->stopBits, stopBits, "1 (the default), 1.5, 2");
    named("--flow", options->flow, flows, "none (the default), hardware, software");
}

} // namespace

void AddSerialCommand(CLI::App& app)
{
    const auto options = std::make_shared<Options>();
    const auto folders = std::make_shared<DeviceFolders>();
    CLI::App* serial = app.add_subcommand("serial", "List serial ports, and talk to what is behind them");
    serial->require_subcommand(1);
    serial->add_option("--devices", folders->devices, "The folder of device files")->capture_default_str();
    serial->add_option("--sysfs", folders->system, "The folder in which the kernel tells of them")
        ->capture_default_str();
    serial->footer(
        "COM1 is ttyS0, COM33 ttyUSB0, COM65 ttyACM0, COM97 ttyAMA0, and so on; a link of the name "
        "COM5 in the folder of devices\ngoes before that.");
    const auto add = [&](const char* name, const char* text, void (*run)(const Options&)) {
        CLI::App* command = serial->add_subcommand(name, text);
        command->callback([options, folders, run] {
            SetDeviceFolders(*folders);
            run(*options);
        });
        return command;
    };
    const auto withPort = [&](CLI::App* command) {
        command->add_option("port", options->port, "COM3, 3, or its device file")->required();
        return command;
    };
    OfferJson(*add("list", "Print the machine's ports", List));
    withPort(add("show", "Print how a port's line is set", Show));
    CLI::App* send = withPort(add("send", "Send a file, a text, or standard input", Send));
    send->add_option("file", options->file, "What to send; - is standard input");
    send->add_option("--text", options->text, "Send this text instead")->excludes("file");
    send->add_option("--limit", options->limit, "Seconds that a block of 4 kB may take; 0 for ever")
        ->check(CLI::NonNegativeNumber);
    CLI::App* listen = withPort(add("listen", "Print what comes in, until Ctrl-C", Listen));
    listen->add_flag("--hex", options->isHex, "As numbers, sixteen to a line");
    listen->add_option("--for", options->limit, "Seconds to listen; 0 for ever")
        ->check(CLI::NonNegativeNumber);
    listen->add_option("--count", options->count, "Bytes to wait for; 0 for no end");
    for (CLI::App* command : {send, listen}) AddLineOptions(command, options);
}
