// Numbers of the library's texts, its dialog and its picture.
#pragma once

namespace applet {
inline constexpr int picture = 5001;
inline constexpr unsigned settingsName = 5101, settingsInfo = 5102, statusName = 5103, statusInfo = 5104,
                          stateIs = 5105;
inline constexpr unsigned settingsDialog = 5201;
inline constexpr int folderField = 1001, patternField = 1002, serverField = 1003, userField = 1004;
} // namespace applet
