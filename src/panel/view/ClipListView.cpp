#include "panel/view/ClipListView.h"

#include "look/view/PanelMenu.h"
#include "look/view/Symbols.h"
#include "panel/ClipScrollTracker.h"
#include "panel/PanelController.h"
#include "panel/PanelTexts.h"
#include "panel/Selection.h"
#include "panel/TabSwitcher.h"
#include "panel/view/ClipRowMenu.h"
#include "panel/view/EmptyListPainter.h"
#include "panel/view/FilterTabBar.h"
#include "panel/view/PanelMetrics.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane {

namespace {
    /// Points for one notch of a wheel: two rows.
    constexpr double wheelStep = 2 * metrics::rowPitch;
    /// Ages are told in minutes.
    constexpr std::chrono::minutes ageInterval { 1 };
} // namespace

ClipListView::ClipListView(ClipStore& store, PanelController& controller, MainLoop& loop,
    Symbols& symbols, TextReader reader, std::function<void()> renameEnded, QWidget* parent)
    : QWidget(parent)
    , m_store(store)
    , m_controller(controller)
    , m_loop(loop)
    , m_symbols(symbols)
    , m_rowView(symbols)
    , m_files(loop)
    , m_rename(std::move(reader),
          { [this](const ClipId& id, const std::string& name) { m_controller.rename(id, name); },
              [this, renameEnded = std::move(renameEnded)] {
                  renameEnded();
                  update();
              } },
          this)
    , m_opacity(loop, *this, 1, [this] { update(); })
{
    setMouseTracking(true);
    setAccessibleName(QStringLiteral("Clips"));
    follow(store.panel());
}

void ClipListView::follow(PanelState& panel)
{
    m_connections.push_back(m_store.clipsChanged.connect([this] {
        keepPlace();
        listChanged();
    }));
    const auto showAnew = [this](const auto&) {
        toTop();
        listChanged();
    };
    m_connections.push_back(panel.panelSearch.onChange(showAnew));
    m_connections.push_back(panel.panelFilterTab.onChange(showAnew));
    m_connections.push_back(panel.selectedClipID.onChange(
        [this](const auto& selected) { selectionChanged(selected); }));
    m_connections.push_back(panel.isTabSwitching.onChange([this](bool isSwitching) {
        if (isSwitching)
            m_rename.giveUp(); // it would stand alone while the rows fade
        // Without motion the old rows stand until the new ones come: a list that is gone at once
        // would only flicker.
        m_opacity.goTo(isSwitching && EasedValue::isAnimated() ? 0 : 1,
            isSwitching ? TabSwitcher::barAnimation : TabSwitcher::listFade);
    }));
    m_connections.push_back(m_files.changed.connect([this] { update(); }));
    m_connections.push_back(m_controller.observePrivateMode([this](bool isPrivate) {
        m_isPrivate = isPrivate;
        update();
    }));
    m_selected = panel.selectedClipID.value();
}

double ClipListView::contentHeight() const
{
    const auto count = static_cast<double>(displayed().size());
    return count == 0 ? 0 : count * metrics::rowPitch - metrics::rowGap + 2 * metrics::listPaddingY;
}

void ClipListView::setOffset(double offset)
{
    offset = std::clamp(offset, 0.0, largestScrollOffset(contentHeight(), height()));
    if (offset == m_offset)
        return;
    m_offset = offset;
    settle();
    update();
}

QRectF ClipListView::rowRect(std::size_t index) const
{
    const double ratio = devicePixelRatioF();
    const double top
        = metrics::listPaddingY + static_cast<double>(index) * metrics::rowPitch - m_offset;
    return { static_cast<double>(metrics::listPaddingX), std::round(top * ratio) / ratio,
        static_cast<double>(width() - 2 * metrics::listPaddingX),
        static_cast<double>(metrics::rowHeight) };
}

std::size_t ClipListView::firstRowAt(double y) const
{
    return static_cast<std::size_t>(
        std::max((y + m_offset - metrics::listPaddingY) / metrics::rowPitch, 0.0));
}

std::optional<std::size_t> ClipListView::rowAt(const QPointF& point) const
{
    const double y = point.y() + m_offset - metrics::listPaddingY;
    if (y < 0 || !rect().toRectF().contains(point))
        return std::nullopt;
    const auto index = static_cast<std::size_t>(y / metrics::rowPitch);
    return index < displayed().size() && rowRect(index).contains(point) ? std::optional(index)
                                                                        : std::nullopt;
}

void ClipListView::beginRename(const ClipId& id)
{
    const auto index = indexOf(displayed(), id);
    if (!index)
        return;
    m_rename.giveUp();
    bringIntoView(*index);
    m_rename.begin(*displayed()[*index], titlePlace(*index));
    settle();
    update();
}

void ClipListView::openMenuOfSelectedRow()
{
    openMenuOf(m_selected);
}

