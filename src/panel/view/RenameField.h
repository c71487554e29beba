#pragma once

#include "look/view/PanelLineEdit.h"
#include "model/ClipItem.h"

#include <functional>
#include <optional>
#include <string>

namespace korvane {

/// The field in the place of a clip's title while the clip is being renamed; hidden otherwise. Return
/// ends the renaming; a focus that goes elsewhere within the window gives it up.
class RenameField : public PanelLineEdit {
public:
    /// Both are called when the field has gone.
    struct Listener {
        std::function<void(const ClipId& id, const std::string& name)> submitted;
        /// However it ended, and before `submitted`.
        std::function<void()> ended;
    };

    RenameField(TextReader reader, Listener listener, QWidget* parent);

    /// Whose name is being typed; none while the field is hidden.
    const std::optional<ClipId>& clip() const { return m_clip; }
    /// Shows the field, with the clip's own name selected in it and the focus on it.
    void begin(const ClipItem& clip, const QRect& place);
    void submit();
    void giveUp();

private:
    Listener m_listener;
    std::optional<ClipId> m_clip;
};

} // namespace korvane
