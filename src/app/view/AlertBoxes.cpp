#include "app/view/AlertBoxes.h"

#include "look/view/ApplicationIcon.h"
#include "look/view/Child.h"
#include "look/view/Colours.h"
#include "look/view/Fonts.h"
#include "look/view/SheetDialog.h"
#include "look/view/Symbols.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QString>

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

    constexpr int iconEdge = 64;
    constexpr double warningEdge = 56;
    constexpr int textWidth = 300; // at least: a narrow column of words is read badly
    constexpr double messageSize = 14;
    constexpr double textSize = 13;
    constexpr int mostLetters = 1500;
    constexpr int mostLines = 20;
    constexpr int scrolledWidth = 380;
    constexpr int scrolledHeight = 240;

    /// The box would take it for rich text where it looks like that, with pictures to be fetched and
    /// links to be followed; and not everything that we show is our own.
    void setLabel(QMessageBox& box, const QString& text)
    {
        box.setInformativeText(text);
        if (auto* const label
            = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"))) {
            label->setTextFormat(Qt::PlainText);
            label->setFont(textFont(textSize));
            label->setMinimumWidth(textWidth);
        }
    }

    /// A label of that length would put the buttons off a small screen.
    bool isLong(const QString& text)
    {
        return text.size() > mostLetters || text.count(u'\n') > mostLines;
    }

    /// Puts the text where the label would be, to be scrolled.
    void setScrolled(QMessageBox& box, const QString& text)
    {
        auto* const grid = qobject_cast<QGridLayout*>(box.layout());
        auto* const message = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        int row = 0;
        int column = 0;
        int spans = 0;
        grid->getItemPosition(grid->indexOf(message), &row, &column, &spans, &spans);
        auto* const shown = makeChild<QPlainTextEdit>(text, &box);
        shown->setReadOnly(true);
        shown->setFont(textFont(textSize));
        shown->setAccessibleName(message->text());
        shown->setFixedHeight(scrolledHeight);
        shown->setMinimumWidth(scrolledWidth);
        grid->addWidget(shown, row + 1, column);
    }

    /// The box lays itself out anew with each of its own parts, so that this comes after them.
    void setInformativeText(QMessageBox& box, const std::string& utf8)
    {
        const auto text = QString::fromStdString(utf8);
        const std::unique_ptr<QPlainTextEdit> former(box.findChild<QPlainTextEdit*>());
        setLabel(box, isLong(text) ? QString() : text);
        if (isLong(text))
            setScrolled(box, text);
    }

    void setMessage(QMessageBox& box, const QString& message)
    {
        box.setTextFormat(Qt::PlainText);
        box.setText(message);
        if (auto* const label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label")))
            label->setFont(textFont(messageSize, QFont::DemiBold));
    }

    QPixmap signOf(Alert::Kind kind, const QMessageBox& box)
    {
        const double ratio = box.devicePixelRatioF();
        if (kind == Alert::Kind::notice)
            return applicationIcon().pixmap(QSize(iconEdge, iconEdge), ratio);
        Symbols symbols;
        return symbols.pixmap(
            "exclamationmark.triangle", warningEdge, ratio, coloursOf(box.palette()).orange);
    }

    std::unique_ptr<QCheckBox> checkBox(const std::string& title)
    {
        auto check = std::make_unique<QCheckBox>(QString::fromStdString(title));
        check->setFont(textFont(textSize));
        // The style draws its edge darker than the window, which is not seen on a dark one.
        auto palette = check->palette();
        palette.setColor(QPalette::Window, coloursOf(palette).secondary);
        check->setPalette(palette);
        return check;
    }

    void warnBy(QPushButton& button)
    {
        auto red = button.palette();
        red.setColor(QPalette::ButtonText, coloursOf(red).redText);
        button.setPalette(red);
    }

    void addButtons(QMessageBox& box, const Alert& alert)
    {
        QPushButton* first = nullptr;
        QPushButton* last = nullptr;
        for (const auto& title : alert.buttons) {
            last = box.addButton(QString::fromStdString(title),
                first == nullptr ? QMessageBox::AcceptRole : QMessageBox::RejectRole);
            if (first == nullptr)
                first = last;
        }
        box.setDefaultButton(alert.isDestructive ? last : first);
        box.setEscapeButton(last);
        if (alert.isDestructive)
            warnBy(*first);
    }

    void fill(QMessageBox& box, const Alert& alert)
    {
        const auto message = QString::fromStdString(alert.message);
        box.setWindowTitle(message); // the windows are told apart by their titles
        box.setWindowIcon(applicationIcon());
        setMessage(box, message);
        box.setIconPixmap(signOf(alert.kind, box));
        addButtons(box, alert);
        if (alert.suppression)
            box.setCheckBox(checkBox(*alert.suppression).release()); // the box's from here on
        setInformativeText(box, alert.informativeText);
    }

    AlertAnswer answerOf(const QMessageBox& box)
    {
        const auto* const check = box.checkBox();
        return { box.clickedButton() == box.buttons().front(),
            check != nullptr && check->isChecked() };
    }

    void bringToFront(QMessageBox& box)
    {
        box.show();
        box.raise();
        box.activateWindow();
    }

} // namespace

