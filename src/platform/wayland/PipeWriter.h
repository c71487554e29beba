#pragma once

#include "model/Files.h"
#include "platform/wayland/WritableWatch.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace korvane {

/// Writes a text to a pipe, bit by bit as it is read at the other end, and closes it. A reader that hangs
/// holds up nobody, and one that goes away ends it: SIGPIPE must not end the process (see
/// `surviveBrokenPipes`).
class PipeWriter {
public:
    /// All is written, or nobody reads any more. May destroy the writer; never called from the
    /// constructor.
    using Done = std::function<void()>;

    /// @param text  shared with whoever else it is written to: it may be large
    PipeWriter(MainLoop& loop, Descriptor pipe, std::shared_ptr<const FileBytes> text, Done done);
    PipeWriter(const PipeWriter&) = delete;
    PipeWriter& operator=(const PipeWriter&) = delete;
    ~PipeWriter() = default;

private:
    void writeSome();

    Descriptor m_pipe;
    std::shared_ptr<const FileBytes> m_text;
    std::size_t m_written = 0;
    Done m_done;
    WritableWatch m_watch;
};

} // namespace korvane
