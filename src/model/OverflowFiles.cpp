#include "model/OverflowFiles.h"

#include "model/Classifier.h"
#include "model/Files.h"
#include "model/Log.h"
#include "model/Text.h"

#include <set>
#include <utility>

namespace korvane {

namespace {

    // How much of a large text stays in the history: what a row and a search can use.
    constexpr int previewLines = 30;
    constexpr int previewBytes = 4096;

    std::filesystem::path withoutSlash(const std::filesystem::path& folder)
    {
        const auto normal = folder.lexically_normal();
        return normal.has_filename() ? normal : normal.parent_path();
    }

} // namespace

OverflowFiles::OverflowFiles(const std::filesystem::path& folder, Log& log)
    : m_folder(withoutSlash(folder))
    , m_folderText(repairedUtf8(m_folder.string()))
    , m_log(log)
{
}

bool OverflowFiles::divert(ClipItem& clip) const
{
    const auto name = clip.id.text() + ".txt";
    AtomicFile file(m_folder / name);
    file.write(clip.text);
    if (const auto error = file.commit()) {
        m_log.line(
            "Korvane: overflow write failed for clip " + clip.id.text() + ": " + error.message());
        return false;
    }
    clip.isOverflow = true;
    clip.overflowPath = m_folderText + '/' + name;
    clip.overflowByteCount = static_cast<std::int64_t>(clip.text.size());
    clip.text = overflowPreview(clip.text, previewLines, previewBytes);
    clip.hasEmoji = containsEmoji(clip.text);
    return true;
}

std::string OverflowFiles::fullText(const ClipItem& clip) const
{
    if (const auto file = fileOf(clip)) {
        auto text = readFileText(*file, Links::refuse);
        if (text && isValidUtf8(*text))
            return std::move(*text);
    }
    return clip.text;
}

void OverflowFiles::remove(std::span<const ClipItem> gone, std::span<const ClipItem> staying) const
{
    std::set<std::filesystem::path> files;
    for (const auto& clip : gone) {
        if (auto file = fileOf(clip))
            files.insert(std::move(*file));
    }
    for (const auto& clip : staying) {
        if (files.empty())
            return;
        if (const auto file = fileOf(clip))
            files.erase(*file);
    }
    std::error_code ignored;
    for (const auto& file : files) {
        // A link is left alone, as it is not a file that we made.
        if (std::filesystem::is_regular_file(std::filesystem::symlink_status(file, ignored)))
            std::filesystem::remove(file, ignored);
    }
}

std::optional<std::filesystem::path> OverflowFiles::fileOf(const ClipItem& clip) const
{
    if (!clip.isOverflow || !clip.overflowPath)
        return std::nullopt;
    const std::string_view path = *clip.overflowPath;
    const auto slash = path.rfind('/');
    if (slash == std::string_view::npos || path.substr(0, slash) != m_folderText)
        return std::nullopt;
    const auto name = path.substr(slash + 1);
    // A zero byte would end the name early and make it another one.
    if (name.empty() || name == "." || name == ".." || name.find('\0') != std::string_view::npos)
        return std::nullopt;
    return m_folder / name;
}

} // namespace korvane
