#pragma once

#include <QAbstractButton>

#include <functional>
#include <string_view>

namespace korvane {

class Symbols;

/// A button in the panel's head: a symbol on a ground that tells whether the pointer is on it, whether
/// it is held down, and whether it has the focus. A click leaves the focus where it was, so that one
/// goes on typing; only the Tab key brings it here.
class HeaderButton : public QAbstractButton {
public:
    static constexpr int edge = 28;

    enum class Tone { secondary, orange };

    /// @param name  what it is called by assistive technology
    HeaderButton(
        Symbols& symbols, const QString& name, std::function<void()> clicked, QWidget* parent);

    void setSymbol(std::string_view symbol, Tone tone = Tone::secondary);
    std::string_view symbol() const { return m_symbol; }
    Tone tone() const { return m_tone; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Symbols& m_symbols;
    std::string_view m_symbol;
    Tone m_tone = Tone::secondary;
};

} // namespace korvane
