#pragma once

#include "app/view/KorPanel.h"
#include "app/view/StageOnOverlay.h"
#include "support/FakeOverlay.h"
#include "support/Input.h"
#include "support/ManualLoop.h"

#include <QLineEdit>

#include <memory>
#include <utility>
#include <vector>

namespace korvane::test {

/// A panel with a field in it and a preview, on one ground.
struct StageFixture {
    StageFixture()
    {
        auto line = std::make_unique<QLineEdit>();
        field = line.get();
        panel.setContents(std::move(line));
        panel.setKeyHandler([this](const KeyPress& press) {
            presses.push_back(press);
            return false;
        });
        panel.setVisibleFrame({ 400, 30, 360, 400 });
        preview.setVisibleFrame({ 768, 100, 484, 200 });
        stage.watch();
    }
    void open()
    {
        stage.show(panel);
        field->setFocus();
        settle();
    }
    /// The pointer comes to the ground.
    void enterAt(const QPointF& place)
    {
        QEnterEvent enter(place, place, place);
        QApplication::sendEvent(stage.ground(), &enter);
    }
    void pressAt(const QPoint& place, Qt::MouseButton button = Qt::LeftButton)
    {
        auto* const child = stage.ground()->childAt(place);
        auto& target = child ? *child : *stage.ground();
        test::press(target, target.mapFrom(stage.ground(), place), button);
    }

    FakeOverlay overlay;
    ManualLoop loop;
    StageOnOverlay stage { overlay, loop };
    Observable<bool> isComposited { true };
    KorPanel panel { isComposited, {}, KorPanel::Role::panel, stage.ground() };
    KorPanel preview { isComposited, {}, KorPanel::Role::preview, stage.ground() };
    QLineEdit* field = nullptr;
    std::vector<KeyPress> presses;
    int outside = 0;
    Connection pressed = stage.pressed.connect([this] { ++outside; });
};

} // namespace korvane::test
