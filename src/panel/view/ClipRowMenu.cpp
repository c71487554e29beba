#include "panel/view/ClipRowMenu.h"

#include "look/view/PanelMenu.h"
#include "panel/PanelController.h"
#include "panel/PanelTexts.h"

#include <utility>

namespace korvane {

namespace {

    std::function<void()> performed(paneltexts::RowAction action, const ClipId& id,
        PanelController& controller, std::function<void()> beginRename)
    {
        using enum paneltexts::RowAction;
        switch (action) {
        case copy:
            return [&controller, id] { controller.copy(id); };
        case pasteDirectly:
            return [&controller, id] { controller.pasteDirectly(id); };
        case reveal:
            return [&controller, id] { controller.reveal(id); };
        case togglePin:
            return [&controller, id] { controller.togglePin(id); };
        case rename:
            return beginRename;
        case quickLook:
            return [&controller, id] { controller.quickLook(id); };
        case remove:
            return [&controller, id] { controller.remove(id); };
        }
        return {};
    }

} // namespace

PanelMenu* makeClipRowMenu(const ClipItem& clip, PanelController& controller,
    const std::function<void()>& beginRename, QWidget* parent)
{
    auto* menu = PanelMenu::make(parent);
    // It has closed by then, but for a line that assistive technology chose.
    QObject::connect(menu, &QMenu::triggered, menu, &QWidget::close);
    for (const auto& item : paneltexts::rowMenu(clip)) {
        if (!item.action) {
            menu->addSeparator();
            continue;
        }
        menu->addLine(item.title, performed(*item.action, clip.id, controller, beginRename),
            *item.action == paneltexts::RowAction::remove ? PanelMenu::Tone::destructive
                                                          : PanelMenu::Tone::plain);
    }
    return menu;
}

} // namespace korvane
