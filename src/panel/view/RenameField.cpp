#include "panel/view/RenameField.h"

#include "look/view/Fonts.h"
#include "panel/PanelTexts.h"

#include <utility>

namespace korvane {

RenameField::RenameField(TextReader reader, Listener listener, QWidget* parent)
    : PanelLineEdit(std::move(reader), parent)
    , m_listener(std::move(listener))
{
    hide();
    setAccessibleName(QStringLiteral("Name"));
    setTextMargins(-2, 0, 0, 0); // its text stands where the title stood
    setPlaceholderText(QString::fromUtf8(paneltexts::renamePlaceholder));
    connect(this, &QLineEdit::returnPressed, this, [this] { submit(); });
    connect(this, &QLineEdit::editingFinished, this, [this] {
        // The keyboard may go to another window and come back; within ours the focus has moved on.
        if (window()->focusWidget() != this)
            giveUp();
    });
}

void RenameField::begin(const ClipItem& clip, const QRect& place)
{
    m_clip = clip.id;
    setFont(textFont(13)); // the desktop's own may have changed
    setText(QString::fromStdString(clip.customName.value_or(std::string())));
    selectAll();
    setGeometry(place);
    show();
    setFocus(Qt::OtherFocusReason);
}

void RenameField::submit()
{
    const auto id = m_clip;
    const auto name = text().toStdString();
    giveUp();
    if (id)
        m_listener.submitted(*id, name);
}

void RenameField::giveUp()
{
    if (!std::exchange(m_clip, std::nullopt))
        return;
    hide();
    m_listener.ended();
}

} // namespace korvane
