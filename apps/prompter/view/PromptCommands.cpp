#include "view/PromptCommands.h"

#include "corekit/commands/ui/CommandList.h"

#include <algorithm>

namespace prompter {

const PromptCommand* FindPromptCommand(UINT id)
{
    const auto found = std::ranges::find(promptCommands, id, &PromptCommand::id);
    return found == std::end(promptCommands) ? nullptr : &*found;
}

HACCEL KeyTable(UINT table)
{
    const HACCEL* const handle = GetCommandList().GetAcceleratorTable(table);
    return handle ? *handle : nullptr;
}

std::vector<ACCEL> KeyRows(UINT table)
{
    const HACCEL handle = KeyTable(table);
    std::vector<ACCEL> rows(static_cast<std::size_t>(handle ? CopyAcceleratorTableA(handle, nullptr, 0) : 0));
    CopyAcceleratorTableA(handle, rows.data(), static_cast<int>(rows.size()));
    return rows;
}

} // namespace prompter
