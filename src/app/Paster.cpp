#include "app/Paster.h"

#include "app/ClipboardNow.h"
#include "app/SoundCues.h"
#include "capture/ClipboardMonitor.h"
#include "capture/Pasteboard.h"
#include "hotkey/Keyboard.h"
#include "model/ClipStore.h"
#include "settings/Desktop.h"

#include <utility>

namespace korvane {

using namespace std::chrono_literals;

Paster::Paster(World world)
    : m_world(std::move(world))
{
}

void Paster::rememberFrontApplication()
{
    m_previousApp = m_world.workspace.frontmost();
}

void Paster::place(const ClipItem& clip)
{
    if (!clip.isOverflow)
        write(clip, clip.text);
}

void Paster::copy(const ClipItem& clip)
{
    write(clip, m_world.store.fullText(clip));
}

void Paster::choose(const ClipItem& given)
{
    const ClipItem clip = given; // noting the use may move the list under the reference
    if (chooseFile(clip))
        return;
    m_world.store.markUsed(clip.id);
    copy(clip);
    m_world.sounds.clipSelected();
    m_world.closePanel();
}

void Paster::activate(const ClipItem& given)
{
    const ClipItem clip = given;
    if (chooseFile(clip))
        return;
    m_world.store.markUsed(clip.id);
    const auto previous = std::exchange(m_previousApp, std::nullopt);
    m_world.closePanel();

    // Written here and once more by the paste: the first is absorbed by its count, the second by
    // its text. The text of an overflow clip is not kept for that, so it comes back as a new clip.
    const std::string text = m_world.store.fullText(clip);
    write(clip, text);
    m_world.sounds.clipSelected();
    if (previous)
        m_world.workspace.activate(*previous);
    pasteText(text);
    if (!clip.isOverflow)
        m_world.clipboard.holds(clip.id);
}

void Paster::reveal(const ClipItem& clip)
{
    if (clip.overflowPath)
        m_world.desktop.revealFile(*clip.overflowPath);
}

void Paster::restore(const ClipItem& clip)
{
    m_world.pasteboard.writeText(m_world.store.fullText(clip));
    m_world.monitor.absorbOwnWrite(std::nullopt);
    m_world.clipboard.holds(clip.id);
}

void Paster::write(const ClipItem& clip, const std::string& text)
{
    m_world.pasteboard.writeText(text);
    m_world.monitor.absorbOwnWrite(clip.isOverflow ? std::nullopt : std::optional(text));
    m_world.clipboard.holds(clip.id);
}

void Paster::pasteText(const std::string& text)
{
    m_world.pasteboard.writeText(text);
    ++m_pendingPastes;
    m_pastes.push_back(m_world.loop.after(250ms, [this] { simulatePaste(); }));
}

void Paster::simulatePaste()
{
    m_world.keyboard.typeChord(keycodes::v, modifiers::command);
    if (--m_pendingPastes == 0)
        m_pastes.clear();
}

bool Paster::chooseFile(const ClipItem& clip)
{
    if (clip.type != ClipType::file)
        return false;
    m_world.store.markUsed(clip.id);
    m_world.desktop.revealFile(clip.text);
    m_world.closePanel();
    return true;
}

} // namespace korvane
