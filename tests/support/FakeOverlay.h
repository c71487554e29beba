#pragma once

#include "app/view/Overlay.h"

#include <QWidget>

#include <memory>
#include <utility>
#include <vector>

namespace korvane::test {

/// An output that shows whatever it is given, or nothing.
class FakeOverlay : public Overlay {
public:
    std::optional<Sizes> look() override
    {
        ++looks;
        return sizes;
    }
    bool show(QWidget& shown) override
    {
        if (isRefusing)
            return false;
        window = &shown;
        window->resize(sizes ? sizes->output : QSize(1280, 800));
        window->show();
        keyboard = { true };
        return true;
    }
    void hide() override
    {
        if (window)
            window->hide();
        window = nullptr;
    }
    void setKeyboard(bool isWanted) override
    {
        if (keyboard.back() != isWanted)
            keyboard.push_back(isWanted);
    }
    std::unique_ptr<PopupHost::Standing> stand(QWidget& popup) override
    {
        if (isRefusing)
            return nullptr;
        stood.push_back(&popup);
        return std::make_unique<Place>(*this);
    }

    /// Bars take 30 points of the height.
    std::optional<Sizes> sizes { { { 1280, 800 }, { 1280, 770 } } };
    bool isRefusing = false;
    int looks = 0;
    QWidget* window = nullptr;  // while it is shown
    std::vector<bool> keyboard; // who was to have it, since the showing
    std::vector<const QWidget*> stood;
    int standing = 0;

private:
    class Place : public PopupHost::Standing {
    public:
        explicit Place(FakeOverlay& overlay)
            : m_overlay(overlay)
        {
            ++m_overlay.standing;
        }
        ~Place() override { --m_overlay.standing; }

    private:
        FakeOverlay& m_overlay;
    };
};

} // namespace korvane::test
