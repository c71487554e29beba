#pragma once

#include "model/ClipStore.h"
#include "panel/PanelTexts.h"

#include <QString>
#include <QWidget>

#include <vector>

namespace korvane {

/// The panel's foot: how many clips there are, how large they are, and by its colour how near to
/// their limits.
class PanelFooter : public QWidget {
public:
    PanelFooter(ClipStore& store, QWidget* parent);

    const QString& totals() const { return m_totals; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void refresh();

    ClipStore& m_store;
    bool m_isStale = true;
    QString m_totals;
    paneltexts::FillLevel m_level = paneltexts::FillLevel::low;
    std::vector<Connection> m_connections;
};

} // namespace korvane
