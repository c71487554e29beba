#pragma once

#include "model/ClipItem.h"
#include "model/ClipStore.h"
#include "tests/support/ManualLoop.h"
#include "tests/support/MemoryPreferences.h"
#include "tests/support/RecordingLog.h"
#include "tests/support/TempFolder.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace korvane::bench {

/// A text of about so many bytes, cut at a character: prose, code, Chinese and emoji in turn.
/// Different for each number, the same in every run.
std::string mixedText(std::size_t bytes, unsigned number);

/// Plain English prose in which no rule of the classifier is decisive.
std::string prose(std::size_t bytes);

/// A store over a folder of its own, filled with so many clips of so many bytes each.
struct HistoryOf {
    HistoryOf(int count, std::size_t bytes);

    test::TempFolder temp;
    std::filesystem::path folder;
    test::ManualLoop loop;
    test::MemoryPreferences preferences;
    test::RecordingLog log;
    ClipStore store;
};

} // namespace korvane::bench
