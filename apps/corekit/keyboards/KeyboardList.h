// The Unicode manager's keyboards, for the commands that show and use them.
#pragma once

#include <string>
#include <vector>

class CKBLayout;

// All of them, in the manager's order, which owns them. Throws std::runtime_error without a window toolkit.
std::vector<CKBLayout*> AllKeyboards();
// The one of that name, without regard to case; "(Internal)" and whatever else sets it apart from no other
// may be left out. Throws std::runtime_error for a name that fits none or several.
CKBLayout& KeyboardNamed(const std::string& name);
