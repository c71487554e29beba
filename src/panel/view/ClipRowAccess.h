#pragma once

#include "model/ClipItem.h"
#include "panel/view/AccessiblePart.h"

#include <optional>

namespace korvane {

class ClipListAccess;

/// A row of the list as assistive technology sees it. It can be clicked, pasted, asked for its menu,
/// and focused, which selects it.
class ClipRowAccess : public AccessiblePart {
public:
    ClipRowAccess(const ClipListAccess& list, const ClipId& id);

    /// Its place in the displayed list; none while it is not displayed.
    std::optional<int> index() const;

    bool isValid() const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QRect rect() const override;

    QStringList actionNames() const override;
    QString localizedActionName(const QString& name) const override;
    QString localizedActionDescription(const QString& name) const override;
    /// Acts on the loop's next turn: the row may end by what it does, and whoever asked for it gets
    /// an answer first.
    void doAction(const QString& name) override;

private:
    const ClipListAccess& m_list;
    ClipId m_id;
};

} // namespace korvane
