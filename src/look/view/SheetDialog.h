#pragma once

class QDialog;
class QWidget;

namespace korvane {

/// The window itself, or the one under it that will still be there: a dialog may have just closed, and a list
/// of proposals goes with the next key. Null where there is none.
QWidget* lastingWindow(QWidget* window);

/// The window of ours that has the keyboard. A dialog that has just closed has given it to the window
/// under it, which the desktop may not have told yet. Never the panel, which may have the keyboard while
/// the user points at another window of ours: that one is meant then. Null: it is another program's.
QWidget* keyWindow();

/// Opens a dialog over a window, which it keeps from the user until it is done, and returns. The
/// dialog deletes itself when it has finished. A window that goes under it takes it along: the dialog
/// is then given up. One that is only brought back to the front, hidden and shown at once, keeps it.
void openAsSheet(QDialog& dialog, QWidget& window);

} // namespace korvane
