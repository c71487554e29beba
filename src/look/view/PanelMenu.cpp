#include "look/view/PanelMenu.h"

#include "look/view/Colours.h"
#include "look/view/Fonts.h"
#include "look/view/Outline.h"
#include "look/view/RoundedRegion.h"

#include <QAbstractButton>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionMenuItem>

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

    constexpr int padding = 6;
    constexpr int lineHeight = 28;
    constexpr int linePadding = 10;
    constexpr int lineRadius = 6;
    constexpr int dividerHeight = 9;
    constexpr double textSize = 13;

    /// Draws the menus of the panel; measures and colours are all that it has of its own.
    class PanelMenuStyle : public QProxyStyle {
    public:
        PanelMenuStyle()
            : QProxyStyle(QStringLiteral("Fusion"))
        {
        }

        int pixelMetric(
            PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
        {
            switch (metric) {
            case PM_MenuHMargin:
            case PM_MenuVMargin:
                return padding;
            case PM_MenuPanelWidth:
            case PM_MenuDesktopFrameWidth:
                return 0;
            default:
                return QProxyStyle::pixelMetric(metric, option, widget);
            }
        }

        QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
            const QWidget* widget) const override
        {
            const auto* line = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
            if (type != CT_MenuItem || line == nullptr)
                return QProxyStyle::sizeFromContents(type, option, size, widget);
            if (line->menuItemType == QStyleOptionMenuItem::Separator)
                return { 2 * linePadding, dividerHeight };
            const int width
                = QFontMetrics(line->font).size(Qt::TextHideMnemonic, line->text).width();
            return { width + 2 * linePadding, lineHeight };
        }

        void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
            const QWidget* widget) const override
        {
            if (element == PE_FrameMenu)
                return; // drawn with the ground
            if (element == PE_PanelMenu)
                drawGround(*painter, option->rect, coloursOf(option->palette),
                    widget && !widget->mask().isEmpty());
            else
                QProxyStyle::drawPrimitive(element, option, painter, widget);
        }

        void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
            const QWidget* widget) const override
        {
            const auto* line = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
            if (element == CE_MenuEmptyArea)
                return;
            if (element == CE_MenuItem && line != nullptr)
                drawLine(*painter, *line, widget);
            else
                QProxyStyle::drawControl(element, option, painter, widget);
        }

    private:
        /// @param isCut  the window is cut to its shape, which has whole pixels only: each needs a
        ///               colour, so the edge fills what the inner shape leaves over
        static void drawGround(
            QPainter& painter, const QRect& place, const Colours& colours, bool isCut)
        {
            constexpr double radius = windowRadius;
            painter.save();
            painter.setCompositionMode(QPainter::CompositionMode_Source);
            painter.fillRect(place, isCut ? colours.panel : QColor(Qt::transparent));
            painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(colours.panel);
            if (isCut) {
                painter.fillRect(place, colours.edge);
                painter.drawRoundedRect(
                    QRectF(place).adjusted(1, 1, -1, -1), radius - 1, radius - 1);
            } else {
                painter.drawRoundedRect(place, radius, radius);
                paintOutline(painter, place, radius, colours.edge);
            }
            painter.restore();
        }

        static void drawLine(
            QPainter& painter, const QStyleOptionMenuItem& line, const QWidget* widget)
        {
            const auto& colours = coloursOf(line.palette);
            if (line.menuItemType == QStyleOptionMenuItem::Separator) {
                const auto middle = line.rect.center().y();
                painter.fillRect(QRect(line.rect.left() + linePadding, middle,
                                     line.rect.width() - 2 * linePadding, 1),
                    colours.line);
                return;
            }
            const bool isEnabled = line.state.testFlag(State_Enabled);
            if (isEnabled && line.state.testFlag(State_Selected)) {
                painter.save();
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setPen(Qt::NoPen);
                painter.setBrush(colours.pressed);
                painter.drawRoundedRect(line.rect, lineRadius, lineRadius);
                painter.restore();
            }
            painter.setFont(line.font);
            painter.setPen(inkOf(line, widget));
            painter.drawText(line.rect.adjusted(linePadding, 0, -linePadding, 0),
                Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextHideMnemonic,
                line.text);
        }

        static QColor inkOf(const QStyleOptionMenuItem& line, const QWidget* widget)
        {
            const auto& palette = line.palette;
            if (!line.state.testFlag(State_Enabled))
                return palette.color(QPalette::Disabled, QPalette::Text);
            const auto* menu = dynamic_cast<const PanelMenu*>(widget);
            const auto* action = menu ? menu->actionAt(line.rect.center()) : nullptr;
            return action && menu->toneOf(action) == PanelMenu::Tone::destructive
                ? coloursOf(palette).redText
                : coloursOf(palette).text;
        }
    };

} // namespace

PanelMenu* PanelMenu::make(QWidget* opener)
{
    return std::make_unique<PanelMenu>(opener).release(); // its parent's
}

PanelMenu::PanelMenu(QWidget* opener)
    : QMenu(opener)
    , m_opener(*opener)
    , m_style(std::make_unique<PanelMenuStyle>())
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowFlag(Qt::FramelessWindowHint);
    setWindowFlag(Qt::NoDropShadowWindowHint);
    setWindowFlag(Qt::BypassWindowManagerHint, PopupHost::of(*opener) != nullptr);
    setStyle(m_style.get());
    setPalette(opener->palette());
    setFont(textFont(textSize));
}

PanelMenu::~PanelMenu() = default;

QAction* PanelMenu::addLine(std::string_view title, std::function<void()> chosen, Tone tone)
{
    // An ampersand in a menu's text would mark a letter.
    auto* line = addAction(QString::fromUtf8(title).replace(u'&', QStringLiteral("&&")));
    connect(line, &QAction::triggered, this, std::move(chosen));
    if (tone == Tone::destructive)
        m_destructive.push_back(line);
    return line;
}

PanelMenu::Tone PanelMenu::toneOf(const QAction* line) const
{
    return std::ranges::find(m_destructive, line) == m_destructive.end() ? Tone::plain
                                                                         : Tone::destructive;
}

void PanelMenu::setVisible(bool isVisible)
{
    auto* const host = PopupHost::of(m_opener);
    m_standing = host != nullptr && isVisible ? host->stand(*this) : nullptr;
    if (host == nullptr || m_standing || !isVisible)
        return QMenu::setVisible(isVisible);
    // It would take every key and click without being seen.
    QMetaObject::invokeMethod(
        this,
        [this] {
            aboutToHide();
            deleteLater();
        },
        Qt::QueuedConnection);
}

void PanelMenu::mousePressEvent(QMouseEvent* event)
{
    // The toolkit lets a press that closes a menu reach what lies under it: the button would open the
    // menu that it has just closed.
    const QRect opener(m_opener.mapToGlobal(QPoint()), m_opener.size());
    if (qobject_cast<QAbstractButton*>(&m_opener) && !rect().contains(event->position().toPoint()))
        setAttribute(Qt::WA_NoMouseReplay, opener.contains(event->globalPosition().toPoint()));
    QMenu::mousePressEvent(event);
}

void PanelMenu::resizeEvent(QResizeEvent* event)
{
    QMenu::resizeEvent(event);
    // The panel's window is cut to its shape where no compositor runs; so is the menu then.
    if (m_opener.window()->mask().isEmpty())
        clearMask();
    else
        setMask(roundedRegion(rect(), windowRadius));
}

} // namespace korvane
