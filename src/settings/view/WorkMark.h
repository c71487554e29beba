#pragma once

#include <QString>
#include <QWidget>

namespace korvane {

/// Says that something is under way that takes a while. It keeps its place while nothing is, so that
/// nothing moves when it comes and goes. It does not move itself: while it is seen, the program may
/// be too busy to move anything.
class WorkMark : public QWidget {
public:
    explicit WorkMark(QWidget* parent = nullptr);

    /// Shows the text at once, before this returns; an empty one shows nothing.
    void showWork(const QString& text);
    const QString& text() const { return m_text; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
};

} // namespace korvane
