#pragma once

#include <QPoint>

#include <memory>

namespace korvane::test {

/// The user's hands on a headless compositor: a pointer and a keyboard of our own (by wlroots' virtual
/// devices, or KWin's fake input). Made once, before the toolkit starts: a seat without devices has no
/// keyboard that a client could listen to, and the first keys of a new one would be lost.
class TestSeat {
public:
    TestSeat();
    ~TestSeat();
    TestSeat(const TestSeat&) = delete;
    TestSeat& operator=(const TestSeat&) = delete;

    /// Whether the compositor has given us devices.
    bool isReady() const;

    /// In points, from the top left corner of all outputs together.
    void moveTo(const QPoint& place);
    enum class Button { left, right };
    void press(Button button = Button::left);
    void release(Button button = Button::left);
    void clickAt(const QPoint& place, Button button = Button::left);
    /// @param key  by its place on the keyboard, as the kernel numbers it (linux/input-event-codes.h)
    void type(unsigned key);
    /// The keys of the keyboard are laid out so from now on (wlroots only).
    bool setLayout(const char* layout, const char* variant);

private:
    struct Devices;
    std::unique_ptr<Devices> m_devices;
};

/// The one that `main` has made.
TestSeat& seat();

} // namespace korvane::test
