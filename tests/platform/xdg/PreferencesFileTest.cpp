#include "platform/xdg/PreferencesFile.h"

#include "support/PollLoop.h"
#include "support/RecordingLog.h"
#include "support/SmallDisk.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using test::modeOf;
    using namespace std::string_literals;

    constexpr auto cannotRead = "Korvane: preferences.json cannot be read; the defaults are used";

    std::string textOf(const fs::path& file)
    {
        std::ifstream stream(file);
        return { std::istreambuf_iterator(stream), {} };
    }

    void write(const fs::path& file, std::string_view text)
    {
        fs::create_directories(file.parent_path());
        std::ofstream stream(file, std::ios::trunc);
        stream << text;
        ASSERT_TRUE(stream.flush().good()) << file;
    }

    PreferenceValue integer(std::int64_t value)
    {
        return value;
    }

    struct PreferencesFileTest : testing::Test {
        /// The program starts, or starts again.
        PreferencesFile& start()
        {
            preferences.emplace(file, loop, log);
            connection = preferences->changed.connect([this] { ++changes; });
            return *preferences;
        }
        /// Lets the program hear of what others have done; how often it told of a change.
        int heardChanges()
        {
            loop.runReady();
            return std::exchange(changes, 0);
        }
        fs::path bad() const { return file.string() + ".bad"; }

        test::TempFolder home;
        fs::path file = home.path() / ".config" / "com.VNT.Korvane" / "preferences.json";
        test::PollLoop loop;
        test::RecordingLog log;
        int changes = 0;
        std::optional<PreferencesFile> preferences;
        Connection connection;
    };

    TEST_F(PreferencesFileTest, NothingIsMadeUntilSomethingIsSet)
    {
        const auto& fresh = start();

        EXPECT_EQ(fresh.get("theme"), std::nullopt);
        EXPECT_TRUE(fs::is_empty(home.path()));
        EXPECT_TRUE(log.lines.empty());
    }

    TEST_F(PreferencesFileTest, WhatIsSetIsInTheFileAtOnce)
    {
        start().set("theme", "dark"s);

        EXPECT_EQ(textOf(file), "{\n  \"theme\": \"dark\"\n}\n");
        EXPECT_EQ(preferences->get("theme"), PreferenceValue("dark"s));
        EXPECT_EQ(changes, 1);
    }

    TEST_F(PreferencesFileTest, EveryTypeComesBackAtTheNextStart)
    {
        start().set("switch", true);
        preferences->set("number", integer(-500));
        preferences->set("real", 2.0);
        preferences->set("text", "a\"\n😀"s);
        preferences->set("list", std::vector { "org.a"s, "org.b"s });

        const auto& again = start();

        EXPECT_EQ(again.get("switch"), PreferenceValue(true));
        EXPECT_EQ(again.get("number"), integer(-500));
        EXPECT_EQ(again.get("real"), PreferenceValue(2.0));
        EXPECT_EQ(again.get("text"), PreferenceValue("a\"\n😀"s));
        EXPECT_EQ(again.get("list"), PreferenceValue(std::vector { "org.a"s, "org.b"s }));
    }

    TEST_F(PreferencesFileTest, FolderAndFileAreForTheUserAlone)
    {
        const auto umaskBefore = ::umask(0);
        start().set("theme", "dark"s);
        ::umask(umaskBefore);

        EXPECT_EQ(modeOf(file.parent_path().parent_path()), 0700U);
        EXPECT_EQ(modeOf(file.parent_path()), 0700U);
        EXPECT_EQ(modeOf(file), 0600U);
    }

    TEST_F(PreferencesFileTest, TheFileIsReplacedAsAWholeAndNothingElseIsLeftBehind)
    {
        write(file, "{\"theme\": \"light\"}");
        const auto oldFile = home.path() / "old";
        fs::create_hard_link(file, oldFile);

        start().set("theme", "dark"s);

        EXPECT_EQ(textOf(oldFile), "{\"theme\": \"light\"}"); // never written into
        EXPECT_EQ(std::distance(fs::directory_iterator(file.parent_path()), {}), 1);
    }

    TEST_F(PreferencesFileTest, SettingTheSameAgainWritesAndTellsNothing)
    {
        write(file, "{\"theme\":\"dark\"}");

        start().set("theme", "dark"s);

        EXPECT_EQ(textOf(file), "{\"theme\":\"dark\"}");
        EXPECT_EQ(changes, 0);
    }

    TEST_F(PreferencesFileTest, AnotherTypeIsAnotherValue)
    {
        start().set("k", integer(1));
        preferences->set("k", 1.0);
        preferences->set("k", true);

        EXPECT_EQ(changes, 3);
        EXPECT_EQ(textOf(file), "{\n  \"k\": true\n}\n");
    }

    TEST_F(PreferencesFileTest, WhatIsRemovedIsAbsentAndOutOfTheFile)
    {
        write(file, R"({"maxClipSizeMB": 2, "theme": "dark"})");

        start().remove("maxClipSizeMB");

        EXPECT_EQ(preferences->get("maxClipSizeMB"), std::nullopt);
        EXPECT_EQ(textOf(file), "{\n  \"theme\": \"dark\"\n}\n");
        EXPECT_EQ(changes, 1);
        preferences->remove("maxClipSizeMB");
        EXPECT_EQ(changes, 1);
    }

    TEST_F(PreferencesFileTest, OurOwnWritesAreNoNewsWhenTheyComeBack)
    {
        start().set("theme", "dark"s);
        preferences->set("theme", "light"s);
        EXPECT_EQ(std::exchange(changes, 0), 2);

        EXPECT_EQ(heardChanges(), 0);
    }

    TEST_F(PreferencesFileTest, AnEditInPlaceTakesEffectAndIsToldOnce)
    {
        write(file, R"({"theme": "dark"})");
        start();

        write(file, R"({"theme": "light", "maxClips": 50})");

        EXPECT_EQ(heardChanges(), 1);
        EXPECT_EQ(preferences->get("theme"), PreferenceValue("light"s));
        EXPECT_EQ(preferences->get("maxClips"), integer(50));
    }

    TEST_F(PreferencesFileTest, AReplacementByAnotherProgramTakesEffectAndIsToldOnce)
    {
        write(file, R"({"theme": "dark"})");
        start();

        write(home.path() / "new", R"({"theme": "light"})");
        fs::rename(home.path() / "new", file);

        EXPECT_EQ(heardChanges(), 1);
        EXPECT_EQ(preferences->get("theme"), PreferenceValue("light"s));
    }

    TEST_F(PreferencesFileTest, ADeletedFileMeansTheDefaultsAndIsToldOnce)
    {
        write(file, R"({"theme": "dark"})");
        start();

        fs::remove(file);

        EXPECT_EQ(heardChanges(), 1);
        EXPECT_EQ(preferences->get("theme"), std::nullopt);
        EXPECT_TRUE(log.lines.empty());
    }

    TEST_F(PreferencesFileTest, AFileThatIsMadeWithItsFolderLaterTakesEffect)
    {
        start();

        write(file, R"({"theme": "dark"})");

        EXPECT_EQ(heardChanges(), 1);
        EXPECT_EQ(preferences->get("theme"), PreferenceValue("dark"s));
    }

    TEST_F(PreferencesFileTest, AFileThatIsStillBeingMadeIsNoError)
    {
        start();
        fs::create_directories(file.parent_path());

        std::ofstream stream(file);
        EXPECT_EQ(heardChanges(), 0);
        stream << R"({"theme": "dark"})";
        stream.close();

        EXPECT_EQ(heardChanges(), 1);
        EXPECT_TRUE(log.lines.empty());
    }

    TEST_F(PreferencesFileTest, AChangeOfTheLayoutAloneIsNotTold)
    {
        write(file, R"({"theme": "dark", "k": null})");
        start();

        write(file, "{\n  \"k\": {},\n  \"theme\": \"dark\"\n}\n");

        EXPECT_EQ(heardChanges(), 0);
    }

    TEST_F(PreferencesFileTest, WhatAnotherProgramHasJustWrittenIsNotUndone)
    {
        write(file, R"({"theme": "dark"})");
        start();

        write(file, R"({"theme": "light", "maxClips": 50})"); // not heard of yet
        preferences->set("maxTotalSizeMB", integer(60));

        EXPECT_EQ(textOf(file),
            "{\n  \"maxClips\": 50,\n  \"maxTotalSizeMB\": 60,\n  \"theme\": \"light\"\n}\n");
        EXPECT_EQ(changes, 1);
        EXPECT_EQ(std::exchange(changes, 0) + heardChanges(), 1);
    }

    TEST_F(PreferencesFileTest, ALinkStaysALinkAndItsTargetIsWrittenAndWatched)
    {
        const auto target = home.path() / "dotfiles" / "korvane.json";
        write(target, R"({"theme": "dark"})");
        fs::create_directories(file.parent_path());
        fs::create_symlink("../../dotfiles/korvane.json", file);

        start().set("maxClips", integer(50));
        EXPECT_TRUE(fs::is_symlink(file));
        EXPECT_EQ(textOf(target), "{\n  \"maxClips\": 50,\n  \"theme\": \"dark\"\n}\n");

        changes = 0;
        write(target, R"({"theme": "light"})");
        EXPECT_EQ(heardChanges(), 1);
        EXPECT_EQ(preferences->get("theme"), PreferenceValue("light"s));
    }

    TEST_F(PreferencesFileTest, WhatWeDoNotUnderstandStaysInTheFile)
    {
        write(file, R"({"future": {"a": [1, null]}, "mixed": [1, "a"], "nothing": null})");

        start().set("theme", "dark"s);

        EXPECT_EQ(preferences->get("future"), std::nullopt);
        EXPECT_EQ(preferences->get("mixed"), std::nullopt);
        EXPECT_EQ(preferences->get("nothing"), std::nullopt);
        EXPECT_EQ(textOf(file),
            "{\n  \"future\": {\"a\": [1, null]},\n  \"mixed\": [1, \"a\"],\n  \"nothing\": null,\n"
            "  \"theme\": \"dark\"\n}\n");
    }

    TEST_F(PreferencesFileTest, AFileThatDoesNotParseMeansTheDefaultsAndOneLogLine)
    {
        write(file, R"({"theme": "dark",})");

        const auto& defaults = start();

        EXPECT_EQ(defaults.get("theme"), std::nullopt);
        EXPECT_EQ(log.lines, std::vector { std::string(cannotRead) });
        EXPECT_FALSE(fs::exists(bad())); // nothing has been written yet
        EXPECT_EQ(textOf(file), R"({"theme": "dark",})");
    }

    TEST_F(PreferencesFileTest, AFileThatDoesNotParseIsKeptBesideBeforeAnythingIsWritten)
    {
        write(file, R"({"theme": "dark",})");

        start().set("maxClips", integer(50));
        preferences->set("maxClips", integer(60));

        EXPECT_EQ(textOf(bad()), R"({"theme": "dark",})");
        EXPECT_EQ(textOf(file), "{\n  \"maxClips\": 60\n}\n");
        EXPECT_EQ(log.lines.size(), 1U);
    }

    TEST_F(PreferencesFileTest, AFileThatIsMendedByHandTakesEffectAgain)
    {
        write(file, R"({"theme": "dark",})");
        start();

        write(file, R"({"theme": "dark"})");

        EXPECT_EQ(heardChanges(), 1);
        EXPECT_EQ(preferences->get("theme"), PreferenceValue("dark"s));
        preferences->set("maxClips", integer(50));
        EXPECT_FALSE(fs::exists(bad()));
    }

    TEST_F(PreferencesFileTest, AnEditThatBreaksTheFileIsLoggedOnceHoweverOftenItIsLookedAt)
    {
        write(file, R"({"theme": "dark"})");
        start();

        write(file, "{");
        EXPECT_EQ(heardChanges(), 1);
        fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write); // one more look
        EXPECT_EQ(heardChanges(), 0);
        EXPECT_EQ(log.lines.size(), 1U);
        write(file, "{{");
        EXPECT_EQ(heardChanges(), 0);

        EXPECT_EQ(log.lines.size(), 2U); // another edit, another line
    }

    TEST_F(PreferencesFileTest, WrongTypesAndNumbersOutOfRangeAreOnlyValues)
    {
        write(file, R"({"maxClips": "many", "theme": 7, "maxTotalSizeMB": 1e300,
            "hotkeyKeyCode": true, "ignoredBundleIDs": "org.a", "showCountInMenuBar": 1,
            "maxClipSizeKB": 99999999999999999999})");

        const auto& read = start();

        EXPECT_EQ(read.integer("maxClips"), 0);
        EXPECT_EQ(read.string("theme"), std::nullopt);
        EXPECT_EQ(read.integer("maxTotalSizeMB"), 0);
        EXPECT_EQ(read.value<std::int64_t>("hotkeyKeyCode"), std::nullopt);
        EXPECT_EQ(read.value<std::vector<std::string>>("ignoredBundleIDs"), std::nullopt);
        EXPECT_FALSE(read.boolean("showCountInMenuBar"));
        EXPECT_EQ(read.integer("maxClipSizeKB"), 0);
        EXPECT_TRUE(log.lines.empty());
    }

    TEST_F(PreferencesFileTest, AFileOfManyMegabytesIsNoPreferencesFile)
    {
        write(file, "{\"a\": \"" + std::string(5'000'000, 'x') + "\"}");

        start().set("theme", "dark"s);

        EXPECT_EQ(log.lines, std::vector { std::string(cannotRead) });
        EXPECT_EQ(fs::file_size(bad()), 5'000'009U);
        EXPECT_EQ(textOf(file), "{\n  \"theme\": \"dark\"\n}\n");
    }

    TEST_F(PreferencesFileTest, AFolderInTheFilesPlaceIsKeptBeside)
    {
        fs::create_directories(file / "inner");

        start().set("theme", "dark"s);

        EXPECT_TRUE(fs::is_directory(bad() / "inner"));
        EXPECT_EQ(textOf(file), "{\n  \"theme\": \"dark\"\n}\n");
    }

    TEST_F(PreferencesFileTest, WhereNothingCanBeWrittenTheValueLivesInMemoryAndOneLineIsLogged)
    {
        write(home.path() / ".config", "a file where the folder should be");

        start().set("theme", "dark"s);
        preferences->set("theme", "light"s);
        preferences->set("maxClips", integer(50));

        EXPECT_EQ(preferences->get("theme"), PreferenceValue("light"s));
        EXPECT_EQ(preferences->get("maxClips"), integer(50));
        EXPECT_EQ(changes, 3);
        EXPECT_EQ(log.lines,
            std::vector { "Korvane: preferences.json cannot be written: Not a directory"s });
    }

    TEST_F(PreferencesFileTest, WhatCouldNotBeWrittenIsWrittenWithTheNextPreference)
    {
        write(home.path() / ".config", "a file where the folder should be");
        start().set("theme", "dark"s);
        preferences->remove("gone");

        fs::remove(home.path() / ".config");
        preferences->set("maxClips", integer(50));

        EXPECT_EQ(textOf(file), "{\n  \"maxClips\": 50,\n  \"theme\": \"dark\"\n}\n");
    }

    TEST_F(PreferencesFileTest, AFullDiskLeavesTheOldFileAndTheValueInMemory)
    {
        EXPECT_TRUE(test::holdsInChild([this] {
            const auto isMounted = test::mountSmallDisk(home.path(), 16'384);
            write(file, R"({"theme": "dark"})");
            // Where no file system may be mounted, no file may grow: the write fails half way, too.
            if (!isMounted && !test::limitFiles(4096))
                return false;
            std::ofstream(home.path() / "filler") << std::string(65536, 'x');

            start().set("theme", std::string(8000, 'y'));

            const auto reason = isMounted ? "No space left on device"s : "File too large"s;
            return textOf(file) == R"({"theme": "dark"})"
                && preferences->get("theme") == PreferenceValue(std::string(8000, 'y'))
                && log.lines
                == std::vector { "Korvane: preferences.json cannot be written: " + reason };
        }));
    }

    TEST_F(PreferencesFileTest, AFolderThatVanishesIsMadeAgain)
    {
        start().set("theme", "dark"s);

        fs::remove_all(home.path() / ".config");
        preferences->set("maxClips", integer(50));

        EXPECT_EQ(textOf(file), "{\n  \"maxClips\": 50\n}\n");
    }

    TEST_F(PreferencesFileTest, ASlotMaySetWhatItIsToldOf)
    {
        auto& mine = start();
        connection = mine.changed.connect([&] { mine.set("answer", integer(42)); });

        mine.set("theme", "dark"s);

        EXPECT_EQ(textOf(file), "{\n  \"answer\": 42,\n  \"theme\": \"dark\"\n}\n");
    }

} // namespace
} // namespace korvane
