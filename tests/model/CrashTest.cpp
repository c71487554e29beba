#include "model/ClipStore.h"

#include "support/StoreFixture.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace korvane {
namespace {

    using test::StoreFixture;
    using Clock = std::chrono::steady_clock;
    using Step = std::function<void(StoreFixture&)>;
    /// The whole text of every clip, the newest first. Of a clip whose file is missing or cut short
    /// this is another text.
    using History = std::vector<std::string>;

    constexpr std::size_t large = 400'000;

    /// What is there at the start, and what is done then, step by step.
    struct Script {
        Step prepare;
        std::vector<Step> steps;
    };

    History historyOf(const ClipStore& store)
    {
        History history;
        for (const auto& clip : store.clips())
            history.push_back(store.fullText(clip));
        return history;
    }

    std::string text(std::size_t number, std::size_t size)
    {
        return "clip " + std::to_string(number) + ' ' + std::string(size, 'x');
    }
    Step addClips(std::size_t count, std::size_t size)
    {
        return [count, size](StoreFixture& f) {
            f.store->setMaxClipSizeKB(100);
            for (std::size_t number = 0; number < count; ++number)
                f.add(text(number, size));
        };
    }
    /// Each step adds one clip, numbered from 100 on.
    std::vector<Step> addOneByOne(std::size_t count, std::size_t size)
    {
        std::vector<Step> steps;
        for (std::size_t number = 0; number < count; ++number)
            steps.emplace_back([=](StoreFixture& f) { f.add(text(100 + number, size)); });
        return steps;
    }

    /// Lets the script be played by a process that is killed in the middle of it, many times over.
    class Killer {
    public:
        explicit Killer(Script script)
            : m_script(std::move(script))
        {
            m_script.prepare(m_f);
            std::filesystem::copy(m_f.folder(), m_start, std::filesystem::copy_options::recursive);
            m_preferences = m_f.preferences.values;
            m_histories.push_back(historyOf(*m_f.store));
            const auto begin = Clock::now();
            for (const auto& step : m_script.steps) {
                step(m_f);
                m_histories.push_back(historyOf(*m_f.store));
            }
            m_timeOfStep = (Clock::now() - begin) / m_script.steps.size();
        }

        /// Whether the history is, after each kill, the one before or the one after the step that
        /// was under way.
        void kill(int times)
        {
            for (int count = 0; count < times; ++count) {
                startAnew();
                const auto acknowledged = playAndKill();
                noteLeftover();

                const auto found = historyOf(m_f.open());

                const auto after = std::min(acknowledged + 1, m_script.steps.size());
                ASSERT_TRUE(found == m_histories[acknowledged] || found == m_histories[after])
                    << "kill " << count << " after " << acknowledged << " steps: " << found.size()
                    << " clips";
            }
        }
        /// How many of the kills were in the middle of writing a file.
        int hitsWhileWriting() const { return m_hits; }

