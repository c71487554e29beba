#include "settings/view/AppList.h"

#include "look/view/Colours.h"
#include "look/view/ElidedText.h"
#include "look/view/Fonts.h"
#include "settings/view/FocusRing.h"
#include "settings/view/SlimScrollBar.h"

#include <QFontMetricsF>
#include <QIcon>
#include <QPainter>
#include <QStyledItemDelegate>

#include <memory>
#include <string>

namespace korvane {

namespace {
    constexpr int iconSize = 20;
    constexpr int padding = 8;
    constexpr double radius = 6;
    constexpr double textSize = 13;
    // Stands for an application that has no icon, or is not installed any more.
    constexpr std::string_view unknownSymbol = "questionmark.circle";

    QIcon iconNamed(const QString& icon)
    {
        if (icon.startsWith('/'))
            return QIcon(icon);
        // Some entries name the file instead of the icon.
        const auto dot = icon.lastIndexOf('.');
        const bool hasEnding = dot > 0
            && (icon.endsWith(QLatin1String(".png")) || icon.endsWith(QLatin1String(".svg"))
                || icon.endsWith(QLatin1String(".xpm")));
        return QIcon::fromTheme(hasEnding ? icon.left(dot) : icon);
    }

    /// Paints a row in the look of our windows.
    class RowPainter : public QStyledItemDelegate {
    public:
        RowPainter(Symbols& symbols, AppList& list)
            : QStyledItemDelegate(&list)
            , m_symbols(symbols)
            , m_list(list)
        {
        }

        QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override
        {
            return { 0, AppList::rowHeight };
        }

        void paint(QPainter* painter, const QStyleOptionViewItem& option,
            const QModelIndex& index) const override
        {
            painter->save();
            painter->setRenderHint(QPainter::Antialiasing);
            paintGround(*painter, option);
            const auto place = option.rect.adjusted(padding, 0, -padding, 0);
            paintIcon(*painter,
                QRect(place.left(), place.top() + (place.height() - iconSize) / 2, iconSize,
                    iconSize),
                index);
            painter->setFont(textFont(textSize));
            painter->setPen(coloursOf(m_list.palette()).text);
            const auto text = place.adjusted(iconSize + padding, 0, 0, 0);
            painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                elidedText(index.data().toString(), QFontMetricsF(painter->font()), text.width()));
            painter->restore();
        }

    private:
        void paintGround(QPainter& painter, const QStyleOptionViewItem& option) const
        {
            const auto& colours = coloursOf(m_list.palette());
            const bool isSelected = option.state.testFlag(QStyle::State_Selected);
            if (isSelected || option.state.testFlag(QStyle::State_MouseOver)) {
                painter.setPen(Qt::NoPen);
                painter.setBrush(isSelected ? colours.selection : colours.hover);
                painter.drawRoundedRect(option.rect, radius, radius);
            }
            if (option.state.testFlag(QStyle::State_HasFocus) && m_list.isRingShown())
                paintFocusRing(painter, m_list, QRectF(option.rect), radius);
        }

        void paintIcon(QPainter& painter, const QRect& place, const QModelIndex& index) const
        {
            const auto icon = index.data(Qt::DecorationRole).value<QIcon>();
            if (icon.isNull())
                m_symbols.paint(
                    painter, unknownSymbol, place, iconSize, coloursOf(m_list.palette()).secondary);
            else
                icon.paint(&painter, place);
        }

        Symbols& m_symbols;
        AppList& m_list;
    };

} // namespace

AppRow::AppRow(std::string_view name, std::string_view icon)
    : QListWidgetItem(
        icon.empty() ? QIcon() : iconNamed(QString::fromUtf8(icon)), QString::fromUtf8(name))
{
}

AppList::AppList(Symbols& symbols, QWidget* parent)
    : QListWidget(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBar(std::make_unique<SlimScrollBar>(this).release()); // the list's
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setUniformItemSizes(true);
    setMouseTracking(true);
    setTabKeyNavigation(false);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_Hover);
    setItemDelegate(std::make_unique<RowPainter>(symbols, *this).release()); // its child
}

bool AppList::event(QEvent* event)
{
    note(*event);
    return QListWidget::event(event);
}

/// The pointer's presses come to the rows.
bool AppList::viewportEvent(QEvent* event)
{
    note(*event);
    return QListWidget::viewportEvent(event);
}

void AppList::note(const QEvent& event)
{
    if (m_use.note(event))
        viewport()->update();
}

void AppList::focusInEvent(QFocusEvent* event)
{
    // The toolkit would select nothing and show nothing of where the keyboard is.
    if (currentRow() < 0 && count() > 0)
        setCurrentRow(0, QItemSelectionModel::NoUpdate);
    QListWidget::focusInEvent(event);
}

} // namespace korvane
