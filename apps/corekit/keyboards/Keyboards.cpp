// corekit keyboards: the keyboards of the library and what is on their keys.
#include "Commands.h"
#include "KeyboardList.h"
#include "KeyboardPicture.h"
#include "KeyboardText.h"
#include "Output.h"
#include "PictureNames.h"
#include "Table.h"

#include "corekit/platform/Gdi.h"
#include "corekit/unicode/ui/keyboards/KBLayout.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <stdexcept>

namespace {

struct KeyboardsOptions {
    std::string name, board = "uk", file;
};

void ListKeyboards()
{
    TableRows rows = {{"name", "locale", "code page", "of", "enabled"}};
    for (const CKBLayout* keyboard : AllKeyboards()) {
        const int codePage = keyboard->GetCodePage();
        rows.push_back({keyboard->GetName().GetString(), std::to_string(keyboard->GetLocale()),
                        codePage == 0 ? "-" : std::to_string(codePage),
                        keyboard->GetLayoutHandle() ? "platform" : "library",
                        keyboard->IsEnabled() ? "yes" : "no"});
    }
    PrintTable(rows);
}

void Save(const PixelCanvas& picture, const std::string& path)
{
    if (!SaveBitmapAsPng(picture.Bitmap(), path.c_str())) FailFor(path);
}

void ShowKeyboard(const KeyboardsOptions& options)
{
    CKBLayout& keyboard = KeyboardNamed(options.name);
    const Board& board = BoardNamed(options.board);
    const auto views = ViewsOf(keyboard, board);
    const std::string name = keyboard.GetName().GetString();
    if (views.empty()) throw std::runtime_error("the platform translates all keys of " + name);
    if (options.file.empty())
        PrintKeyboard(name, board, views);
    else
        Save(*DrawKeyboard(name, board, views), options.file);
}

} // namespace

void AddKeyboardsCommand(CLI::App& app)
{
    auto* command = app.add_subcommand("keyboards", PictureDescription("keyboards"));
    auto options = std::make_shared<KeyboardsOptions>();
    command->add_option("NAME", options->name,
                        "A keyboard; the part of its name that tells it from others is enough");
    auto* board = command->add_option("--board", options->board, "The keys to show it on: uk or us")
                      ->check(CLI::IsMember({"uk", "us"}))
                      ->capture_default_str();
    auto* file = command->add_option("-o,--output", options->file, "Draw it into this PNG file instead")
                     ->type_name("FILE");
    command->footer("On a key the lower character is typed alone, the upper one with Shift, one at the right "
                    "with Ctrl and\n"
                    "Shift; what the bare key prints is at the lower right. A long text stands below with a "
                    "number. Pale keys\n"
                    "are left to the platform.");
    OfferJson(*command);
    command->callback([options, board, file] {
        if (!options->name.empty()) return ShowKeyboard(*options);
        if (board->count() + file->count() > 0)
            throw CLI::ValidationError("--board and -o need the NAME of a keyboard");
        ListKeyboards();
    });
}
