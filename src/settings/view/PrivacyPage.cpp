#include "settings/view/PrivacyPage.h"

#include "look/view/Child.h"
#include "settings/PrivacyTexts.h"
#include "settings/view/FormSection.h"
#include "settings/view/FormText.h"
#include "settings/view/IgnoredAppsView.h"
#include "settings/view/Switch.h"
#include "settings/view/SymbolButton.h"

#include <QHBoxLayout>

#include <memory>
#include <utility>

namespace korvane {

namespace {
    std::unique_ptr<FormText> caption(std::string_view utf8)
    {
        return std::make_unique<FormText>(QString::fromUtf8(utf8), FormText::Tone::caption);
    }
} // namespace

PrivacyPage::PrivacyPage(const ControlKit& kit, ClipboardMonitor& monitor,
    Applications& applications, Alerts& alerts, QWidget* parent)
    : FormPage(parent)
    , m_chooser(kit, applications, *this)
    , m_editor(monitor, applications, m_chooser, alerts)
{
    addAutomaticSection(kit);
    addOwnSection(kit);
}

void PrivacyPage::addAutomaticSection(const ControlKit& kit)
{
    auto& section = addSection(QString::fromUtf8(privacytexts::automaticallyIgnored));
    section.addWidget(caption(privacytexts::passwordManagers));
    auto neverSave = std::make_unique<Switch>(kit.loop);
    neverSave->setOn(true);
    neverSave->setEnabled(false);
    neverSave->setAccessibleDescription(QString::fromUtf8(privacytexts::alwaysEnabled));
    section.addRow(QString::fromUtf8(privacytexts::neverSavePasswords), std::move(neverSave));
    addCaption(QString::fromUtf8(privacytexts::alwaysEnabled));
}

void PrivacyPage::addOwnSection(const ControlKit& kit)
{
    auto& section = addSection(QString::fromUtf8(privacytexts::ignoredApps));
    section.addWidget(caption(privacytexts::explanation));
    auto list = std::make_unique<IgnoredAppsView>(m_editor, kit.symbols);
    m_ignoredApps = list.get();
    section.addWidget(std::move(list));
    auto buttons = std::make_unique<QWidget>();
    m_add = makeChild<SymbolButton>(
        kit.symbols, "plus", QString::fromUtf8(privacytexts::addToolTip),
        [this] { m_editor.add(); }, buttons.get());
    m_remove = makeChild<SymbolButton>(
        kit.symbols, "minus", QString::fromUtf8(privacytexts::removeToolTip),
        [this] { m_editor.removeSelected(); }, buttons.get());
    m_add->setLetter(u'F'); // "A" is that of a page
    m_remove->setLetter(u'R');
    auto* const row = makeChild<QHBoxLayout>(buttons.get());
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(m_add);
    row->addWidget(m_remove);
    row->addStretch(1);
    section.addWidget(std::move(buttons));
}

} // namespace korvane
