#pragma once

#include "platform/qt/QtClipboardWriter.h"
#include "platform/qt/QtMainLoop.h"
#include "platform/shared/PasteboardDesk.h"
#include "platform/x11/X11Pasteboard.h"

#include <memory>

namespace korvane::test {

/// The pasteboard on the real X server.
class X11RealPasteboard : public RealPasteboard {
public:
    X11RealPasteboard();

    MainLoop& loop() override { return m_loop; }
    Pasteboard& pasteboard() override { return *m_pasteboard; }
    void end() override { m_pasteboard.reset(); }
    void hear() override;
    void copyToPrimary(const std::string& text) override;
    std::string pasteFromPrimary(const char* type) override;
    void writePrimaryToo() override { m_pasteboard->writePrimaryToo(); }

    X11Connection& connection() { return m_connection; }
    QtClipboardWriter& writer() { return m_writer; }

private:
    QtMainLoop m_loop;
    X11Connection m_connection { m_loop };
    QtClipboardWriter m_writer { m_connection };
    std::unique_ptr<X11Pasteboard> m_pasteboard;
};

/// The same desk, for what is X11's alone.
class X11PasteboardDesk : public PasteboardDesk {
public:
    X11Connection& connection() { return x11().connection(); }
    QtClipboardWriter& writer() { return x11().writer(); }

private:
    X11RealPasteboard& x11() { return static_cast<X11RealPasteboard&>(real()); }
};

} // namespace korvane::test
