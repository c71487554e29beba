#pragma once

#include "app/Windows.h"
#include "app/view/KorPanel.h"
#include "app/view/PanelStage.h"
#include "model/MainLoop.h"
#include "model/Signal.h"

#include <QPoint>
#include <QPointer>

#include <memory>
#include <vector>

namespace korvane {

class Overlay;

/// A desktop on which no window of ours stands where it is put: one transparent window covers the whole
/// output, and the panel and the preview are parts of it, at their exact places. A press on what is
/// transparent is a click outside; it goes no further.
class StageOnOverlay : public PanelStage, public OutsideClicks {
public:
    /// How long the panel waits for what the desktop tells only when the ground is there: where the pointer
    /// is, and how fine the output's pixels are.
    static constexpr std::chrono::milliseconds patience { 100 };

    StageOnOverlay(Overlay& overlay, MainLoop& loop);
    ~StageOnOverlay() override;
    StageOnOverlay(const StageOnOverlay&) = delete;
    StageOnOverlay& operator=(const StageOnOverlay&) = delete;

    QWidget* ground() override;
    void show(KorPanel& panel) override;
    void hide(KorPanel& panel) override;
    bool isVisible(const KorPanel& panel) const override;
    void takeKeyboard(KorPanel& panel) override;
    /// The next window of ours that asks for the keyboard is to get it, while the panel stays.
    void lendKeyboard();

    /// Whether the ground covers the output now.
    bool isOpen() const { return m_isOpen; }
    /// At the next opening the panel appears only when `pointerArrived` has been told, or patience is at
    /// its end: its place depends on the pointer, and that is known only once the ground is there.
    void awaitPointer() { m_isPointerAwaited = true; }

    void watch() override { m_isWatching = true; }
    void unwatch() override { m_isWatching = false; }

    /// Where the pointer is on the ground, as soon as that is known after an opening.
    Signal<QPoint> pointerArrived;
    /// The desktop has taken the ground away, and all that stood on it.
    Signal<> lost;

private:
    class Ground;

    void reveal();
    void forget(const KorPanel& panel);
    void close();
    void arrived(const QPoint& pointer);
    void cameOntoOutput();
    void pressedAt(const QPoint& place);
    void pressedOutside();

    Overlay& m_overlay;
    MainLoop& m_loop;
    std::unique_ptr<Ground> m_ground;
    /// Those that are shown, or about to be, in the order of their showing. They may end before us.
    std::vector<QPointer<KorPanel>> m_shown;
    bool m_isOpen = false;
    bool m_isPointerAwaited = false;
    bool m_isScaleAwaited = false;
    bool m_isWatching = false;
    Timer m_patience;
    Connection m_pressedElsewhere;
    Connection m_closed;
};

} // namespace korvane
