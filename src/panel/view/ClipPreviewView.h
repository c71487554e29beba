#pragma once

#include "panel/view/Announcement.h"
#include "panel/view/PreviewTextView.h"

#include <QWidget>

namespace korvane {

struct ClipItem;

/// All that is in the preview: the text of one clip, with room around it. The window that it fills
/// is rounded, and its corners lie outside of the text.
class ClipPreviewView : public QWidget {
public:
    explicit ClipPreviewView(QWidget* parent = nullptr);

    void setClip(const ClipItem& clip);
    /// How high the clip's text is in lines of this width, rounded up to whole points.
    double textHeight(double width);

    PreviewTextView& text() { return m_text; }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void announce();

    PreviewTextView m_text { this };
    Announcement m_announcement { this };
};

} // namespace korvane
