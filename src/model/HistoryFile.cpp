#include "model/HistoryFile.h"

#include "model/ClipJson.h"
#include "model/Files.h"

#include <utility>

namespace korvane {

std::optional<std::vector<ClipItem>> readClips(const std::filesystem::path& file)
{
    const auto document = readFile(file, Links::follow);
    return document ? decodeClips(*document) : std::nullopt;
}

HistoryFile::HistoryFile(std::filesystem::path path)
    : m_path(std::move(path))
{
}

std::vector<ClipItem> HistoryFile::load() const
{
    return readClips(m_path).value_or(std::vector<ClipItem>());
}

std::error_code HistoryFile::save(std::span<const ClipItem> clips) const
{
    AtomicFile file(m_path);
    encodeClips(clips, [&](std::string_view block) { file.write(block); });
    return file.commit();
}

} // namespace korvane
