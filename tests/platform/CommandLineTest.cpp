#include "platform/CommandLine.h"

#include <gtest/gtest.h>

#include <vector>

namespace korvane {
namespace {

    using Request = CommandLine::Request;

    CommandLine parse(const std::vector<std::string_view>& arguments)
    {
        return parseCommandLine(arguments);
    }

    TEST(CommandLineTest, WithoutAnOptionItStartsOrShowsThePanelOfTheOneThatRuns)
    {
        const auto line = parse({});

        EXPECT_EQ(line.request, Request::start);
        EXPECT_EQ(line.wish, Wish::show);
        EXPECT_TRUE(line.startsProgram());
        EXPECT_FALSE(line.opensPanel());
    }

    TEST(CommandLineTest, ShowAndToggleStartAndOpenThePanel)
    {
        for (const auto& [option, wish] :
            { std::pair("--show", Wish::show), std::pair("--toggle", Wish::toggle) }) {
            const auto line = parse({ option });

            EXPECT_EQ(line.request, Request::wish) << option;
            EXPECT_EQ(line.wish, wish) << option;
            EXPECT_TRUE(line.startsProgram()) << option;
            EXPECT_TRUE(line.opensPanel()) << option;
        }
    }

    TEST(CommandLineTest, HideAndQuitStartNothing)
    {
        for (const auto& [option, wish] :
            { std::pair("--hide", Wish::hide), std::pair("--quit", Wish::quit) }) {
            const auto line = parse({ option });

            EXPECT_EQ(line.request, Request::wish) << option;
            EXPECT_EQ(line.wish, wish) << option;
            EXPECT_FALSE(line.startsProgram()) << option;
            EXPECT_FALSE(line.opensPanel()) << option;
        }
    }

    TEST(CommandLineTest, PlatformAsksWhatTheDesktopGives)
    {
        EXPECT_EQ(parse({ "--platform" }).request, Request::platform);
        EXPECT_EQ(parse({ "--platform", "--show" }).request, Request::misuse);
    }

    TEST(CommandLineTest, VersionIsTheProductAndItsNumber)
    {
        const auto line = parse({ "--version" });

        EXPECT_EQ(line.request, Request::version);
        EXPECT_EQ(line.text, "Korvane " KORVANE_VERSION);
    }

    TEST(CommandLineTest, HelpNamesEveryOption)
    {
        const auto line = parse({ "--help" });

        EXPECT_EQ(line.request, Request::help);
        for (const auto* option :
            { "--show", "--toggle", "--hide", "--quit", "--platform", "--version", "--help" })
            EXPECT_NE(line.text.find(option), std::string::npos) << option;
    }

    TEST(CommandLineTest, AnUnknownArgumentIsMisuseAndIsNamedInOneLine)
    {
        for (const auto* argument : { "--shw", "show", "-q", "--", "", "--SHOW", "--show=1" }) {
            const auto line = parse({ argument });

            EXPECT_EQ(line.request, Request::misuse) << argument;
            EXPECT_NE(line.text.find('"' + std::string(argument) + '"'), std::string::npos);
            EXPECT_EQ(line.text.find('\n'), std::string::npos) << argument;
        }
    }

    TEST(CommandLineTest, TwoOptionsAreMisuse)
    {
        EXPECT_EQ(parse({ "--show", "--quit" }).request, Request::misuse);
        EXPECT_EQ(parse({ "--platform", "--version", "--help" }).request, Request::misuse);
    }

    TEST(CommandLineTest, TheWordOfEveryWishLeadsBackToIt)
    {
        for (const auto wish : { Wish::show, Wish::toggle, Wish::hide, Wish::quit })
            EXPECT_EQ(wishFor(wordFor(wish)), wish);
        EXPECT_EQ(wishFor("sho"), std::nullopt);
    }

} // namespace
} // namespace korvane
