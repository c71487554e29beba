#include "panel/view/Announcement.h"

namespace korvane {

Announcement::Announcement(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    resize(0, 0);
    hide();
}

void Announcement::say(const QString& text)
{
    // The toolkit has no event for an announcement yet. A notification that comes into view is what
    // screen readers read out wherever the focus is.
    hide();
    setAccessibleName(text);
    show();
}

} // namespace korvane
