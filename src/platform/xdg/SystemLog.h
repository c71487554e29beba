#pragma once

#include "model/Log.h"

namespace korvane {

/// The log of the system (syslog, facility "user"), and standard error when a person reads it there.
class SystemLog : public Log {
public:
    SystemLog();
    ~SystemLog() override;
    SystemLog(const SystemLog&) = delete;
    SystemLog& operator=(const SystemLog&) = delete;

    void line(std::string_view text) override;
};

} // namespace korvane
