#pragma once

#include "look/view/PanelLineEdit.h"

namespace korvane {

class MainLoop;
class Symbols;

/// What the controls of the pages are made with. All of it outlives them.
struct ControlKit {
    MainLoop& loop; ///< moves what slides
    Symbols& symbols;
    TextReader clipboardText; ///< for what is pasted into a field
};

} // namespace korvane
