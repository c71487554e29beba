#pragma once

#include "settings/FileDialogs.h"

#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// Dialogs in which the test chooses.
class FakeFileDialogs : public FileDialogs {
public:
    void chooseNewFile(std::string_view proposedName, Answer answer) override
    {
        proposed.emplace_back(proposedName);
        m_answer = std::move(answer);
    }
    void chooseFile(Answer answer) override
    {
        ++openings;
        m_answer = std::move(answer);
    }

    void choose(const std::filesystem::path& file) { std::exchange(m_answer, nullptr)(file); }
    void giveUp() { std::exchange(m_answer, nullptr)(std::nullopt); }
    bool isOpen() const { return static_cast<bool>(m_answer); }

    std::vector<std::string> proposed; // by the dialogs for a new file
    int openings = 0;                  // of the dialog for one that exists

private:
    Answer m_answer;
};

} // namespace korvane::test
