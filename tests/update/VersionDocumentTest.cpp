#include "update/VersionDocument.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

    TEST(VersionDocumentTest, ItsThreeTextsAreRead)
    {
        const auto document = parseVersionDocument(
            R"({"version": "1.3", "url": "https://korvane.example/get", "notes": "Faster.\n\u00e9"})");

        ASSERT_TRUE(document);
        EXPECT_EQ(document->version, "1.3");
        EXPECT_EQ(document->url, "https://korvane.example/get");
        EXPECT_EQ(document->notes, "Faster.\né");
    }

    TEST(VersionDocumentTest, ItMayHaveNoNotes)
    {
        const auto document
            = parseVersionDocument(R"({"version":"1.3","url":"https://a.example"})");

        ASSERT_TRUE(document);
        EXPECT_EQ(document->notes, "");
    }

    TEST(VersionDocumentTest, MembersOfLaterTimesArePassedOver)
    {
        const auto document = parseVersionDocument(
            R"({"size": 1.5e3, "mirrors": [{"version": "9"}], "version": "1.3", "url": "", "x": null})");

        ASSERT_TRUE(document);
        EXPECT_EQ(document->version, "1.3");
    }

    TEST(VersionDocumentTest, OfAMemberThatOccursTwiceTheLastCounts)
    {
        const auto document
            = parseVersionDocument(R"({"version":"1.3","url":"a","version":"1.4"})");

        ASSERT_TRUE(document);
        EXPECT_EQ(document->version, "1.4");
    }

    void expectNone(const std::string& json)
    {
        EXPECT_FALSE(parseVersionDocument(json)) << json;
    }

    TEST(VersionDocumentTest, WhatIsNoJsonIsNone)
    {
        expectNone("");
        expectNone("<!DOCTYPE html><html><body>Welcome to the hotel</body></html>");
        expectNone(R"({"version":"1.3","url":"a")");
        expectNone(R"({"version":"1.3","url":"a",})");
        expectNone(R"({"version":"1.3","url":"a"} more)");
        expectNone(R"({"version":"1.3","url":"a","x":tru})");
        expectNone(R"({'version':'1.3','url':'a'})");
        expectNone("{\"version\":\"1.3\",\"url\":\"\xff\"}");
    }

    TEST(VersionDocumentTest, WhatIsNoObjectIsNone)
    {
        expectNone("null");
        expectNone(R"("1.3")");
        expectNone("1.3");
        expectNone(R"([{"version":"1.3","url":"a"}])");
    }

    TEST(VersionDocumentTest, WithoutAVersionItIsNone)
    {
        expectNone("{}");
        expectNone(R"({"url":"a","notes":"b"})");
        expectNone(R"({"Version":"1.3","url":"a"})");
        expectNone(R"({"latest":{"version":"1.3"},"url":"a"})");
    }

    TEST(VersionDocumentTest, AVersionThatIsNoTextIsNone)
    {
        expectNone(R"({"version":1.3,"url":"a"})");
        expectNone(R"({"version":null,"url":"a"})");
        expectNone(R"({"version":["1.3"],"url":"a"})");
    }

    TEST(VersionDocumentTest, WithoutAnAddressItTellsOfTheVersion)
    {
        for (const std::string rest :
            { "", R"(,"url":null)", R"(,"url":false)", R"(,"url":["https://a.example"])" }) {
            const auto document = parseVersionDocument(R"({"version":"1.3")" + rest + "}");

            ASSERT_TRUE(document) << rest;
            EXPECT_EQ(document->version, "1.3");
            EXPECT_EQ(document->url, "") << rest;
        }
    }

    TEST(VersionDocumentTest, NotesThatAreNoTextAreNone)
    {
        for (const std::string notes : { "null", "7", R"(["Faster."])" }) {
            const auto document
                = parseVersionDocument(R"({"version":"1.3","url":"a","notes":)" + notes + "}");

            ASSERT_TRUE(document) << notes;
            EXPECT_EQ(document->url, "a");
            EXPECT_EQ(document->notes, "") << notes;
        }
    }

    TEST(VersionDocumentTest, AVersionThatNoWindowHasRoomForIsNone)
    {
        const auto document = [](std::size_t length) {
            return R"({"url":"a","version":")" + std::string(length, '1') + R"("})";
        };

        EXPECT_TRUE(parseVersionDocument(document(64)));
        expectNone(document(65));
    }

} // namespace
} // namespace korvane
