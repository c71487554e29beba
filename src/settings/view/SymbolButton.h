#pragma once

#include "settings/view/RingedButton.h"

#include <functional>
#include <string>
#include <string_view>

namespace korvane {

class Symbols;

/// A small button without an edge that shows one of our symbols; its letter takes the symbol's place.
class SymbolButton : public RingedButton {
public:
    static constexpr int edge = 26;

    /// @param toolTip  says what it does; to assistive technology it is the name
    SymbolButton(Symbols& symbols, std::string_view symbol, const QString& toolTip,
        std::function<void()> clicked, QWidget* parent = nullptr);

    std::string_view symbol() const { return m_symbol; }
    QSize sizeHint() const override { return { edge, edge }; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Symbols& m_symbols;
    std::string m_symbol;
};

} // namespace korvane
