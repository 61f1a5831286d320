// What the doctor looks at, one row of its table each.
#pragma once

#include <string>
#include <vector>

struct Finding {
    std::string what;
    bool isThere;
    std::string found;  // or what is missing
    std::string remedy; // a package to install, or what to do; shown where it is not there
};

// The faces of each script, and whether windows can be shown. In the build with the toolkit.
std::vector<Finding> FindFacesAndDisplay();
