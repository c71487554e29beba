#pragma once

#include "update/DocumentFetcher.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// A web server that answers when the test says so.
class FakeDocumentFetcher : public DocumentFetcher {
public:
    void fetch(std::string_view address, Answer answer) override
    {
        fetched.emplace_back(address);
        m_answers.push_back(std::move(answer));
    }

    /// Answers the oldest question that has not been answered.
    void answer(std::optional<std::string> document)
    {
        const auto answer = std::exchange(m_answers.at(m_next++), nullptr);
        answer(std::move(document));
    }
    /// Answers the newest one first.
    void answerLatest(std::optional<std::string> document)
    {
        const auto answer = std::move(m_answers.back());
        m_answers.pop_back();
        answer(std::move(document));
    }

    std::vector<std::string> fetched; // the addresses

private:
    std::vector<Answer> m_answers;
    std::size_t m_next = 0;
};

} // namespace korvane::test
