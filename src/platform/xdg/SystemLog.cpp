#include "platform/xdg/SystemLog.h"

#include <syslog.h>
#include <unistd.h>

#include <string>

namespace korvane {

SystemLog::SystemLog()
{
    ::openlog("korvane", LOG_PID, LOG_USER);
}

SystemLog::~SystemLog()
{
    ::closelog();
}

void SystemLog::line(std::string_view text)
{
    std::string line(text);
    ::syslog(LOG_NOTICE, "%s", line.c_str());
    if (::isatty(STDERR_FILENO) == 0)
        return; // a session's own log file would only repeat the system log
    line += '\n';
    // One call, so that the line stays whole; there is nobody to tell when it fails.
    static_cast<void>(!::write(STDERR_FILENO, line.data(), line.size()));
}

} // namespace korvane
