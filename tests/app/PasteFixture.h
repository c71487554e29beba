#pragma once

#include "support/AppFixture.h"

#include <chrono>
#include <string>

namespace korvane::test {

/// The program with two clips, and an editor in front to paste into.
struct PasteFixture : AppFixture {
    PasteFixture()
    {
        launch();
        copy("older");
        copy("newer");
    }
    void openPanel() { app->shell().showPanel(); }
    /// Opens the panel and pastes the selected clip.
    void paste()
    {
        openPanel();
        press(keycodes::returnKey);
    }
    /// Lets the next poll look.
    void poll() { loop.advance(std::chrono::milliseconds { 500 }); }
};

/// The newest clip is a large one.
struct LargeClipFixture : PasteFixture {
    LargeClipFixture() { copy(whole); }

    std::string whole = std::string(65537, 'x');
};

/// The newest clip is a file.
struct FileClipFixture : PasteFixture {
    FileClipFixture()
    {
        pasteboard.copyFiles("file:///home/ada/plan.txt\r\n");
        loop.turn();
    }
};

} // namespace korvane::test
