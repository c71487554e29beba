#pragma once

#include "capture/Pasteboard.h"
#include "model/MainLoop.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// A pasteboard in memory, with the other programs' side of it as well.
class FakePasteboard : public Pasteboard {
public:
    explicit FakePasteboard(MainLoop& loop)
        : m_loop(loop)
    {
    }

    std::int64_t changeCount() const override { return m_changeCount; }

    void synchronise() override { m_changeCount += std::exchange(changesUnderWay, 0); }
    void read(Answer answer, ListTest isEnough = {}) override
    {
        ++reads;
        if (onRead)
            onRead(isEnough);
        m_readsUnderWay.push_back({ m_changeCount, std::move(answer), std::move(isEnough) });
        if (!holdsAnswers)
            m_loop.post([this] { answerOldest(); });
    }
    void abandonReads() override
    {
        hasAbandonedReads = true;
        for (auto& read : m_readsUnderWay)
            read.changeCount = -1; // whenever it is answered, with nothing
    }

    void writeText(std::string_view text) override
    {
        written.emplace_back(text);
        m_contents
            = Contents { .isSecret = false, .uriList = std::nullopt, .text = std::string(text) };
        ++m_changeCount;
    }

    /// Another program copies.
    void copy(Contents contents)
    {
        m_contents = std::move(contents);
        count();
    }
    void copyText(std::string text)
    {
        copy({ .isSecret = false, .uriList = std::nullopt, .text = std::move(text) });
    }
    void copyFiles(std::string uriList)
    {
        copy({ .isSecret = false, .uriList = std::move(uriList), .text = std::nullopt });
    }
    /// The program that owns the contents ends.
    void ownerEnds()
    {
        m_contents.reset();
        count();
        ownerVanished();
    }

    /// Answers the oldest read that is under way, by what is there now: nothing when the contents
    /// have changed since it began.
    void answerOldest() { answerAt(0); }
    /// Answers another one first.
    void answerAt(std::size_t index)
    {
        const auto place = m_readsUnderWay.begin() + static_cast<std::ptrdiff_t>(index);
        const auto read = std::move(*place);
        m_readsUnderWay.erase(place);
        auto contents = read.changeCount == m_changeCount ? m_contents : std::nullopt;
        // A real one does not fetch it then.
        if (contents && contents->uriList && read.isEnough && read.isEnough(*contents->uriList))
            contents->text.reset();
        read.answer(std::move(contents));
    }
    /// Answers a read by contents that it had fetched before they changed.
    void answerAt(std::size_t index, std::optional<Contents> contents)
    {
        const auto place = m_readsUnderWay.begin() + static_cast<std::ptrdiff_t>(index);
        const auto read = std::move(*place);
        m_readsUnderWay.erase(place);
        read.answer(std::move(contents));
    }
    std::size_t readsUnderWay() const { return m_readsUnderWay.size(); }
    const std::optional<Contents>& contents() const { return m_contents; }

    /// Changes of which nobody has been told yet.
    std::int64_t changesUnderWay = 0;
    /// Reads stay unanswered until the test answers them.
    bool holdsAnswers = false;
    /// False: nobody is told of a change, so that only a look at the count finds it.
    bool tellsOfChanges = true;
    int reads = 0;
    /// Sees what each read asks for.
    std::function<void(const ListTest&)> onRead;
    bool hasAbandonedReads = false;
    std::vector<std::string> written;

private:
    struct ReadUnderWay {
        std::int64_t changeCount;
        Answer answer;
        ListTest isEnough;
    };

    void count()
    {
        ++m_changeCount;
        if (tellsOfChanges)
            changed();
    }

    MainLoop& m_loop;
    std::int64_t m_changeCount = 100;
    std::optional<Contents> m_contents;
    std::deque<ReadUnderWay> m_readsUnderWay;
};

} // namespace korvane::test
