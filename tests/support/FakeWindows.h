#pragma once

#include "app/Windows.h"
#include "model/ClipItem.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// A status item that remembers what it was told to show.
class FakeStatusItem : public StatusItem {
public:
    void setImage(std::string_view symbol) override { image = symbol; }
    void setTitle(std::string_view text) override { title = text; }
    void setMenu(std::function<std::vector<MenuItem>()> items) override { menu = std::move(items); }

    /// A right click, and the choice of an item by its title.
    void choose(std::string_view itemTitle)
    {
        for (const auto& item : menu())
            if (item.title == itemTitle)
                item.action();
    }

    std::string image;
    std::string title;
    std::function<std::vector<MenuItem>()> menu;
};

/// One screen with a bar of 26 points at its top, and the status item in it.
class FakeScreens : public Screens {
public:
    Frames look() override { return { visible, statusItem }; }

    Rect visible { 0, 0, 1440, 874 };
    Rect statusItem { 1000, 874, 24, 26 };
};

/// A window that is nowhere to be seen.
template <typename Port>
class FakeWindowOf : public Port {
public:
    Rect frame() const override { return place; }
    void setFrame(const Rect& frame) override { place = frame; }
    void show() override
    {
        ++shows;
        isShown = true;
    }
    void hide() override
    {
        ++hides;
        isShown = false;
        if (onHide)
            onHide();
    }
    bool isVisible() const override { return isShown; }

    Rect place { 0, 0, 520, 420 };
    bool isShown = false;
    int shows = 0;
    int hides = 0;
    std::function<void()> onHide;
};

using FakeWindow = FakeWindowOf<PlacedWindow>;

/// A preview in which every text is equally high.
class FakePreviewWindow : public FakeWindowOf<PreviewWindow> {
public:
    void setClip(const ClipItem& shown) override { clip = shown; }
    double textHeight(double width) override
    {
        measuredWidth = width;
        return height;
    }

    ClipItem clip;
    double height = 100;
    double measuredWidth = 0;
};

/// Clicks outside, when somebody watches.
class FakeOutsideClicks : public OutsideClicks {
public:
    void watch() override { isWatched = true; }
    void unwatch() override { isWatched = false; }

    void click()
    {
        if (isWatched)
            pressed();
    }

    bool isWatched = false;
};

/// Remembers the themes that were applied.
class FakeAppearance : public Appearance {
public:
    void apply(Theme theme) override { applied.push_back(theme); }

    std::vector<Theme> applied;
};

} // namespace korvane::test
