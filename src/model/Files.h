#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace korvane {

/// A file descriptor that closes itself.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor();

    /// Closes it. Some file systems tell only now that they could not keep what was written (close(2)).
    std::error_code close();
    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

private:
    int m_number = -1;
};

/// The bytes of a file, followed by zeroes: a parser may look at many bytes in one go, and so past
/// the end, without leaving the memory that is ours. The memory comes straight from the system, in
/// large pages where it has them, and goes back there: a history is read once, and a program that
/// then runs for weeks should keep nothing of that.
class FileBytes {
public:
    static constexpr std::size_t spareBytes = 64;

    /// Room for so many bytes, all of them zero; none when there is no such memory.
    static std::optional<FileBytes> make(std::size_t size);
    static std::optional<FileBytes> copyOf(std::string_view bytes);

    std::string_view view() const { return { m_data.get(), m_size }; }
    char* data() { return m_data.get(); }
    /// Keeps only the first bytes. @param size  at most the present one
    void truncate(std::size_t size);

private:
    struct Unmap {
        std::size_t size;
        void operator()(char* data) const;
    };
    FileBytes(std::unique_ptr<char[], Unmap> data, std::size_t size);

    std::unique_ptr<char[], Unmap> m_data;
    std::size_t m_size;
};

/// Whether the last name of a path may be a symbolic link.
enum class Links { follow, refuse };

/// The whole of a regular file; none when it cannot be read, is anything else than a regular file
/// (a pipe would keep us waiting) or is larger than 4 GiB.
std::optional<FileBytes> readFile(const std::filesystem::path& path, Links links);
/// The same, as a string.
std::optional<std::string> readFileText(const std::filesystem::path& path, Links links);

/// Makes the folder and those above it, each closed to other users (0700) whatever the umask. A
/// folder that exists already is left as it is.
std::error_code makeFolder(const std::filesystem::path& path);

/// A new content for a file, which takes the old one's place whole or not at all: it is written
/// beside it, reaches the disk, and is then renamed. The file is readable by its user only (0600).
///
///     AtomicFile file(path);
///     file.write(bytes);
///     const auto error = file.commit();
class AtomicFile {
public:
    /// Makes the temporary file. A folder that has vanished is made again.
    explicit AtomicFile(std::filesystem::path target);
    /// Removes the temporary file, unless it has taken its place.
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Adds bytes. After a failure nothing more is written; `commit` tells of it.
    void write(std::string_view bytes);
    /// Puts the new content in place; the first failure of all steps, if any. The old file is then
    /// as it was.
    std::error_code commit();

    /// Removes what a process that was killed while it wrote has left in the folder.
    static void removeLeftover(const std::filesystem::path& folder);

private:
    std::filesystem::path m_target;
    std::filesystem::path m_temporary;
    Descriptor m_file;
    std::error_code m_error;
    std::int64_t m_written = 0; // bytes
    std::int64_t m_begun = 0;   // of these, the disk has been told
    bool m_isOurs = false;      // the temporary file is there, and made by us
};

/// A file under a name that nothing has yet, readable by its user only (0600). It grows as it is
/// written, in the open; what must never be seen by half is an `AtomicFile`.
class NewFile {
public:
    /// Makes it, empty. A name that is taken is a failure, and a link is not followed.
    explicit NewFile(std::filesystem::path path);

    /// Adds bytes. After a failure nothing more is written, and the file is removed: half of it could
    /// be taken for the whole.
    void write(std::string_view bytes);
    /// The first failure, if any.
    std::error_code error() const { return m_error; }
    /// Ends it. What could not be kept is removed, as after a failed write.
    void complete();
    /// Ends it, and removes what has been written.
    void giveUp();

private:
    std::filesystem::path m_path;
    Descriptor m_file;
    std::error_code m_error;
};

/// Where the bytes of a file lie in the end: to replace the file must not replace a link to it.
std::filesystem::path behindLinks(std::filesystem::path path);

/// Whether a write has failed because the disk, or what the user may have of it, is full.
bool isForWantOfRoom(const std::error_code& error);

} // namespace korvane
