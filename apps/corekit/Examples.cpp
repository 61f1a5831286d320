#include "Examples.h"

#include <CLI/CLI.hpp>

#include <string>

namespace {

// clang-format off
constexpr Example examples[] = {
    {"applet", "corekit applet libupload-applet.so", "list what a control-panel library offers"},
    {"applet", "corekit applet libupload-applet.so 0", "open its first item"},
    {"char", "corekit char U+0628", "types, mappings and joining of one character"},
    {"convert", "corekit convert --from windows-1256 --to utf-8 script.txt > script.utf8.txt", "an old Arabic script to UTF-8"},
    {"convert", "corekit convert --list", "every code page with its names"},
    {"deflate", "corekit deflate script.txt script.zz", "compress"},
    {"dib", "corekit dib info *.bmp", "size, depth and colours of each"},
    {"dib", "corekit dib convert logo.bmp logo.png", "a bitmap as PNG"},
    {"dib", "corekit dib show *.bmp -o sheet.png", "all of them on one sheet"},
    {"doctor", "corekit doctor", "what this machine has, and which packages bring the rest"},
    {"draw", "corekit draw script.txt -o pictures --bidi", "each line as a prompter would show it"},
    {"draw", "corekit draw script.txt -o pictures --font 'Noto Sans' --font 'Noto Sans Arabic'", "with faces in order of preference"},
    {"fonts", "corekit fonts build --script devanagari --from 'Noto Sans Devanagari' -o fonts --register", "a font for our own shaping"},
    {"fonts", "corekit fonts compare --help", "how to judge one"},
    {"ftp", "corekit ftp ls ftp.example.org /scripts", "the names in a folder"},
    {"ftp", "corekit ftp get ftp.example.org rundown.txt -o inbox", "fetch a file"},
    {"inflate", "corekit inflate script.zz script.txt", "expand what deflate made"},
    {"ini", "corekit ini get suite.ini Server Port", "one value"},
    {"ini", "corekit ini set suite.ini Server Port 4000", "change it and nothing else"},
    {"keyboards", "corekit keyboards", "list them"},
    {"keyboards", "corekit keyboards Tamil -o tamil.png", "what is on its keys, as a picture"},
    {"log", "corekit log write /var/log/prompter/Server 'disk is full' --level Warning", "add an entry"},
    {"log", "corekit log follow /var/log/prompter/Server --level Warning --filter Disk", "watch a log"},
    {"ole", "corekit ole list takes.ole", "streams and storages of a compound file"},
    {"ole", "corekit ole extract takes.ole -o folder", "write the streams into files"},
    {"records", "corekit records create notes.vlr && corekit records add notes.vlr *.txt", "a record for each text"},
    {"records", "corekit records check --verbose notes.vlr", "look for faults"},
    {"registry", "corekit registry list 'HKLM\\Software'", "keys and values below a key"},
    {"registry", "corekit registry set 'HKCU\\Software\\Suite' Speed 'number 5'", "set a value"},
    {"scsi", "corekit scsi list", "what is attached to the adaptors"},
    {"serial", "corekit serial send COM33 --baud 19200 --parity even script.txt", "send a file"},
    {"serial", "corekit serial listen COM33 --hex --for 10", "print what comes in for ten seconds"},
    {"settings", "corekit settings show options.ps", "the tree of a property-store file"},
    {"settings", "corekit settings set options.ps Timing Lines 5 --type integer", "set a value in a nested store"},
    {"shape", "corekit shape 'سلام world'", "visual order, types and glyph codes"},
    {"type", "corekit type --keyboard Arabic a shift+b space", "what these keys type"},
    {"type", "corekit type --keyboard Hindi", "type on it in the terminal"},
    {"unzip", "corekit unzip scripts.zip -o inbox", "extract, each entry checked"},
    {"words", "corekit words index words.wl script.txt", "the words of a text with their lines"},
    {"words", "corekit words match words.wl 'pro*'", "numbers of the words that match"},
};
// clang-format on

} // namespace

std::span<const Example> AllExamples() { return examples; }

void AddExamples(CLI::App& app)
{
    for (CLI::App* const command : app.get_subcommands({})) {
        std::string footer = command->get_footer();
        bool isFirst = true;
        for (const Example& example : examples) {
            if (example.command != command->get_name()) continue;
            if (isFirst) footer += footer.empty() ? "Examples:" : "\n\nExamples:";
            isFirst = false;
            footer.append("\n  ").append(example.line).append("\n      ").append(example.effect);
        }
        command->footer(footer);
    }
}
