#include "benches/History.h"

#include "model/ClipJson.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <random>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane::bench {

namespace {

    constexpr std::array<std::string_view, 24> words { "window", "harbour", "letter", "morning",
        "quiet", "river", "garden", "paper", "winter", "yellow", "answer", "bridge", "candle",
        "distant", "every", "forest", "gentle", "hollow", "island", "journey", "kitchen", "lantern",
        "meadow", "nothing" };
    constexpr std::array<std::string_view, 4> codeLines {
        "for (const auto& clip : store.clips()) {\n", "    total += bytes(clip); // \"weighed\"\n",
        "}\n", "\treturn total > limit ? evict(clip) : total;\n"
    };
    constexpr std::array<std::string_view, 4> chinese { "剪贴板里的每一段文字都会被记住",
        "今天早上的会议改到九点", "请把打印好的图纸带来", "窗外的河水很安静" };
    constexpr std::array<std::string_view, 4> emoji { "☕ ", "👍🏽 ", "👩‍💻 ", "🎉 " };

    void appendSentence(std::string& text, std::mt19937& random)
    {
        const auto length = 6 + random() % 10;
        for (std::size_t i = 0; i < length; ++i) {
            text += words[random() % words.size()];
            text += ' ';
        }
        text.back() = '.';
        text += '\n';
    }

    void cutAtCharacter(std::string& text, std::size_t bytes)
    {
        while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0U) == 0x80U)
            --bytes;
        text.resize(bytes);
    }

} // namespace

std::string mixedText(std::size_t bytes, unsigned number)
{
    std::mt19937 random(number);
    std::string text = "Clip " + std::to_string(number) + "\n";
    while (text.size() <= bytes) {
        switch (random() % 8) {
        case 0:
        case 1:
            text += codeLines[random() % codeLines.size()];
            break;
        case 2:
            text += chinese[random() % chinese.size()];
            text += "。\n";
            break;
        case 3:
            text += emoji[random() % emoji.size()];
            break;
        default:
            appendSentence(text, random);
        }
    }
    cutAtCharacter(text, bytes);
    return text;
}

std::string prose(std::size_t bytes)
{
    std::mt19937 random(1);
    std::string text;
    while (text.size() < bytes)
        appendSentence(text, random);
    text.resize(bytes);
    return text;
}

namespace {

    /// Writes a history file as the store would have, but at once: adding clip by clip would save as
    /// often as there are clips.
    std::filesystem::path filledFolder(
        const std::filesystem::path& parent, int count, std::size_t bytes)
    {
        std::vector<ClipItem> clips;
        for (int number = 0; number < count; ++number) {
            ClipItem clip;
            clip.id = ClipId::random();
            clip.text = mixedText(bytes, static_cast<unsigned>(number));
            clip.sourceApp = "Mousepad";
            clips.push_back(std::move(clip));
        }
        const auto folder = parent / "com.VNT.Korvane";
        std::filesystem::create_directories(folder);
        std::ofstream file(folder / "clips.json", std::ios::binary);
        encodeClips(clips, [&](std::string_view block) {
            file.write(block.data(), static_cast<std::streamsize>(block.size()));
        });
        return folder;
    }

} // namespace

HistoryOf::HistoryOf(int count, std::size_t bytes)
    : folder(filledFolder(temp.path(), count, bytes))
    , store(folder, preferences, loop, log)
{
    store.setMaxClips(count + 1000); // room for what a bench adds
    loop.turn();
    if (store.clips().size() != static_cast<std::size_t>(count))
        std::abort();
}

} // namespace korvane::bench
