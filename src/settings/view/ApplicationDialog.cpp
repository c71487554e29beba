#include "settings/view/ApplicationDialog.h"

#include "look/view/Child.h"
#include "look/view/Fonts.h"
#include "look/view/Outline.h"
#include "look/view/SheetDialog.h"
#include "settings/PrivacyTexts.h"
#include "settings/view/AppList.h"
#include "settings/view/FocusRing.h"
#include "settings/view/FormText.h"
#include "settings/view/PushButton.h"
#include "settings/view/SettingsColours.h"

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QPainter>
#include <QUrl>
#include <QVBoxLayout>

#include <memory>
#include <utility>

namespace korvane {

namespace {
    constexpr QSize dialogSize { 380, 420 };
    constexpr int margin = 16;
    constexpr int gap = 10;
    constexpr int fieldHeight = 28;
    constexpr double radius = 6;
} // namespace

/// The field of the search. The keys that go through a list go through the list below it.
class ApplicationDialog::SearchLine : public PanelLineEdit {
public:
    SearchLine(TextReader reader, ApplicationDialog& dialog)
        : PanelLineEdit(std::move(reader), &dialog)
        , m_dialog(dialog)
    {
        setPlaceholderText(QString::fromUtf8(privacytexts::chooserSearch));
        setAccessibleName(QString::fromUtf8(privacytexts::chooserSearch));
        setFont(textFont(13));
        setFixedHeight(fieldHeight);
        setTextMargins(6, 0, 6, 0);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const auto key = event->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp
            || key == Qt::Key_PageDown)
            QApplication::sendEvent(&m_dialog.list(), event);
        else if (key == Qt::Key_Return || key == Qt::Key_Enter)
            event->ignore(); // the dialog's
        else
            PanelLineEdit::keyPressEvent(event);
    }
    void paintEvent(QPaintEvent* event) override
    {
        const auto& colours = settingsColoursOf(palette());
        {
            QPainter painter(this);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(colours.control);
            painter.drawRoundedRect(rect(), radius, radius);
            if (hasFocus())
                paintFocusRing(painter, *this, rect(), radius);
            else
                paintOutline(painter, rect(), radius, colours.controlEdge);
        }
        PanelLineEdit::paintEvent(event);
    }

private:
    ApplicationDialog& m_dialog;
};

ApplicationDialog::ApplicationDialog(const ControlKit& kit, std::vector<Application> offered,
    std::vector<std::string> folders, std::function<void(std::string)> chosen, QWidget* over)
    : QDialog(over)
    , m_clipboardText(kit.clipboardText)
    , m_chosen(std::move(chosen))
    , m_search(std::move(offered))
    , m_folders(std::move(folders))
    , m_field(new SearchLine(kit.clipboardText, *this))
    , m_list(new AppList(kit.symbols, this))
    , m_nothing(new FormText(
          QString::fromUtf8(privacytexts::chooserNothing), FormText::Tone::value, this))
    , m_add(new PushButton(
          QString::fromUtf8(privacytexts::chooserPrompt), [this] { addSelected(); },
          PushButton::Tone::chief, this))
{
    setWindowTitle(QString::fromUtf8(privacytexts::chooserTitle));
    setFixedSize(dialogSize);
    m_list->setAccessibleName(QString::fromUtf8(privacytexts::chooserList));
    layOut();
    connect(m_field, &QLineEdit::textChanged, this,
        [this](const QString& typed) { showMatching(typed); });
    connect(m_list, &QListWidget::itemSelectionChanged, this,
        [this] { m_add->setEnabled(!m_list->selectedItems().isEmpty()); });
    connect(m_list, &QListWidget::itemDoubleClicked, this, [this] { addSelected(); });
    showMatching({});
    m_field->setFocus();
}

void ApplicationDialog::layOut()
{
    auto* const column = makeChild<QVBoxLayout>(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(gap);
    auto* const message = makeChild<FormText>(QString::fromUtf8(privacytexts::chooserMessage));
    message->setWordWrap(true);
    column->addWidget(message);
    column->addWidget(m_field);
    column->addWidget(m_list, 1);
    column->addWidget(m_nothing, 1, Qt::AlignHCenter | Qt::AlignTop);
    auto buttons = std::make_unique<QHBoxLayout>();
    buttons->setSpacing(gap);
    buttons->addWidget(makeChild<PushButton>(
        QString::fromUtf8(privacytexts::chooserOther), [this] { askForFile(); },
        PushButton::Tone::plain, this));
    buttons->addStretch(1);
    buttons->addWidget(makeChild<PushButton>(
        QString::fromUtf8(privacytexts::chooserCancel), [this] { reject(); },
        PushButton::Tone::plain, this));
    buttons->addWidget(m_add);
    column->addLayout(buttons.release()); // the dialog's from here on
}

QLineEdit& ApplicationDialog::searchField() const
{
    return *m_field;
}

void ApplicationDialog::showMatching(const QString& typed)
{
    m_shown = m_search.matching(typed.toStdString());
    m_list->clear();
    for (const auto& application : m_shown)
        m_list->addItem(makeChild<AppRow>(application.name, application.icon)); // the list's
    // Return then adds what was searched for; without a search nothing is meant yet.
    if (!typed.isEmpty() && !m_shown.empty())
        m_list->setCurrentRow(0);
    m_add->setEnabled(!m_list->selectedItems().isEmpty());
    m_list->setVisible(!m_shown.empty());
    m_nothing->setVisible(m_shown.empty());
}

void ApplicationDialog::addSelected()
{
    // What is selected, and not the current row: assistive technology selects without making it current.
    const auto selected = m_list->selectedItems();
    if (selected.isEmpty())
        return;
    const auto file = m_shown.at(static_cast<std::size_t>(m_list->row(selected.front()))).file;
    accept();
    m_chosen(file);
}

void ApplicationDialog::askForFile()
{
    auto* const dialog
        = makeChild<QFileDialog>(this, QString::fromUtf8(privacytexts::chooserMessage));
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilter(QString::fromUtf8(privacytexts::chooserFiles));
    dialog->setLabelText(QFileDialog::Accept, QString::fromUtf8(privacytexts::chooserPrompt));
    if (!m_folders.empty())
        dialog->setDirectory(QString::fromStdString(m_folders.front()));
    QList<QUrl> places;
    for (const auto& folder : m_folders)
        places.push_back(QUrl::fromLocalFile(QString::fromStdString(folder)));
    dialog->setSidebarUrls(places);
    // Only when the dialog has gone: what is told of the file would stand over it, and go with it.
    connect(dialog, &QDialog::finished, this, [this, dialog](int result) {
        const auto files = dialog->selectedFiles();
        if (result != QDialog::Accepted || files.isEmpty())
            return;
        accept();
        m_chosen(files.front().toStdString());
    });
    openAsSheet(*dialog, *this);
    keepFromWaiting(*dialog, m_clipboardText); // all its parts are there now
}

void ApplicationDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        addSelected();
    else
        QDialog::keyPressEvent(event);
}

void ApplicationDialog::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), settingsColoursOf(palette()).window);
}

} // namespace korvane
