#pragma once

#include "settings/view/FormPage.h"

#include <QIcon>

#include <string_view>

namespace korvane {

class Symbols;

/// The About page: what the program is called, and which version of it runs.
class AboutPage : public FormPage {
public:
    /// @param icon     the program's; a null one has a symbol stand for it
    /// @param version  the build's; empty where it has none
    AboutPage(
        Symbols& symbols, const QIcon& icon, std::string_view version, QWidget* parent = nullptr);
};

} // namespace korvane
