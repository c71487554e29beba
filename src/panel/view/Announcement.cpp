#include "panel/view/Announcement.h"

#include "panel/view/AccessiblePart.h"

namespace korvane {

Announcement::Announcement(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    resize(0, 0);
}

void Announcement::say(const QString& text)
{
    setAccessibleName(text);
    // The toolkit has no event for an announcement yet. A notification that comes into view is what
    // screen readers read out wherever the focus is.
    tell(QAccessible::queryAccessibleInterface(this), QAccessible::ObjectShow);
}

} // namespace korvane
