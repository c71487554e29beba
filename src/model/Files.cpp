#include "model/Files.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstdint>
#include <utility>

namespace korvane {

namespace {

    constexpr mode_t folderMode = 0700;
    constexpr mode_t fileMode = 0600;
    // What the JSON parser can take, and more than any history holds.
    constexpr std::uint64_t largestFile = 0xFFFFFFFF;

    std::error_code lastError()
    {
        return { errno, std::generic_category() };
    }

    /// One name for a folder: writes follow one another, and a leftover is found again.
    std::filesystem::path temporaryIn(const std::filesystem::path& folder)
    {
        return folder / ".korvane-new";
    }

    /// How much is written before the disk is told to begin.
    constexpr std::int64_t stretch = 2L * 1024 * 1024;

    struct OpenFile {
        Descriptor descriptor;
        std::size_t size;
    };

    std::optional<OpenFile> openRegular(const std::filesystem::path& path, Links links)
    {
        // Not to wait for the writer of a pipe.
        const int flags
            = O_RDONLY | O_CLOEXEC | O_NONBLOCK | (links == Links::refuse ? O_NOFOLLOW : 0);
        Descriptor file(::open(path.c_str(), flags));
        struct stat status { };
        if (!file.isOpen() || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)
            || static_cast<std::uint64_t>(status.st_size) > largestFile)
            return std::nullopt;
        return OpenFile { std::move(file), static_cast<std::size_t>(status.st_size) };
    }

    /// Reads until the buffer is full or the file ends; how much that was, or none on failure.
    std::optional<std::size_t> readInto(const Descriptor& file, char* buffer, std::size_t size)
    {
        std::size_t done = 0;
        while (done < size) {
            const auto count = ::read(file.number(), buffer + done, size - done);
            if (count < 0 && errno == EINTR)
                continue;
            if (count < 0)
                return std::nullopt;
            if (count == 0)
                break;
            done += static_cast<std::size_t>(count);
        }
        return done;
    }

    std::error_code writeAll(const Descriptor& file, std::string_view bytes)
    {
        while (!bytes.empty()) {
            const auto count = ::write(file.number(), bytes.data(), bytes.size());
            if (count >= 0)
                bytes.remove_prefix(static_cast<std::size_t>(count));
            else if (errno != EINTR)
                return lastError();
        }
        return {};
    }

    Descriptor createNew(const std::filesystem::path& path)
    {
        return Descriptor(
            ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, fileMode));
    }

    Descriptor createAnew(const std::filesystem::path& path)
    {
        // What lies there was left by a killed process; made anew, it has our mode and no other
        // name, and a link in its place is not followed.
        ::unlink(path.c_str());
        return createNew(path);
    }

} // namespace

Descriptor::Descriptor(Descriptor&& other) noexcept
    : m_number(std::exchange(other.m_number, -1))
{
}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept
{
    std::swap(m_number, other.m_number);
    return *this;
}

Descriptor::~Descriptor()
{
    static_cast<void>(close());
}

std::error_code Descriptor::close()
{
    const int number = std::exchange(m_number, -1);
    // After an interruption it is closed all the same.
    const bool hasFailed = number >= 0 && ::close(number) != 0 && errno != EINTR;
    return hasFailed ? lastError() : std::error_code();
}

FileBytes::FileBytes(std::unique_ptr<char[], Unmap> data, std::size_t size)
    : m_data(std::move(data))
    , m_size(size)
{
}

void FileBytes::Unmap::operator()(char* data) const
{
    ::munmap(data, size);
}