AlertBoxes::AlertBoxes()
{
    QObject::connect(
        qGuiApp, &QGuiApplication::focusWindowChanged, &m_listener, [this](QWindow* window) {
            if (window != nullptr)
                m_last = window;
        });
}

AlertBoxes::Shown& AlertBoxes::boxFor(const Alert& alert)
{
    auto& shown = m_boxes[alert.message];
    if (!shown.box) {
        shown.box = std::make_unique<QMessageBox>();
        fill(*shown.box, alert);
        shown.box->setModal(false);
        // It may come while the user is in another program, under whose window it would be sunk otherwise.
        shown.box->setWindowFlag(Qt::WindowStaysOnTopHint);
        QObject::connect(shown.box.get(), &QDialog::finished, shown.box.get(), [&shown] {
            if (const auto answered = std::exchange(shown.answered, nullptr))
                answered(answerOf(*shown.box));
        });
    }
    return shown;
}

void AlertBoxes::show(const Alert& alert, Answered answered)
{
    auto& shown = boxFor(alert);
    shown.answered = std::move(answered);
    setInformativeText(*shown.box, alert.informativeText);
    bringToFront(*shown.box);
}

bool AlertBoxes::ask(const Alert& alert, Answered answered)
{
    auto* const window = keyWindow();
    if (window != nullptr)
        showOver(*window, alert, std::move(answered));
    return window != nullptr;
}

// Whoever records a shortcut has the whole keyboard, and no window has it then.
void AlertBoxes::tell(const Alert& alert, Answered answered)
{
    if (auto* const window = keyWindow() != nullptr ? keyWindow() : lastWindow())
        showOver(*window, alert, std::move(answered));
    else
        show(alert, std::move(answered));
}

void AlertBoxes::showOver(QWidget& window, const Alert& alert, Answered answered)
{
    auto& box = *std::make_unique<QMessageBox>(&window).release(); // the window's from here on
    fill(box, alert);
    QObject::connect(&box, &QDialog::finished, &box, [&box, answered = std::move(answered)] {
        if (answered)
            answered(answerOf(box));
    });
    openAsSheet(box, window);
}

QWidget* AlertBoxes::lastWindow() const
{
    const auto all = QApplication::topLevelWidgets();
    const auto last = std::ranges::find_if(
        all, [this](const QWidget* each) { return m_last && each->windowHandle() == m_last; });
    auto* const window = lastingWindow(last == all.end() ? nullptr : *last);
    const bool isPanel = window && window->windowFlags().testFlag(Qt::BypassWindowManagerHint);
    return isPanel ? nullptr : window;
}

} // namespace korvane
