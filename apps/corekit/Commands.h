// The subcommands. Each adds itself to the tool's command line; its work runs when the line names it.
#pragma once

#include "Doctor.h"

namespace CLI {
class App;
}

void AddDrawCommand(CLI::App& app);
void AddDibCommand(CLI::App& app);
void AddKeyboardsCommand(CLI::App& app);
void AddTypeCommand(CLI::App& app);
void AddFontsCommand(CLI::App& app);
void AddShapeCommand(CLI::App& app);
void AddCharCommand(CLI::App& app);
void AddRegistryCommand(CLI::App& app);
void AddIniCommand(CLI::App& app);
void AddLogCommand(CLI::App& app);
void AddOleCommand(CLI::App& app);
void AddRecordsCommand(CLI::App& app);
void AddPackingCommands(CLI::App& app);
void AddWordsCommand(CLI::App& app);
void AddSettingsCommand(CLI::App& app);
void AddFtpCommand(CLI::App& app);
void AddConvertCommand(CLI::App& app);
void AddAppletCommand(CLI::App& app);
void AddSerialCommand(CLI::App& app);
void AddScsiCommand(CLI::App& app);
void AddDoctorCommand(CLI::App& app, std::vector<Finding> (*findFaces)()); // null: they are not looked at
