#pragma once

#include "support/EventLoop.h"

#include <QProcess>
#include <QStringList>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace korvane::test {

/// A real program that runs beside the test, while the loop goes on. Ends with this object.
class Program {
public:
    explicit Program(const QStringList& command, const std::filesystem::path& input = {},
        const std::filesystem::path& output = {})
    {
        if (!input.empty())
            m_process.setStandardInputFile(QString::fromStdString(input.string()));
        if (!output.empty())
            m_process.setStandardOutputFile(QString::fromStdString(output.string()));
        m_process.start(command.first(), command.mid(1));
        m_process.waitForStarted();
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    /// Lets the loop run until the program has ended; says whether it ended well.
    bool succeeds()
    {
        return waitUntil([this] { return m_process.state() == QProcess::NotRunning; })
            && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    }
    void kill() { m_process.kill(); }
    /// What it has written, where that does not go to a file.
    std::string output() { return m_process.readAllStandardOutput().toStdString(); }

private:
    QProcess m_process;
};

inline void writeFile(const std::filesystem::path& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string readFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return { std::istreambuf_iterator<char>(file), {} };
}

} // namespace korvane::test
