#include "platform/x11/PasteboardDesk.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::PasteboardDesk;
    using test::SelectionOwner;
    using test::textOwner;
    using test::waitUntil;

    TEST(X11PasteboardCountTest, ACopyInAnotherProgramCountsAndIsTold)
    {
        PasteboardDesk desk;

        const SelectionOwner owner(textOwner("alpha"));

        EXPECT_TRUE(owner.isReady());
        EXPECT_TRUE(desk.hasCounted(1));
        EXPECT_EQ(desk.changes, 1);
        EXPECT_EQ(desk.vanished, 0);
    }

    TEST(X11PasteboardCountTest, FiftyCopiesInOneProgramTwentyMillisecondsApartGiveFiftyTexts)
    {
        PasteboardDesk desk;
        SelectionOwner owner(textOwner("text 0"));
        std::vector<std::string> texts;
        const auto onChange = desk.pasteboard->changed.connect([&] {
            desk.pasteboard->read([&](auto contents) {
                texts.push_back(contents && contents->text ? *contents->text : "(none)");
            });
        });
        int copies = 0;
        int lateReadings = 0;

        // The next copy waits for a reading that is late: the machine may be so busy with others
        // that three processes do not get their turn in time. That must stay the exception.
        const auto timer = desk.loop.every(20ms, [&] {
            if (texts.size() <= static_cast<std::size_t>(copies))
                ++lateReadings;
            else if (copies < 50)
                owner.copyAgain("text " + std::to_string(++copies));
        });
        const auto hasAll = waitUntil([&] { return texts.size() >= 51; });

        EXPECT_TRUE(hasAll);
        EXPECT_LT(lateReadings, 25);
        EXPECT_EQ(desk.pasteboard->changeCount(), 51);
        EXPECT_EQ(desk.changes, 51);
        for (std::size_t i = 0; i < texts.size(); ++i)
            EXPECT_EQ(texts[i], "text " + std::to_string(i));
    }

    TEST(X11PasteboardCountTest, CopiesFasterThanAnyoneCanReadAreAllCountedAndTheLastIsRead)
    {
        PasteboardDesk desk;
        SelectionOwner owner(textOwner("text 0"));
        const auto onChange = desk.pasteboard->changed.connect([&] { desk.beginReading(); });

        for (int copy = 1; copy <= 50; ++copy) // without a turn of the loop
            owner.copyAgain("text " + std::to_string(copy));

        EXPECT_TRUE(waitUntil([&] { return desk.answers.size() == 51; }));
        EXPECT_EQ(desk.pasteboard->changeCount(), 51);
        ASSERT_TRUE(desk.answers.back().has_value());
        EXPECT_EQ(desk.answers.back()->text, "text 50");
    }

    TEST(X11PasteboardCountTest, AnOwnerThatClearsTheClipboardHasNotVanished)
    {
        PasteboardDesk desk;
        SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(1));

        owner.clear();

        EXPECT_TRUE(desk.hasCounted(2));
        EXPECT_EQ(desk.changes, 2);
        EXPECT_EQ(desk.vanished, 0);
        EXPECT_FALSE(desk.read().has_value());
    }

    TEST(X11PasteboardCountTest, AnOwnerThatEndsHasVanished)
    {
        PasteboardDesk desk;
        SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(1));

        owner.die();

        EXPECT_TRUE(desk.hasCounted(2));
        EXPECT_EQ(desk.changes, 2);
        EXPECT_EQ(desk.vanished, 1);
        EXPECT_FALSE(desk.read().has_value());
    }

    TEST(X11PasteboardCountTest,
        ATextPutBackWhenItsOwnerVanishesIsThereBeforeAnyoneIsToldOfTheChange)
    {
        PasteboardDesk desk;
        SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(1));
        std::int64_t countWhenTold = 0;
        const auto onVanish
            = desk.pasteboard->ownerVanished.connect([&] { desk.pasteboard->writeText("alpha"); });
        const auto onChange = desk.pasteboard->changed.connect(
            [&] { countWhenTold = desk.pasteboard->changeCount(); });

        owner.die();

        EXPECT_TRUE(desk.hasCounted(3));
        EXPECT_EQ(countWhenTold, 3);
        EXPECT_EQ(desk.readText(), "alpha");
    }

    TEST(X11PasteboardCountTest, AnOwnWriteHasCountedOnceWhenItReturnsAndIsNotTold)
    {
        PasteboardDesk desk;

        for (int write = 1; write <= 20; ++write) {
            desk.pasteboard->writeText("own text");
            EXPECT_EQ(desk.pasteboard->changeCount(), write);
        }

        desk.settle();
        EXPECT_EQ(desk.changes, 0);
        EXPECT_EQ(desk.pasteboard->changeCount(), 20);
    }

    TEST(X11PasteboardCountTest, AnotherProgramsCopyJustBeforeAnOwnWriteIsCountedAndToldLater)
    {
        PasteboardDesk desk;

        const SelectionOwner owner(textOwner("alpha")); // no turn of the loop between the two
        desk.pasteboard->writeText("own text");

        EXPECT_EQ(desk.pasteboard->changeCount(), 2);
        EXPECT_EQ(desk.changes, 0);
        desk.settle();
        EXPECT_EQ(desk.changes, 1);
        EXPECT_EQ(desk.pasteboard->changeCount(), 2);
        EXPECT_EQ(desk.readText(), "own text");
    }

    TEST(X11PasteboardCountTest, AnotherProgramsCopyRightAfterAnOwnWriteIsCountedAndTold)
    {
        PasteboardDesk desk;
        SelectionOwner owner(textOwner("alpha"));

        desk.pasteboard->writeText("own text");
        owner.copyAgain("beta");

        EXPECT_TRUE(desk.hasCounted(3));
        EXPECT_EQ(desk.readText(), "beta");
        EXPECT_EQ(desk.changes, 2);
    }

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
        PasteboardDesk desk;
        SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(1));
        OvertakenWriter writer(desk.writer, owner);
        X11Pasteboard pasteboard(desk.connection, desk.loop, writer);

        pasteboard.writeText("own text");
        EXPECT_EQ(pasteboard.changeCount(), 1);

        EXPECT_TRUE(waitUntil([&] { return pasteboard.changeCount() == 2; }));
    }

    TEST(X11PasteboardCountTest, WhenWeStartTheCountIsNotRaisedByWhatIsThere)
    {
        PasteboardDesk desk;
        const SelectionOwner owner(textOwner("alpha"));
        EXPECT_TRUE(desk.hasCounted(1));

        X11Connection connection(desk.loop);
        const X11Pasteboard pasteboard(connection, desk.loop, desk.writer);
        desk.settle();

        EXPECT_EQ(pasteboard.changeCount(), 0);
    }

    TEST(X11PasteboardCountTest, ThePrimarySelectionIsNoCopy)
    {
        PasteboardDesk desk;

        QGuiApplication::clipboard()->setText(QStringLiteral("marked"), QClipboard::Selection);

        desk.settle();
        EXPECT_EQ(desk.pasteboard->changeCount(), 0);
    }

} // namespace
} // namespace korvane
