#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace korvane {

/// Something that the user must see, or decide.
struct Alert {
    /// What stands beside the text: the sign of a warning, or the application's icon.
    enum class Kind { warning, notice };

    std::string message;
    std::string informativeText;
    /// One or more, in their order. The first does what the alert is for, the last one nothing:
    /// Escape presses it, and so does closing the alert.
    std::vector<std::string> buttons;
    Kind kind = Kind::warning;
    /// The title of a check box by which the user asks not to be asked again.
    std::optional<std::string> suppression = std::nullopt;
    /// Whether the first button is shown as one that destroys. Return then presses the last one, else
    /// the first.
    bool isDestructive = false;

    friend bool operator==(const Alert&, const Alert&) = default;
};

/// How the user has answered an alert.
struct AlertAnswer {
    /// The first button was pressed; of an alert with one button, always.
    bool isFirst = false;
    /// The check box was set.
    bool isSuppressed = false;
};

/// Shows alerts. The program goes on meanwhile: copies are captured and the shortcut works.
class Alerts {
public:
    virtual ~Alerts() = default;

    /// Called later and once; may be empty.
    using Answered = std::function<void(AlertAnswer)>;

    /// Shows it in a window of its own, which keeps no other window from the user. Where one with the
    /// same message, and then the same buttons, is shown already, that one takes on what this one says
    /// and does; who showed it before gets no answer.
    virtual void show(const Alert& alert, Answered answered) = 0;
    /// Shows it over the window of ours that has the keyboard, and keeps that window from the user until
    /// it is answered. A window that is closed under the alert has pressed its last button.
    /// @return false: no window of ours has the keyboard; nothing is shown, and no answer comes
    virtual bool ask(const Alert& alert, Answered answered) = 0;

    /// Shows what must be seen in any case: over the window of ours that has the keyboard, or had it last,
    /// where there is one.
    virtual void tell(const Alert& alert, Answered answered) = 0;
};

} // namespace korvane
