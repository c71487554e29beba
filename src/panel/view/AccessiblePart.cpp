#include "panel/view/AccessiblePart.h"

#include <utility>

namespace korvane {

QAccessibleInterface* AccessiblePart::parent() const
{
    return QAccessible::queryAccessibleInterface(m_whole.object());
}

void* AccessiblePart::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

RegisteredPart::RegisteredPart(std::unique_ptr<AccessiblePart> part)
    : m_number(QAccessible::registerAccessibleInterface(part.release()))
{
}

RegisteredPart::~RegisteredPart()
{
    if (m_number != 0)
        QAccessible::deleteAccessibleInterface(m_number);
}

RegisteredPart::RegisteredPart(RegisteredPart&& other) noexcept
    : m_number(std::exchange(other.m_number, 0))
{
}

void tell(QAccessibleInterface* element, QAccessible::Event happened)
{
    if (!element)
        return;
    QAccessibleEvent event(element, happened);
    QAccessible::updateAccessibility(&event);
}

} // namespace korvane
