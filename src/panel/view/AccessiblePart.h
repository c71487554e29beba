#pragma once

#include <QAccessibleWidget>

#include <memory>

namespace korvane {

/// A part of a widget that paints its parts itself, as assistive technology sees it: an element of
/// its own below the widget's, with a name, a state, a place and actions, and with no parts in turn.
class AccessiblePart : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    /// @param whole  the widget's element; it outlives the part
    explicit AccessiblePart(const QAccessibleWidget& whole)
        : m_whole(whole)
    {
    }

    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return m_whole.window(); }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override { }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    void* interface_cast(QAccessible::InterfaceType type) override;

private:
    const QAccessibleWidget& m_whole;
};

/// Keeps a part in the toolkit's register, which knows it by a number and owns it, for as long as it
/// lives. Whoever asks for the number later is told that there is none, and never meets a part that
/// has gone.
class RegisteredPart {
public:
    explicit RegisteredPart(std::unique_ptr<AccessiblePart> part);
    ~RegisteredPart();
    RegisteredPart(RegisteredPart&& other) noexcept;
    RegisteredPart& operator=(RegisteredPart&&) = delete;
    RegisteredPart(const RegisteredPart&) = delete;
    RegisteredPart& operator=(const RegisteredPart&) = delete;

    QAccessibleInterface* get() const { return QAccessible::accessibleInterface(m_number); }

private:
    QAccessible::Id m_number;
};

/// Tells assistive technology that something has happened to an element.
void tell(QAccessibleInterface* element, QAccessible::Event happened);

} // namespace korvane
