#include "platform/x11/X11PasteboardDesk.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::SelectionOwner;
    using test::textOwner;
    using test::waitUntil;
    using test::X11PasteboardDesk;

    TEST(X11PasteboardCountTest, ACopyThatComesWhileWeWriteIsStillToBeCountedAfterwards)
    {
        // A writer whose text another program has replaced before we hear of either.
        class OvertakenWriter : public ClipboardWriter {
        public:
            OvertakenWriter(ClipboardWriter& real, SelectionOwner& owner)
                : m_real(real)
                , m_owner(owner)
            {
            }
            void writeClipboard(std::string_view text) override
            {
                m_real.writeClipboard(text);
                m_owner.copyAgain("overtaking");
            }
            void copyToPrimary() override { m_real.copyToPrimary(); }
            bool ownsWindow(xcb_window_t window) const override
            {
                return m_real.ownsWindow(window);
            }

        private:
            ClipboardWriter& m_real;
            SelectionOwner& m_owner;
        };
        X11PasteboardDesk desk;
        SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(1));
        OvertakenWriter writer(desk.writer(), owner);
        X11Pasteboard pasteboard(desk.connection(), desk.loop(), writer);

        pasteboard.writeText("own text");
        EXPECT_EQ(pasteboard.changeCount(), 1);

        EXPECT_TRUE(waitUntil([&] { return pasteboard.changeCount() == 2; }));
    }

    TEST(X11PasteboardCountTest, WhenWeStartTheCountIsNotRaisedByWhatIsThere)
    {
        X11PasteboardDesk desk;
        const SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(1));

        X11Connection connection(desk.loop());
        const X11Pasteboard pasteboard(connection, desk.loop(), desk.writer());
        desk.settle();

        EXPECT_EQ(pasteboard.changeCount(), 0);
    }

} // namespace
} // namespace korvane
