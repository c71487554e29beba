#pragma once

#include "app/Windows.h"

#include <QMessageBox>

#include <map>
#include <memory>
#include <string>

namespace korvane {

/// Alerts as windows of the toolkit, one for each message, which the program does not wait for.
class AlertBoxes : public Alerts {
public:
    AlertBoxes() = default;

    void warn(const Alert& alert) override;

private:
    std::map<std::string, std::unique_ptr<QMessageBox>, std::less<>> m_boxes; // by their messages
};

} // namespace korvane