    private:
        void startAnew()
        {
            std::filesystem::remove_all(m_f.folder());
            std::filesystem::copy(m_start, m_f.folder(), std::filesystem::copy_options::recursive);
            m_f.preferences.values = m_preferences;
            m_f.open();
        }
        std::size_t playAndKill()
        {
            std::array<int, 2> pipe {};
            if (::pipe(pipe.data()) != 0)
                return 0;
            const auto child = ::fork();
            if (child == 0) {
                ::close(pipe[0]);
                play(pipe[1]);
            }
            ::close(pipe[1]);
            const auto acknowledged = killAmongSteps(child, pipe[0]);
            ::close(pipe[0]);
            return acknowledged;
        }
        /// Says through the pipe after each step that it is done.
        [[noreturn]] void play(int pipe)
        {
            for (const auto& step : m_script.steps) {
                step(m_f);
                if (::write(pipe, "!", 1) != 1)
                    ::_exit(1);
            }
            for (;;)
                ::pause();
        }
        /// How many steps were acknowledged.
        std::size_t killAmongSteps(pid_t child, int pipe)
        {
            std::size_t acknowledged = 0;
            char byte = 0;
            const auto before = m_random() % m_script.steps.size();
            while (acknowledged < before && ::read(pipe, &byte, 1) == 1)
                ++acknowledged;
            // Anywhere in the next step, or shortly after.
            const auto until = Clock::now() + m_timeOfStep * (m_random() % 1200) / 1000;
            while (Clock::now() < until)
                asm volatile("");
            ::kill(child, SIGKILL);
            ::waitpid(child, nullptr, 0);
            while (::read(pipe, &byte, 1) == 1)
                ++acknowledged;
            return acknowledged;
        }
        void noteLeftover()
        {
            for (const auto& folder : { m_f.folder(), m_f.store->overflowDir() }) {
                for (const auto& entry : std::filesystem::directory_iterator(folder))
                    m_hits += entry.path().filename().string().starts_with('.') ? 1 : 0;
            }
        }

        Script m_script;
        StoreFixture m_f;
        std::filesystem::path m_start = m_f.temp.path() / "at the start";
        decltype(m_f.preferences.values) m_preferences;
        std::vector<History> m_histories; ///< after each number of steps
        Clock::duration m_timeOfStep {};
        std::mt19937 m_random { 7 };
        int m_hits = 0;
    };

    TEST(CrashTest, AKillAtAnyMomentLeavesTheHistoryBeforeOrAfterTheChange)
    {
        Killer killer({ addClips(0, 0), addOneByOne(4, 20'000) });

        killer.kill(220);

        EXPECT_GT(killer.hitsWhileWriting(), 0);
    }

    TEST(CrashTest, AKillWhileALargeClipIsAddedLeavesItWholeOrNotAtAll)
    {
        Killer killer({ addClips(1, large), addOneByOne(3, large) });

        killer.kill(100);

        EXPECT_GT(killer.hitsWhileWriting(), 0);
    }

    TEST(CrashTest, AKillWhileALargeClipIsDeletedLeavesItsFileAsLongAsItsRecord)
    {
        const Step deleteNewest
            = [](StoreFixture& f) { f.store->deleteClip(ClipItem(f.store->clips().front())); };
        const Step deleteOldest
            = [](StoreFixture& f) { f.store->deleteClip(ClipItem(f.store->clips().back())); };
        Killer killer({ addClips(4, large), { deleteNewest, deleteOldest, deleteNewest } });

        killer.kill(100);

        EXPECT_GT(killer.hitsWhileWriting(), 0);
    }

    TEST(CrashTest, AKillWhileLargeClipsAreEvictedLeavesTheirFilesAsLongAsTheirRecords)
    {
        const Step fill = [](StoreFixture& f) {
            addClips(4, large)(f);
            f.store->setMaxClips(4);
        };
        auto steps = addOneByOne(2, 100);
        steps.emplace_back([](StoreFixture& f) { f.add(text(200, large)); });
        steps.emplace_back([](StoreFixture& f) { f.store->setMaxClips(2); });
        Killer killer({ fill, std::move(steps) });

        killer.kill(100);

        EXPECT_GT(killer.hitsWhileWriting(), 0);
    }

    TEST(CrashTest, AKillWhileTheUnpinnedAreClearedLeavesAllOrThePinnedAlone)
    {
        const Step fill = [](StoreFixture& f) {
            addClips(5, large)(f);
            f.store->togglePin(ClipId(f.store->clips()[1].id));
            f.store->togglePin(ClipId(f.store->clips()[3].id));
        };
        const Step clear = [](StoreFixture& f) { f.store->clearUnpinned(); };
        Killer killer({ fill, { clear } });

        killer.kill(100);

        EXPECT_GT(killer.hitsWhileWriting(), 0);
    }

} // namespace
} // namespace korvane
