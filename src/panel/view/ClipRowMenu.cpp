#include "panel/view/ClipRowMenu.h"

#include "panel/PanelController.h"
#include "panel/PanelTexts.h"

#include <QMenu>

#include <memory>
#include <utility>

namespace korvane {

namespace {

    std::function<void()> performed(paneltexts::RowAction action, const ClipId& id,
        PanelController& controller, std::function<void()> beginRename, double rowMidY)
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
            return [&controller, id, rowMidY] { controller.quickLook(id, rowMidY); };
        case remove:
            return [&controller, id] { controller.remove(id); };
        }
        return {};
    }

} // namespace

QMenu* makeClipRowMenu(const ClipItem& clip, PanelController& controller,
    const std::function<void()>& beginRename, double rowMidY, QWidget* parent)
{
    auto* menu = std::make_unique<QMenu>(parent).release(); // its parent's
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto& item : paneltexts::rowMenu(clip)) {
        if (!item.action) {
            menu->addSeparator();
            continue;
        }
        auto* line = menu->addAction(QString::fromUtf8(item.title));
        QObject::connect(line, &QAction::triggered, menu,
            performed(*item.action, clip.id, controller, beginRename, rowMidY));
    }
    return menu;
}

} // namespace korvane
