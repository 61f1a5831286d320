#include "desk/CommandKeys.h"

#include "desk/DeskCommands.h"
#include "view/PromptCommands.h"

#include "corekit/commands/ui/CommandList.h"
#include "corekit/foundation/AcceleratorResource.h"
#include "corekit/foundation/KeyNames.h"
#include "corekit/framework/Module.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace prompter {
namespace {

constexpr WORD Narrow(UINT id) { return static_cast<WORD>(id); }

// The row of a table that an item gives, with key 0 for none. What leaves the view or ends the program is
// nobody's to change.
constexpr ACCEL RowOf(const DeskMenuItem& item)
{
    return {static_cast<BYTE>(FVIRTKEY | item.held), static_cast<WORD>(item.key), Narrow(item.command)};
}
constexpr ACCEL DeskRow(const DeskMenuItem& item) { return item.command == quitDesk ? ACCEL{} : RowOf(item); }
constexpr ACCEL FixedDeskRow(const DeskMenuItem& item)
{
    return item.command == quitDesk ? RowOf(item) : ACCEL{};
}
constexpr ACCEL RowOf(const PromptCommand& c)
{
    return {static_cast<BYTE>(FVIRTKEY | c.held), static_cast<WORD>(c.key), Narrow(c.id)};
}
constexpr ACCEL ViewRow(const PromptCommand& c) { return c.id == leaveView ? ACCEL{} : RowOf(c); }
constexpr ACCEL FixedViewRow(const PromptCommand& c) { return c.id == leaveView ? RowOf(c) : ACCEL{}; }
constexpr ACCEL ControllerRow(const PromptCommand& c)
{
    return c.button ? ACCEL{FVIRTKEY, static_cast<WORD>(KeyOfButton(c.button)), Narrow(c.id)} : ACCEL{};
}

template <const auto& items, auto rowOf>
consteval auto Table()
{
    constexpr auto count = static_cast<std::size_t>(
        std::ranges::count_if(items, [](const auto& item) { return rowOf(item).key != 0; }));
    ACCEL rows[count];
    std::size_t at = 0;
    for (const auto& item : items)
        if (rowOf(item).key != 0) rows[at++] = rowOf(item);
    return AcceleratorResource(rows);
}

constexpr auto deskTable = Table<deskMenu, DeskRow>();
constexpr auto fixedDeskTable = Table<deskMenu, FixedDeskRow>();
constexpr auto viewTable = Table<promptCommands, &ViewRow>();
constexpr auto fixedViewTable = Table<promptCommands, &FixedViewRow>();
constexpr auto controllerTable = Table<promptCommands, &ControllerRow>();

constexpr BinaryResource tables[] = {{"#9", "#401", deskTable},
                                     {"#9", "#402", viewTable},
                                     {"#9", "#403", controllerTable},
                                     {"#9", "#411", fixedDeskTable},
                                     {"#9", "#412", fixedViewTable}};

// Of a menu: without the sign of its letter, and the dots of one that asks.
std::string NameOf(std::string_view text)
{
    std::string name(text.substr(0, text.find('\t')));
    std::erase(name, '&');
    if (name.ends_with("...")) name.resize(name.size() - 3);
    return name;
}

// In ascending order, as the items stand in it.
const std::vector<ResourceString>& Descriptions()
{
    static const std::vector<ResourceString> texts = [] {
        std::vector<ResourceString> all;
        for (const DeskMenuItem& item : deskMenu)
            if (item.description) all.push_back({item.command, item.description});
        for (const PromptCommand& command : promptCommands) all.push_back({command.id, command.description});
        std::ranges::sort(all, {}, &ResourceString::id);
        return all;
    }();
    return texts;
}

} // namespace

void RegisterCommands()
{
    AfxSetResources(tables);
    AfxSetResourceStrings(Descriptions());
    CCommandList& list = GetCommandList();
    for (const DeskMenuItem& item : deskMenu)
        if (item.key)
            list.RegisterCommand(item.command, 0, 0, 0, (NameOf(item.menu) + "!").c_str(),
                                 NameOf(item.text).c_str());
    for (const PromptCommand& command : promptCommands)
        list.RegisterCommand(command.id, 0, 0, 0, "Prompt view!", command.name);
    // The page of keys shows the last one first.
    list.RegisterAcceleratorTable("Hand controller", controllerKeys, fixedControllerKeys);
    list.RegisterAcceleratorTable("Desk", deskKeys, fixedDeskKeys);
    list.RegisterAcceleratorTable("Prompt view", viewKeys, fixedViewKeys);
}

void TakeKeys(CPropertyStore keys)
{
    CCommandList& list = GetCommandList();
    list.SetCustomAccelTableArray({});
    list.LoadAcceleratorTables(&keys);
    list.RebuildAcceleratorTables();
}

CPropertyStore DifferingKeys()
{
    CPropertyStore keys;
    GetCommandList().SaveAcceleratorTables(&keys);
    return keys;
}

UINT CommandOfButton(int button)
{
    constexpr BYTE held = FSHIFT | FCONTROL | FALT;
    const std::vector<ACCEL> rows = KeyRows(controllerKeys);
    const auto found = std::ranges::find_if(rows, [&](const ACCEL& row) {
        return (row.fVirt & FVIRTKEY) && !(row.fVirt & held) && row.key == KeyOfButton(button);
    });
    return found == rows.end() ? 0 : found->cmd;
}

CString KeyNameOf(UINT table, UINT command)
{
    const std::vector<ACCEL> rows = KeyRows(table);
    const auto found = std::ranges::find(rows, command, &ACCEL::cmd);
    return found == rows.end() ? CString() : GetAcceleratorKeyName(*found);
}

} // namespace prompter
