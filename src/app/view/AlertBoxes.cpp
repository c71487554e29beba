#include "app/view/AlertBoxes.h"

#include <QPushButton>
#include <QString>

namespace korvane {

namespace {

    std::unique_ptr<QMessageBox> makeBox(const Alert& alert)
    {
        auto box = std::make_unique<QMessageBox>();
        box->setIcon(QMessageBox::Warning);
        box->setWindowTitle(
            QString::fromUtf8(alert.message)); // the windows are told apart by their titles
        box->setText(QString::fromUtf8(alert.message));
        box->setInformativeText(QString::fromUtf8(alert.informativeText));
        box->setTextFormat(Qt::PlainText);
        box->setDefaultButton(
            box->addButton(QString::fromUtf8(alert.button), QMessageBox::AcceptRole));
        box->setModal(false);
        return box;
    }

} // namespace

void AlertBoxes::warn(const Alert& alert)
{
    auto& box = m_boxes[std::string(alert.message)];
    if (!box)
        box = makeBox(alert);
    box->show();
    box->raise();
    box->activateWindow();
}

} // namespace korvane
