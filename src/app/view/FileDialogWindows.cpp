#include "app/view/FileDialogWindows.h"

#include "look/view/SheetDialog.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include <utility>

namespace korvane {

namespace {

    std::filesystem::path pathOf(const QString& name)
    {
        return QFile::encodeName(name).toStdString(); // as the file system spells it
    }

} // namespace

std::filesystem::path firstFolder()
{
    const auto documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return pathOf(QFileInfo(documents).isDir() ? documents : QDir::homePath());
}

FileDialogWindows::FileDialogWindows(TextReader clipboardText)
    : m_clipboardText(std::move(clipboardText))
    , m_folder(std::make_shared<QString>(QFile::decodeName(firstFolder().c_str())))
{
}

FileDialogWindows::~FileDialogWindows() = default;

void FileDialogWindows::chooseNewFile(std::string_view proposedName, Answer answer)
{
    auto* const window = keyWindow();
    auto& dialog = makeDialog(window);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // nothing is overwritten
    dialog.selectFile(QString::fromUtf8(proposedName));
    open(dialog, window, std::move(answer));
}

void FileDialogWindows::chooseFile(Answer answer)
{
    auto* const window = keyWindow();
    auto& dialog = makeDialog(window);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    open(dialog, window, std::move(answer));
}

QFileDialog& FileDialogWindows::makeDialog(QWidget* window) const
{
    auto* const dialog = new QFileDialog(window);
    dialog->setNameFilter(QStringLiteral("JSON (*.json)"));
    dialog->setDirectory(*m_folder);
    return *dialog;
}

void FileDialogWindows::open(QFileDialog& dialog, QWidget* window, Answer answer)
{
    QObject::connect(&dialog, &QDialog::finished, &dialog,
        [&dialog, folder = m_folder, answer = std::move(answer)](int result) {
            const auto chosen = dialog.selectedFiles();
            if (result != QDialog::Accepted || chosen.isEmpty())
                return answer(std::nullopt);
            *folder = dialog.directory().absolutePath();
            answer(pathOf(chosen.front()));
        });
    if (window != nullptr) {
        openAsSheet(dialog, *window);
    } else {
        dialog.setAttribute(Qt::WA_DeleteOnClose);
        dialog.open();
    }
    keepFromWaiting(dialog, m_clipboardText); // all its parts are there now
}

} // namespace korvane
