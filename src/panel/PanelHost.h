#pragma once

#include "model/ClipItem.h"

#include <optional>

namespace korvane {

/// What the panel asks of the shell that shows it.
class PanelHost {
public:
    virtual ~PanelHost() = default;

    /// Hides the panel, and the preview with it.
    virtual void close() = 0;
    /// Shows the preview of a clip beside the panel.
    /// @param rowMidY  vertical middle of the clip's row, downward from the panel's top edge, in points
    virtual void showPreview(const ClipItem& clip, std::optional<double> rowMidY) = 0;
    virtual void hidePreview() = 0;
    virtual bool isPreviewVisible() const = 0;
    virtual void openPreferences() = 0;
    virtual void checkForUpdates() = 0;
    /// Opens the page of what else the makers of the program have made.
    virtual void openMakersPage() = 0;
    /// Ends the program, once what is being done has been done.
    virtual void quit() = 0;
};

/// What the panel has done with a clip.
class ClipActions {
public:
    virtual ~ClipActions() = default;

    /// Puts the clip on the pasteboard, unseen by the monitor, and nothing else: for a selection
    /// that moves. A clip with an overflow file is left alone.
    virtual void place(const ClipItem& clip) = 0;
    /// Puts the clip's full text on the pasteboard, unseen by the monitor.
    virtual void copy(const ClipItem& clip) = 0;
    /// A click: notes the use, copies the full text (or reveals the file) and closes the panel.
    virtual void choose(const ClipItem& clip) = 0;
    /// Notes the use, closes the panel, brings back the application that was in front and pastes
    /// into it; the file of a file clip is revealed instead.
    virtual void activate(const ClipItem& clip) = 0;
    /// Shows the overflow file of a large clip in the file manager.
    virtual void reveal(const ClipItem& clip) = 0;
};

} // namespace korvane
