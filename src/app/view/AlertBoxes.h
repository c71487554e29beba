#pragma once

#include "model/Alerts.h"

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QWindow>

#include <map>
#include <memory>
#include <string>

namespace korvane {

/// Alerts as boxes of the toolkit, which the program does not wait for.
class AlertBoxes : public Alerts {
public:
    AlertBoxes();
    AlertBoxes(const AlertBoxes&) = delete;
    AlertBoxes& operator=(const AlertBoxes&) = delete;

    void show(const Alert& alert, Answered answered) override;
    bool ask(const Alert& alert, Answered answered) override;
    void tell(const Alert& alert, Answered answered) override;

private:
    struct Shown {
        std::unique_ptr<QMessageBox> box;
        Answered answered;
    };

    /// The one of a message, made where there is none.
    Shown& boxFor(const Alert& alert);

    static void showOver(QWidget& window, const Alert& alert, Answered answered);
    /// The one that had the keyboard last; null where that is not to be seen, or is the panel.
    QWidget* lastWindow() const;

    std::map<std::string, Shown, std::less<>> m_boxes; // those of their own, by their messages
    QPointer<QWindow> m_last;
    QObject m_listener; // ends first, and with it what is told to us
};

} // namespace korvane