void ClipListView::openMenuOf(const std::optional<ClipId>& id)
{
    const auto index = indexOf(displayed(), id);
    if (!index)
        return;
    bringIntoView(*index);
    auto* const menu = openMenu(*index, mapToGlobal(rowRect(*index).center().toPoint()));
    // Who opens it without pointing at anything goes on by keys.
    menu->setActiveAction(menu->actions().first());
}

bool ClipListView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const auto index = rowAt(help->pos());
    const auto tip = index ? m_rowView.toolTipAt(help->pos(), rowRect(*index), row(*index))
                           : ClipRowView::ToolTip();
    if (tip.text.empty())
        QToolTip::hideText();
    else
        QToolTip::showText(
            help->globalPos(), QString::fromUtf8(tip.text), this, tip.place.toAlignedRect());
    return true;
}

void ClipListView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setOpacity(m_opacity.value());
    const auto& rows = displayed();
    if (rows.empty()) {
        paintEmptyList(painter, rect(), emptyText(),
            symbolOf(m_store.panel().panelFilterTab.value()), m_symbols, m_titles, palette());
        return;
    }
    for (auto index = firstRowAt(event->rect().top()); index < rows.size(); ++index) {
        const auto place = rowRect(index);
        if (place.top() > event->rect().bottom())
            break;
        m_rowView.paint(painter, place, row(index), m_now, palette());
    }
}

void ClipListView::resizeEvent(QResizeEvent*)
{
    if (isVisible())
        settle();
}

void ClipListView::showEvent(QShowEvent*)
{
    m_now = m_loop.now();
    m_files.askAgain();
    m_ageTick = m_loop.every(ageInterval, [this] { refreshAges(); });
    toTop(); // not where the last opening left it
    settle();
}

void ClipListView::hideEvent(QHideEvent*)
{
    m_ageTick.stop();
    m_rename.giveUp();
    m_pressed.reset();
    hoverAt(std::nullopt);
}

void ClipListView::wheelEvent(QWheelEvent* event)
{
    // Only a device that tells of a gesture's phases tells pixels that mean anything.
    const bool hasPixels = event->phase() != Qt::NoScrollPhase && !event->pixelDelta().isNull();
    const double down
        = hasPixels ? -event->pixelDelta().y() : -event->angleDelta().y() / 120.0 * wheelStep;
    setOffset(m_offset + down);
    event->accept();
}

void ClipListView::mouseMoveEvent(QMouseEvent* event)
{
    hoverAt(event->position());
}

void ClipListView::mousePressEvent(QMouseEvent* event)
{
    m_rename.giveUp();
    if (event->button() != Qt::LeftButton || isForSomethingGone(event->globalPosition().toPoint()))
        return;
    const auto index = rowAt(event->position());
    m_pressed = index ? std::optional(displayed()[*index]->id) : std::nullopt;
    updateRow(index);
}

bool ClipListView::isForSomethingGone(const QPoint& global)
{
    const auto sinceThen = [this] { return m_loop.now() - m_ignoredSince; };
    const std::chrono::milliseconds atOnce { QApplication::doubleClickInterval() };
    if (m_ignoredAt != global || sinceThen() > atOnce) {
        m_ignoredAt.reset();
        return false;
    }
    m_ignoredSince = m_loop.now();
    return true;
}

void ClipListView::ignoreClicksAt(const QPoint& global)
{
    m_ignoredAt = global;
    m_ignoredSince = m_loop.now();
}

void ClipListView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const auto pressed = std::exchange(m_pressed, std::nullopt);
    const auto index = rowAt(event->position());
    updateRow(indexOf(displayed(), pressed));
    // By identifier: a new copy may have moved the rows while the button was down.
    if (pressed && index && displayed()[*index]->id == pressed)
        m_controller.click(*pressed);
}

void ClipListView::leaveEvent(QEvent*)
{
    hoverAt(std::nullopt);
}

void ClipListView::contextMenuEvent(QContextMenuEvent* event)
{
    if (const auto index = rowAt(event->pos()))
        openMenu(*index, event->globalPos());
}

void ClipListView::listChanged()
{
    if (!isVisible())
        return; // looked at again when it is shown
    m_now = m_loop.now();
    if (m_rename.clip() && !indexOf(displayed(), m_rename.clip()))
        m_rename.giveUp();
    settle();
    update();
}

void ClipListView::refreshAges()
{
    const auto before = std::exchange(m_now, m_loop.now());
    for (std::size_t index = firstRowAt(0); index < displayed().size(); ++index) {
        if (rowRect(index).top() > height())
            break;
        const auto& clip = *displayed()[index];
        if (paneltexts::metaItems(clip, before) != paneltexts::metaItems(clip, m_now))
            updateRow(index);
    }
}

void ClipListView::selectionChanged(const std::optional<ClipId>& selected)
{
    updateRow(indexOf(displayed(), std::exchange(m_selected, selected)));
    const auto index = indexOf(displayed(), selected);
    if (!index)
        return;
    centre(*index);
    settle();
    updateRow(index);
}

