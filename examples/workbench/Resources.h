// Texts, keys, pictures and dialogs of the workbench.
#pragma once

// Hands them to the library; before the first window.
void RegisterResources();
