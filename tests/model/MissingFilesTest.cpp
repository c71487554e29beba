#include "model/MissingFiles.h"

#include "support/PollLoop.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <future>
#include <string>

namespace korvane {
namespace {

    using test::PollLoop;
    using test::TempFolder;

    struct FilesFixture {
        std::string file(const std::string& name) const { return (folder.path() / name).string(); }
        void make(const std::string& name) const { std::ofstream(folder.path() / name) << "bytes"; }

        TempFolder folder;
        PollLoop loop;
        MissingFiles files { loop };
        int told = 0;
        Connection changed = files.changed.connect([this] { ++told; });
    };

    TEST(MissingFilesTest, AFileThatIsGoneIsMissingOnceThatIsKnown)
    {
        FilesFixture f;
        f.make("there");
        EXPECT_FALSE(f.files.isMissing(f.file("there")));
        EXPECT_FALSE(f.files.isMissing(f.file("gone")));

        EXPECT_TRUE(f.loop.runUntil([&] { return f.files.isMissing(f.file("gone")); }));
        EXPECT_FALSE(f.files.isMissing(f.file("there")));
        EXPECT_EQ(f.told, 1);
    }

    TEST(MissingFilesTest, AFolderIsThereAndAPathThroughAFileIsNot)
    {
        FilesFixture f;
        f.make("file");
        f.files.isMissing(f.folder.path());
        f.files.isMissing(f.file("file") + "/below");

        EXPECT_TRUE(f.loop.runUntil([&] { return f.files.isMissing(f.file("file") + "/below"); }));
        EXPECT_FALSE(f.files.isMissing(f.folder.path()));
    }

    TEST(MissingFilesTest, AFileThatHasComeBackIsThereWhenItIsAskedForAgain)
    {
        FilesFixture f;
        f.files.isMissing(f.file("file"));
        ASSERT_TRUE(f.loop.runUntil([&] { return f.files.isMissing(f.file("file")); }));

        f.make("file");
        f.files.askAgain();
        EXPECT_TRUE(f.files.isMissing(f.file("file"))); // the last answer, until there is a new one

        EXPECT_TRUE(f.loop.runUntil([&] { return !f.files.isMissing(f.file("file")); }));
        EXPECT_EQ(f.told, 2);
    }

    TEST(MissingFilesTest, ADiskThatDoesNotAnswerHoldsUpNobody)
    {
        std::promise<void> answers;
        auto answered = answers.get_future().share();
        PollLoop loop;
        {
            MissingFiles files(loop, [answered](const std::string& path) {
                answered.wait();
                return path == "/gone";
            });
            EXPECT_FALSE(files.isMissing("/gone"));
            EXPECT_FALSE(files.isMissing("/other"));
            answers.set_value();
            EXPECT_TRUE(loop.runUntil([&] { return files.isMissing("/gone"); }));
            EXPECT_FALSE(files.isMissing("/other"));
        }
    }

    TEST(MissingFilesTest, AnAnswerThatComesAfterTheEndIsNobodys)
    {
        std::promise<void> answers;
        std::promise<void> asked;
        auto answered = answers.get_future().share();
        auto end = std::make_shared<std::promise<void>>();
        auto over = end->get_future();
        PollLoop loop;
        {
            // Whatever the probe holds goes with the thread.
            const std::shared_ptr<void> last(nullptr, [end](void*) { end->set_value(); });
            MissingFiles files(loop, [&asked, answered, last](const std::string&) {
                asked.set_value();
                answered.wait();
                return true;
            });
            files.isMissing("/gone");
            files.isMissing("/other");
            asked.get_future().wait();
        }
        answers.set_value();

        EXPECT_EQ(over.wait_for(std::chrono::seconds { 20 }), std::future_status::ready);
    }

} // namespace
} // namespace korvane
