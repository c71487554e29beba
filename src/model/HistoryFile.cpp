#include "model/HistoryFile.h"

#include "model/ClipJson.h"
#include "model/Files.h"

#include <utility>

namespace korvane {

HistoryFile::HistoryFile(std::filesystem::path path)
    : m_path(std::move(path))
{
}

std::vector<ClipItem> HistoryFile::load() const
{
    const auto document = readFile(m_path, Links::follow);
    return document ? decodeClips(*document).value_or(std::vector<ClipItem>())
                    : std::vector<ClipItem>();
}

std::error_code HistoryFile::save(std::span<const ClipItem> clips) const
{
    AtomicFile file(m_path);
    encodeClips(clips, [&](std::string_view block) { file.write(block); });
    return file.commit();
}

} // namespace korvane
