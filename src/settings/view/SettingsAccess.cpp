#include "settings/view/SettingsAccess.h"

#include "settings/view/FormSection.h"
#include "settings/view/KeyBadge.h"
#include "settings/view/PreferencesView.h"
#include "settings/view/SegmentedPicker.h"
#include "settings/view/SettingsTabButton.h"

#include <QAccessibleWidget>

namespace korvane {

namespace {

    /// One of the row of pages, which is chosen by its one action.
    class TabAccess : public QAccessibleWidget {
    public:
        explicit TabAccess(SettingsTabButton& button)
            : QAccessibleWidget(&button, QAccessible::PageTab)
            , m_button(button)
        {
        }

        QAccessible::State state() const override
        {
            auto state = QAccessibleWidget::state();
            state.selectable = true;
            state.selected = m_button.isChecked();
            return state;
        }
        QStringList actionNames() const override
        {
            return QStringList { pressAction() } + QAccessibleWidget::actionNames();
        }
        void doAction(const QString& name) override
        {
            if (name == pressAction())
                m_button.click();
            else
                QAccessibleWidget::doAction(name);
        }
        QStringList keyBindingsForAction(const QString& name) const override
        {
            return name == pressAction() ? QStringList { m_button.shortcut().toString() }
                                         : QAccessibleWidget::keyBindingsForAction(name);
        }

    private:
        SettingsTabButton& m_button;
    };

    /// What the toolkit asks for an element; it owns the answer.
    QAccessibleInterface* makeElement(const QString&, QObject* object)
    {
        if (auto* const button = dynamic_cast<SettingsTabButton*>(object))
            return new TabAccess(*button);
        const auto widget = [object](QAccessible::Role role) {
            // Its destructor is the toolkit's alone, so no pointer of ours can own it for a moment.
            return new QAccessibleWidget(static_cast<QWidget*>(object), role);
        };
        if (dynamic_cast<SettingsTabBar*>(object))
            return widget(QAccessible::PageTabList);
        if (dynamic_cast<SegmentedPicker*>(object) || dynamic_cast<FormSection*>(object))
            return widget(QAccessible::Grouping);
        if (dynamic_cast<KeyBadge*>(object))
            return widget(QAccessible::StaticText);
        return nullptr;
    }

} // namespace

void installSettingsAccess()
{
    QAccessible::installFactory(makeElement);
}

} // namespace korvane
