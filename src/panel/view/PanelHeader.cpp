#include "panel/view/PanelHeader.h"

#include "look/view/Colours.h"
#include "look/view/Fonts.h"
#include "look/view/PanelMenu.h"
#include "panel/ApplicationMenu.h"
#include "panel/PanelController.h"
#include "panel/PanelTexts.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace korvane {

namespace {
    constexpr int paddingLeft = 14;
    constexpr int paddingRight = 8;
    constexpr int buttonGap = 2;
    constexpr double badgeGap = 8;
    constexpr double badgePaddingX = 5;
    constexpr double badgePaddingY = 2;
    constexpr double badgeRadius = 4;
    constexpr double badgeTextSize = 9;
    constexpr double badgeTextHeight = 11;
    constexpr int menuGap = 2; // between the button and its menu

    QFont nameFont()
    {
        return textFont(14, QFont::DemiBold);
    }
    QFont badgeFont()
    {
        auto font = textFont(badgeTextSize, QFont::Bold);
        font.setLetterSpacing(QFont::AbsoluteSpacing, 0.3);
        return font;
    }
    QString nameText()
    {
        return QString::fromUtf8(paneltexts::productName);
    }
    QString badgeText()
    {
        return QString::fromUtf8(paneltexts::privateBadge);
    }
} // namespace

PanelHeader::PanelHeader(PanelController& controller, Symbols& symbols, QWidget* parent)
    : QWidget(parent)
    , m_controller(controller)
    , m_privateModeSwitch(
          symbols, QStringLiteral("Private Mode"),
          [&controller] { controller.togglePrivateMode(); }, this)
    , m_settingsButton(
          symbols, QString::fromUtf8(paneltexts::preferencesToolTip),
          [&controller] { controller.openPreferences(); }, this)
    , m_menuButton(
          symbols, QStringLiteral("Menu"), [this] { openMenu(); }, this)
{
    setAccessibleName(nameText());
    m_privateModeSwitch.setCheckable(true);
    m_settingsButton.setSymbol("gearshape");
    m_settingsButton.setToolTip(QString::fromUtf8(paneltexts::preferencesToolTip));
    m_menuButton.setSymbol("ellipsis.circle");
    m_menuButton.setToolTip(QStringLiteral("Menu"));
    m_privateModeChanged
        = controller.observePrivateMode([this](bool isPrivate) { showPrivateMode(isPrivate); });
}

bool PanelHeader::handle(const KeyPress& press)
{
    if (press.keyCode != keycodes::space && press.keyCode != keycodes::returnKey)
        return false;
    for (auto* button : { &m_privateModeSwitch, &m_settingsButton, &m_menuButton }) {
        if (!button->hasFocus())
            continue;
        button->click();
        return true;
    }
    return false;
}

QRectF PanelHeader::badge() const
{
    if (!m_isPrivate)
        return {};
    const double nameWidth = std::ceil(QFontMetricsF(nameFont()).horizontalAdvance(nameText()));
    const double width
        = std::ceil(QFontMetricsF(badgeFont()).horizontalAdvance(badgeText())) + 2 * badgePaddingX;
    const double height = badgeTextHeight + 2 * badgePaddingY;
    return { paddingLeft + nameWidth + badgeGap, std::floor((this->height() - height) / 2), width,
        height };
}

void PanelHeader::paintEvent(QPaintEvent*)
{
    const auto& colours = coloursOf(palette());
    QPainter painter(this);
    painter.setFont(nameFont());
    painter.setPen(colours.text);
    painter.drawText(rect().adjusted(paddingLeft, 0, -paddingRight, 0),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, nameText());
    if (!m_isPrivate)
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.orange);
    painter.drawRoundedRect(badge(), badgeRadius, badgeRadius);
    painter.setFont(badgeFont());
    painter.setPen(Qt::white);
    painter.drawText(badge(), Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip, badgeText());
}

void PanelHeader::resizeEvent(QResizeEvent*)
{
    const int top = (height() - HeaderButton::edge) / 2;
    int left = width() - paddingRight;
    for (auto* button : { &m_menuButton, &m_settingsButton, &m_privateModeSwitch }) {
        left -= HeaderButton::edge;
        button->move(left, top);
        left -= buttonGap;
    }
}

void PanelHeader::showPrivateMode(bool isPrivate)
{
    m_isPrivate = isPrivate;
    m_privateModeSwitch.setSymbol(isPrivate ? "lock.fill" : "lock",
        isPrivate ? HeaderButton::Tone::orange : HeaderButton::Tone::secondary);
    m_privateModeSwitch.setChecked(isPrivate);
    m_privateModeSwitch.setToolTip(QString::fromUtf8(paneltexts::privateModeToolTip(isPrivate)));
    setAccessibleDescription(isPrivate ? badgeText() : QString());
    update();
}

void PanelHeader::openMenu()
{
    auto* menu = PanelMenu::make(&m_menuButton);
    for (const auto& item : applicationmenu::items()) {
        if (item.action)
            menu->addLine(
                item.title, [this, action = *item.action] { m_controller.choose(action); });
        else
            menu->addSeparator();
    }
    m_menuButton.setDown(true);
    connect(menu, &QMenu::aboutToHide, &m_menuButton, [this] { m_menuButton.setDown(false); });
    // Its right edge under the button's, as there is no room to the right of it in the panel.
    const auto below = m_menuButton.mapToGlobal(QPoint(HeaderButton::edge, HeaderButton::edge));
    menu->popup(below + QPoint(-menu->sizeHint().width(), menuGap));
}

} // namespace korvane
