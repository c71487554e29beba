#include "support/SelectionOwner.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace korvane::test {

namespace {

    void writeAll(int descriptor, const char* bytes, std::size_t size)
    {
        while (size > 0) {
            const auto written = ::write(descriptor, bytes, size);
            if (written <= 0)
                return;
            bytes += written;
            size -= static_cast<std::size_t>(written);
        }
    }

    constexpr int deadlineInMilliseconds = 20'000;

} // namespace

SelectionOwner::SelectionOwner(const OwnerScript& script)
{
    std::array<int, 2> commands {};
    std::array<int, 2> reports {};
    if (::pipe(commands.data()) != 0 || ::pipe(reports.data()) != 0)
        return;
    m_process = ::fork();
    if (m_process == 0) {
        ::close(commands[1]);
        ::close(reports[0]);
        // Not by exit(): what the parent registered for its own end is none of our business.
        ::_exit(runScriptedOwner(script, commands[0], reports[1]));
    }
    ::close(commands[0]);
    ::close(reports[1]);
    m_commands = commands[1];
    m_reports = reports[0];
    m_isReady = m_process > 0 && readReports(true);
}

SelectionOwner::~SelectionOwner()
{
    die();
    ::close(m_commands);
    ::close(m_reports);
}

void SelectionOwner::copyAgain(const std::string& text)
{
    command('c', text);
}

void SelectionOwner::clear()
{
    command('x');
}

void SelectionOwner::die()
{
    if (m_process <= 0)
        return;
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
    m_process = -1;
}

void SelectionOwner::freeze()
{
    ::kill(m_process, SIGSTOP);
    int status = 0;
    ::waitpid(m_process, &status, WUNTRACED);
}

void SelectionOwner::thaw()
{
    ::kill(m_process, SIGCONT);
}

std::vector<std::string> SelectionOwner::requests()
{
    readReports(false);
    return m_requests;
}

void SelectionOwner::command(char letter, const std::string& text)
{
    const auto size = static_cast<std::uint32_t>(text.size());
    writeAll(m_commands, &letter, 1);
    writeAll(m_commands, reinterpret_cast<const char*>(&size), sizeof size);
    writeAll(m_commands, text.data(), text.size());
    readReports(true);
}

bool SelectionOwner::readReports(bool mustWait)
{
    bool isAcknowledged = false;
    pollfd waiting { m_reports, POLLIN, 0 };
    const auto patience = [&] { return mustWait && !isAcknowledged ? deadlineInMilliseconds : 0; };
    while (::poll(&waiting, 1, patience()) > 0) {
        std::array<char, 4096> bytes {};
        const auto size = ::read(m_reports, bytes.data(), bytes.size());
        if (size <= 0)
            break;
        m_unread.append(bytes.data(), static_cast<std::size_t>(size));
        for (auto end = m_unread.find('\n'); end != std::string::npos; end = m_unread.find('\n')) {
            const auto line = m_unread.substr(0, end);
            m_unread.erase(0, end + 1);
            if (line == "done")
                isAcknowledged = true;
            else
                m_requests.push_back(line);
        }
    }
    return isAcknowledged;
}

} // namespace korvane::test
