// Pictures and texts of the tray program, by number.
#pragma once

enum TrayText : unsigned { textStarting = 101, textStopping = 102 };
enum TrayPicture { pictureRunning = 201, pictureStopped = 202, pictureChanging = 203 };

void UseTrayResources();