/// Brings everything that follows from the rows and their places up to date.
void ClipListView::settle()
{
    m_offset = std::clamp(m_offset, 0.0, largestScrollOffset(contentHeight(), height()));
    if (const auto selected = indexOf(displayed(), m_selected))
        m_store.panel().selectedRowMidY = metrics::listTop + rowRect(*selected).center().y();
    if (const auto renamed = indexOf(displayed(), m_rename.clip()))
        m_rename.setGeometry(titlePlace(*renamed));
    hoverAt(m_pointer);
    notePlace();
    measured();
}

bool ClipListView::isInView(std::size_t index) const
{
    const auto place = rowRect(index);
    return place.top() >= 0 && place.bottom() <= height();
}

void ClipListView::notePlace()
{
    const auto index = firstRowAt(0);
    m_topRow.reset();
    if (m_offset > 0 && index < displayed().size())
        m_topRow = { displayed()[index]->id, rowRect(index).top() };
    const auto kept = indexOf(displayed(), keptClip());
    m_isKeptInView = kept && isInView(*kept);
}

/// What the user is busy with: the clip that is being renamed, or else the one that Return pastes.
const std::optional<ClipId>& ClipListView::keptClip() const
{
    return m_rename.clip() ? m_rename.clip() : m_selected;
}

/// A copy that arrives must neither put another clip under the pointer of who has scrolled, nor push
/// what the user is busy with out of view.
void ClipListView::keepPlace()
{
    if (!isVisible())
        return;
    if (const auto top = m_topRow ? indexOf(displayed(), m_topRow->id) : std::nullopt)
        m_offset += rowRect(*top).top() - m_topRow->y;
    const auto kept = indexOf(displayed(), keptClip());
    if (kept && m_isKeptInView && !isInView(*kept)) {
        const auto place = rowRect(*kept);
        m_offset += place.top() < 0 ? place.top() - metrics::listPaddingY
                                    : place.bottom() + metrics::listPaddingY - height();
    }
}

QRect ClipListView::titlePlace(std::size_t index)
{
    return m_rowView.titleRect(rowRect(index), row(index)).toAlignedRect();
}

/// To the list's top, unless the selected clip is not seen from there: Return pastes it, and nobody
/// should have to look for it.
void ClipListView::toTop()
{
    m_offset = 0;
    if (const auto selected = indexOf(displayed(), m_selected))
        bringIntoView(*selected);
}

void ClipListView::centre(std::size_t index)
{
    setOffset(rowRect(index).center().y() + m_offset - height() / 2.0);
}

void ClipListView::bringIntoView(std::size_t index)
{
    if (!isInView(index))
        centre(index);
}

void ClipListView::hoverAt(std::optional<QPointF> pointer)
{
    m_pointer = pointer;
    const auto hovered = pointer ? rowAt(*pointer) : std::nullopt;
    if (hovered == m_hovered)
        return;
    updateRow(std::exchange(m_hovered, hovered));
    updateRow(hovered);
}

void ClipListView::updateRow(std::optional<std::size_t> index)
{
    if (index)
        update(rowRect(*index).toAlignedRect());
}

QMenu* ClipListView::openMenu(std::size_t index, const QPoint& at)
{
    const auto& clip = *displayed()[index];
    auto* menu = makeClipRowMenu(
        clip, m_controller, [this, id = clip.id] { beginRename(id); }, this);
    connect(menu, &QMenu::aboutToHide, this, [this] { setMenuRow(std::nullopt); });
    setMenuRow(clip.id);
    menu->popup(at);
    return menu;
}

/// Whoever reads a menu sees which row it belongs to, and no other row lights up meanwhile.
void ClipListView::setMenuRow(std::optional<ClipId> id)
{
    updateRow(m_hovered);
    updateRow(indexOf(displayed(), std::exchange(m_menuRow, id)));
    updateRow(indexOf(displayed(), id));
}

bool ClipListView::isMissing(const ClipItem& clip)
{
    return clip.type == ClipType::file && m_files.isMissing(clip.text);
}

EmptyList ClipListView::emptyText() const
{
    const auto& panel = m_store.panel();
    return emptyList(m_store.clips().empty(), m_isPrivate, panel.panelFilterTab.value(),
        panel.panelSearch.value());
}

ClipRow ClipListView::row(std::size_t index)
{
    const auto* const clip = displayed()[index];
    const auto& id = clip->id;
    return { .clip = *clip,
        .shortcutIndex = index,
        .isSelected = m_selected == id,
        .isHovered = m_menuRow ? m_menuRow == id : m_hovered == index,
        .isPressed = m_pressed == id && m_hovered == index,
        .isRenaming = m_rename.clip() == id,
        .isMissing = isMissing(*clip) };
}

} // namespace korvane
