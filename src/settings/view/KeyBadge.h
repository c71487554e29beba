#pragma once

#include <QWidget>

namespace korvane {

/// Keys as a text on a rounded ground.
class KeyBadge : public QWidget {
public:
    explicit KeyBadge(const QString& keys, QWidget* parent = nullptr);

    const QString& keys() const { return m_keys; }
    void setKeys(const QString& keys);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_keys;
};

} // namespace korvane
