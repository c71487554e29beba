#include "model/ClipStore.h"

#include "support/StoreFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using Texts = std::vector<std::string>;

    struct FilterFixture : test::StoreFixture {
        void addFrom(std::string text, std::string application)
        {
            auto clip = test::newClip(std::move(text));
            clip.sourceApp = std::move(application);
            store->add(std::move(clip));
        }
        void choose(FilterTab tab) { store->panel().panelFilterTab.set(tab); }
    };

    TEST(ClipStoreFilterTest, AnEmptyHistoryShowsNothingInEveryTab)
    {
        FilterFixture f;

        for (const auto tab : allFilterTabs) {
            f.choose(tab);
            EXPECT_EQ(f.shown(), Texts {});
        }
    }

    TEST(ClipStoreFilterTest, TheTextTabLeavesAddressesOut)
    {
        FilterFixture f;
        f.add("https://korvane.example", ClipType::url);
        f.add("words");

        f.choose(FilterTab::text);

        EXPECT_EQ(f.shown(), (Texts { "words" }));
    }

    TEST(ClipStoreFilterTest, TheEmojiTabAndASearchBothHold)
    {
        FilterFixture f;
        f.add("👍 x");
        f.add("👍 y");
        f.add("x alone");
        f.addFrom("👍 z", "Xterm");

        f.choose(FilterTab::emoji);
        f.search("x");

        EXPECT_EQ(f.shown(), (Texts { "👍 z", "👍 x" }));
    }

    TEST(ClipStoreFilterTest, TheSourceApplicationIsSearchedWithoutLetterCase)
    {
        FilterFixture f;
        f.addFrom("one", "Mail");
        f.addFrom("two", "Editor");

        f.search("MAIL");

        EXPECT_EQ(f.shown(), (Texts { "one" }));
    }

    TEST(ClipStoreFilterTest, AccentsCount)
    {
        FilterFixture f;
        f.add("caf\u00e9");
        f.add("cafe\u0301 again");
        f.add("cafe");

        f.search("cafe");
        EXPECT_EQ(f.shown(), (Texts { "cafe" }));
        f.search("CAFE\u0301");
        EXPECT_EQ(f.shown().size(), 2U);
    }

    TEST(ClipStoreFilterTest, TheOwnNameIsSearchedAndFollowsARename)
    {
        FilterFixture f;
        const auto id = f.add("numbers");
        f.store->rename(id, "Invoice");
        f.search("invoice");
        EXPECT_EQ(f.shown(), (Texts { "numbers" }));

        f.store->rename(id, "Receipt");

        EXPECT_EQ(f.shown(), Texts {});
    }

    TEST(ClipStoreFilterTest, AMatchNeverReachesFromOneFieldIntoTheNext)
    {
        FilterFixture f;
        f.addFrom("abc", "def");

        f.search("cd");

        EXPECT_EQ(f.shown(), Texts {});
    }

    TEST(ClipStoreFilterTest, ABlankIsARealSearch)
    {
        FilterFixture f;
        f.add("two words");
        f.add("word");

        f.search(" ");

        EXPECT_EQ(f.shown(), (Texts { "two words" }));
    }

    TEST(ClipStoreFilterTest, TheSearchTextIsTakenLiterally)
    {
        FilterFixture f;
        f.add("a.*b");
        f.add("axxb");

        f.search("A.*B");

        EXPECT_EQ(f.shown(), (Texts { "a.*b" }));
    }

    TEST(ClipStoreFilterTest, OfALargeClipOnlyThePreviewIsSearched)
    {
        FilterFixture f;
        f.add("start " + std::string(70000, 'x') + " hidden");

        f.search("hidden");
        EXPECT_EQ(f.shown(), Texts {});
        f.search("start");
        EXPECT_EQ(f.shown().size(), 1U);
    }

    TEST(ClipStoreFilterTest, ALoadedHistoryIsSearchedBeforeAndAfterItsKeysAreMade)
    {
        FilterFixture f;
        for (int i = 0; i < 50; ++i)
            f.add("clip number " + std::to_string(i) + std::string(40000, ' ') + "END");
        f.open();

        f.search("number 7 ");
        EXPECT_EQ(f.shown().size(), 1U);
        f.open();
        f.loop.advance(1s);
        f.search("NUMBER 7 ");

        EXPECT_EQ(f.shown().size(), 1U);
    }

    TEST(ClipStoreFilterTest, KeysStayWithTheirClipsThroughEveryChange)
    {
        FilterFixture f;
        for (const auto* text : { "one", "two", "three", "four", "five" })
            f.add(text);
        f.open();
        f.add("six");
        f.store->deleteClip(ClipItem(f.store->clips()[2]));
        f.store->setMaxClips(4);

        for (const auto& text : f.texts()) {
            f.search(text);
            EXPECT_EQ(f.shown(), (Texts { text }));
        }
    }

    TEST(ClipStoreFilterTest, EachLetterThatIsTypedOrTakenBackShowsWhatAFreshSearchShows)
    {
        FilterFixture f;
        for (const auto* text : { "garden", "gar", "Gärten", "🌱 GARDEN", "a", "dengar" })
            f.add(text);

        for (const auto* search : { "", "g", "ga", "gar", "gard", "gar", "g\u0301", "", "den" }) {
            f.search(search);
            const auto asTyped = f.shown();
            f.choose(FilterTab::pinned);
            f.shown();
            f.choose(FilterTab::all);
            EXPECT_EQ(asTyped, f.shown()) << search;
        }
    }

    TEST(ClipStoreFilterTest, AChangeOfTheListIsSeenThoughTabAndSearchStayTheSame)
    {
        FilterFixture f;
        const auto first = f.add("first word");
        const auto other = f.add("other");
        f.search("word");
        EXPECT_EQ(f.shown(), (Texts { "first word" }));

        f.add("second word");
        EXPECT_EQ(f.shown(), (Texts { "second word", "first word" }));
        f.store->rename(other, "a word for it");
        EXPECT_EQ(f.shown(), (Texts { "second word", "other", "first word" }));
        f.choose(FilterTab::pinned);
        EXPECT_EQ(f.shown(), Texts {});
        f.store->togglePin(first);
        EXPECT_EQ(f.shown(), (Texts { "first word" }));
        f.store->deleteClip(*f.store->find(first));
        EXPECT_EQ(f.shown(), Texts {});
    }

} // namespace
} // namespace korvane
