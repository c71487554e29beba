#pragma once

#include <QWidget>

namespace korvane {

/// Says something to those who do not see the panel. Nobody sees it, and it takes no clicks. It is
/// there from the moment that it says something until it is hidden.
class Announcement : public QWidget {
public:
    explicit Announcement(QWidget* parent);

    /// Says it now, also when it is what was said last. The parent is visible.
    void say(const QString& text);
};

} // namespace korvane