std::optional<FileBytes> FileBytes::make(std::size_t size)
{
    const auto roomy = size + spareBytes;
    void* const memory
        = ::mmap(nullptr, roomy, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        return std::nullopt;
    ::madvise(memory, roomy, MADV_HUGEPAGE); // only a wish: a refusal changes nothing
    return FileBytes({ static_cast<char*>(memory), Unmap { roomy } }, size);
}

std::optional<FileBytes> FileBytes::copyOf(std::string_view bytes)
{
    auto copy = make(bytes.size());
    if (copy)
        std::copy(bytes.begin(), bytes.end(), copy->data());
    return copy;
}

void FileBytes::truncate(std::size_t size)
{
    assert(size <= m_size);
    m_size = size;
    std::fill_n(m_data.get() + size, spareBytes, '\0');
}

std::optional<FileBytes> readFile(const std::filesystem::path& path, Links links)
{
    const auto file = openRegular(path, links);
    if (!file)
        return std::nullopt;
    auto bytes = FileBytes::make(file->size);
    const auto count = bytes ? readInto(file->descriptor, bytes->data(), file->size) : std::nullopt;
    if (!count)
        return std::nullopt;
    bytes->truncate(*count);
    return bytes;
}

std::optional<std::string> readFileText(const std::filesystem::path& path, Links links)
{
    const auto file = openRegular(path, links);
    if (!file)
        return std::nullopt;
    std::string text(file->size, '\0');
    const auto count = readInto(file->descriptor, text.data(), text.size());
    if (!count)
        return std::nullopt;
    text.resize(*count);
    return text;
}

std::filesystem::path behindLinks(std::filesystem::path path)
{
    constexpr int mostLinks = 40; // as many as the system follows
    std::error_code error;
    for (int links = 0; links < mostLinks && std::filesystem::is_symlink(path, error); ++links) {
        const auto target = std::filesystem::read_symlink(path, error);
        if (error)
            break;
        path = path.parent_path() / target;
    }
    return path;
}

std::error_code makeFolder(const std::filesystem::path& path)
{
    std::error_code error;
    if (path.empty() || std::filesystem::is_directory(path, error))
        return {};
    if (const auto above = path.parent_path(); above != path) {
        if (const auto failed = makeFolder(above))
            return failed;
    }
    if (::mkdir(path.c_str(), folderMode) != 0) {
        // Named with a slash at its end, it has just been made by the name without.
        const auto failure = lastError();
        const bool isThere
            = failure == std::errc::file_exists && std::filesystem::is_directory(path, error);
        return isThere ? std::error_code() : failure;
    }
    return ::chmod(path.c_str(), folderMode) == 0 ? std::error_code() : lastError();
}

AtomicFile::AtomicFile(std::filesystem::path target)
    : m_target(std::move(target))
    , m_temporary(temporaryIn(m_target.parent_path()))
    , m_file(createAnew(m_temporary))
{
    if (!m_file.isOpen() && errno == ENOENT) {
        m_error = makeFolder(m_target.parent_path());
        if (m_error)
            return;
        m_file = createAnew(m_temporary);
    }
    m_isOurs = m_file.isOpen();
    if (!m_isOurs || ::fchmod(m_file.number(), fileMode) != 0) // the umask may have taken bits away
        m_error = lastError();
}

AtomicFile::~AtomicFile()
{
    if (m_isOurs)
        ::unlink(m_temporary.c_str());
}

void AtomicFile::write(std::string_view bytes)
{
    if (m_error)
        return;
    m_error = writeAll(m_file, bytes);
    m_written += static_cast<std::int64_t>(bytes.size());
    // The disk may begin while the rest is still being made. Only `commit` waits for it, and only
    // there a failure matters.
    if (!m_error && m_written - m_begun >= stretch) {
        ::sync_file_range(m_file.number(), m_begun, m_written - m_begun, SYNC_FILE_RANGE_WRITE);
        m_begun = m_written;
    }
}

std::error_code AtomicFile::commit()
{
    // On the disk before it gets its name: a power cut leaves the old file or the new one.
    if (!m_error && ::fdatasync(m_file.number()) != 0)
        m_error = lastError();
    if (!m_error && ::rename(m_temporary.c_str(), m_target.c_str()) != 0)
        m_error = lastError();
    if (!m_error)
        m_isOurs = false;
    return m_error;
}

void AtomicFile::removeLeftover(const std::filesystem::path& folder)
{
    ::unlink(temporaryIn(folder).c_str());
}

NewFile::NewFile(std::filesystem::path path)
    : m_path(std::move(path))
    , m_file(createNew(m_path))
{
    if (!m_file.isOpen())
        m_error = lastError();
}

void NewFile::write(std::string_view bytes)
{
    if (m_error)
        return;
    m_error = writeAll(m_file, bytes);
    if (m_error)
        giveUp();
}

void NewFile::complete()
{
    if (!m_file.isOpen())
        return;
    m_error = m_file.close();
    if (m_error)
        ::unlink(m_path.c_str());
}

void NewFile::giveUp()
{
    if (m_file.isOpen())
        ::unlink(m_path.c_str());
    m_file = Descriptor();
}

bool isForWantOfRoom(const std::error_code& error)
{
    return error == std::errc::no_space_on_device || error == std::errc::file_too_large
        || error == std::error_code(EDQUOT, std::generic_category());
}

} // namespace korvane
