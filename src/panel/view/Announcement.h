#pragma once

#include <QWidget>

namespace korvane {

/// Says something to those who do not see the panel. Nobody sees it, and it takes no clicks.
class Announcement : public QWidget {
public:
    explicit Announcement(QWidget* parent);

    /// Says it now, also when it is what was said last.
    void say(const QString& text);
};

} // namespace korvane
