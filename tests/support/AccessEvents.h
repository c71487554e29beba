#pragma once

#include <QAccessible>

// Only the platform can tell the toolkit that somebody listens, and its header is not public.
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <algorithm>
#include <string>
#include <vector>

namespace korvane::test {

/// An assistive technology that listens for as long as it lives: it has the toolkit tell what happens,
/// and writes down what it is told.
class AccessEvents {
public:
    struct Event {
        QAccessible::Event type;
        std::string name; ///< of the element, at that moment
        bool isSelected;
        bool isFocused;

        friend bool operator==(const Event&, const Event&) = default;
    };

    AccessEvents()
    {
        listening = this;
        platform().setActive(true);
        m_before = QAccessible::installUpdateHandler(note);
    }
    ~AccessEvents()
    {
        QAccessible::installUpdateHandler(m_before);
        platform().setActive(false);
        listening = nullptr;
    }
    AccessEvents(const AccessEvents&) = delete;
    AccessEvents& operator=(const AccessEvents&) = delete;

    /// The names of the elements that this has happened to, in order.
    std::vector<std::string> names(QAccessible::Event type) const
    {
        std::vector<std::string> found;
        for (const auto& event : events)
            if (event.type == type)
                found.push_back(event.name);
        return found;
    }
    /// What has been announced, in order.
    std::vector<std::string> announced;
    std::vector<Event> events;

    void clear()
    {
        announced.clear();
        events.clear();
    }

private:
    static QPlatformAccessibility& platform()
    {
        return *QGuiApplicationPrivate::platformIntegration()->accessibility();
    }
    static void note(QAccessibleEvent* event)
    {
        auto* const element = event->accessibleInterface();
        if (!element || !element->isValid())
            return;
        const auto name = element->text(QAccessible::Name).toStdString();
        const auto state = element->state();
        listening->events.push_back(
            { event->type(), name, state.selected != 0, state.focused != 0 });
        if (event->type() == QAccessible::ObjectShow
            && element->role() == QAccessible::Notification)
            listening->announced.push_back(name);
    }

    static inline AccessEvents* listening = nullptr; // the toolkit takes a plain function
    QAccessible::UpdateHandler m_before = nullptr;
};

/// The children of an element by their names.
inline std::vector<std::string> childNames(const QAccessibleInterface& element)
{
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(element.childCount()));
    for (int index = 0; index < element.childCount(); ++index)
        names.push_back(element.child(index)->text(QAccessible::Name).toStdString());
    return names;
}

} // namespace korvane::test
