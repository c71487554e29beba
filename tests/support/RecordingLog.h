#pragma once

#include "model/Log.h"

#include <string>
#include <vector>

namespace korvane::test {

/// Keeps the lines that were logged.
class RecordingLog : public Log {
public:
    void line(std::string_view text) override { lines.emplace_back(text); }

    std::vector<std::string> lines;
};

} // namespace korvane::test
