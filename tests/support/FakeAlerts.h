#pragma once

#include "model/Alerts.h"

#include <utility>
#include <vector>

namespace korvane::test {

/// Keeps what the user was told and asked; the test answers the newest.
class FakeAlerts : public Alerts {
public:
    void show(const Alert& alert, Answered answered) override
    {
        shown.push_back(alert);
        m_answered = std::move(answered);
    }
    bool ask(const Alert& alert, Answered answered) override
    {
        if (!hasWindow)
            return false;
        asked.push_back(alert);
        m_answered = std::move(answered);
        return true;
    }

    void tell(const Alert& alert, Answered answered) override
    {
        if (!ask(alert, answered))
            show(alert, std::move(answered));
    }

    /// Presses the first button, and the last one.
    void agree(bool isSuppressed = false) { answer({ true, isSuppressed }); }
    void cancel(bool isSuppressed = false) { answer({ false, isSuppressed }); }
    /// Whether somebody waits for an answer.
    bool isOpen() const { return static_cast<bool>(m_answered); }

    bool hasWindow = true;    // a window of ours has the keyboard
    std::vector<Alert> shown; // in windows of their own
    std::vector<Alert> asked; // over the window that has the keyboard

private:
    void answer(AlertAnswer given)
    {
        if (const auto answered = std::exchange(m_answered, nullptr))
            answered(given);
    }

    Answered m_answered;
};

} // namespace korvane::test
