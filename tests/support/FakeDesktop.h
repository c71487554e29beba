#pragma once

#include "settings/Desktop.h"

#include <string>
#include <vector>

namespace korvane::test {

/// Keeps what was to be shown and opened.
class FakeDesktop : public Desktop {
public:
    void revealFile(std::string_view path) override { revealed.emplace_back(path); }
    void openAddress(std::string_view address) override { opened.emplace_back(address); }

    std::vector<std::string> revealed;
    std::vector<std::string> opened;
};

} // namespace korvane::test
