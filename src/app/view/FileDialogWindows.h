#pragma once

#include "look/view/LinePaste.h"
#include "settings/FileDialogs.h"

#include <QString>

#include <filesystem>
#include <memory>

class QFileDialog;
class QWidget;

namespace korvane {

/// Where the first file dialog opens: the user's documents, or the home. It would otherwise be the folder that
/// the program was started in.
std::filesystem::path firstFolder();

/// The toolkit's file dialogs, for desktops without a portal. They open where the last one ended.
class FileDialogWindows : public FileDialogs {
public:
    /// @param clipboardText  what is pasted into a dialog
    explicit FileDialogWindows(TextReader clipboardText);
    ~FileDialogWindows() override;

    void chooseNewFile(std::string_view proposedName, Answer answer) override;
    void chooseFile(Answer answer) override;

private:
    QFileDialog& makeDialog(QWidget* window) const;
    void open(QFileDialog& dialog, QWidget* window, Answer answer);

    TextReader m_clipboardText;
    std::shared_ptr<QString> m_folder; // shared with the open dialogs, which may outlive us
};

} // namespace korvane
