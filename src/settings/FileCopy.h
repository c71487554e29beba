#pragma once

#include "model/Files.h"
#include "model/MainLoop.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace korvane {

/// Copies a file of the user's to a name that nothing has yet, a piece in each turn of the loop: the
/// place that the user chose may be slow. What is left half done when it fails, or when it ends
/// before the copy is complete, is removed.
class FileCopy {
public:
    /// @param source  one that is a link, or belongs to somebody else, is not copied
    /// @param ended   called once, in a later turn, whether the copy was made or not
    FileCopy(MainLoop& loop, const std::filesystem::path& source, std::filesystem::path target,
        std::function<void()> ended);
    ~FileCopy();
    FileCopy(const FileCopy&) = delete;
    FileCopy& operator=(const FileCopy&) = delete;

private:
    void goOn();
    void copyPiece();
    void end();

    MainLoop& m_loop;
    Descriptor m_source;
    std::optional<NewFile> m_target; // none once it is complete, or could not be made
    std::string m_piece;
    std::function<void()> m_ended;
    Timer m_next;
};

} // namespace korvane
