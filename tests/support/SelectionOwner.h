#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace korvane::test {

/// How an owner hands out one type of its contents.
enum class Delivery {
    whole,         ///< All at once, however large.
    refused,       ///< Offered, and then not given.
    never,         ///< Asked for it, it does not answer at all.
    inPieces,      ///< In pieces (on X11 by INCR).
    stopsMidway,   ///< In pieces, and falls silent after the first half.
    endless,       ///< In pieces, without an end.
    announcedOnly, ///< It says that it has delivered, and has not.
};

/// One type of the contents of a clipboard owner.
struct Offer {
    std::string target;
    std::string bytes {};
    Delivery delivery = Delivery::whole;
    /// Of pieces: the sizes of the pieces, one after the other and then again from the first.
    std::vector<std::size_t> pieces { 65'536 };
    /// Of INCR: the lower bound that it tells, truly or not.
    std::uint32_t announced = 0;
    /// Of pieces: how long the owner, a slow program, dawdles before each piece.
    std::chrono::milliseconds pause { 0 };
};

/// What an owner offers, and what it does when it is asked for the list of its types.
struct OwnerScript {
    std::vector<Offer> offers;
    Delivery targets = Delivery::whole; ///< X11 alone: elsewhere nobody asks for the list.
    /// Has a window on the screen, as programs that a user works in do, with this class or application
    /// identifier; empty: none. (On X11 the scripted owner never has one.)
    std::string window {};
};

/// The part of a `SelectionOwner` that runs in the other process, of the desktop that the test program is
/// for. Commands come in as a letter, a size and so many bytes; what it is asked for goes out as lines, and
/// "done" for each command. Serves until the other side closes the commands; the exit status.
int runScriptedOwner(const OwnerScript& script, int commands, int reports);

/// Another program that owns the clipboard: a process of its own, with its own connection to the desktop,
/// that does exactly what the script says. It ends with this object.
class SelectionOwner {
public:
    /// Owns the selection when this returns.
    explicit SelectionOwner(const OwnerScript& script);
    SelectionOwner(const SelectionOwner&) = delete;
    SelectionOwner& operator=(const SelectionOwner&) = delete;
    ~SelectionOwner();

    /// False when the process could not be made or has no X server.
    bool isReady() const { return m_isReady; }
    /// Takes the selection again, as a program does with the next copy that is made in it. The text
    /// of every offer of the type UTF8_STRING is replaced.
    void copyAgain(const std::string& text);
    /// Gives the selection up, as a password manager does after a while.
    void clear();
    /// Ends at once; the server then drops the selection.
    void die();
    /// Stops as a program in a debugger does, and goes on.
    void freeze();
    void thaw();
    /// The types that it was asked for so far, in order.
    std::vector<std::string> requests();

private:
    void command(char letter, const std::string& text = {});
    /// Reads what the process has reported; waits for an acknowledgement if `mustWait`.
    bool readReports(bool mustWait);

    pid_t m_process = -1;
    int m_commands = -1;
    int m_reports = -1;
    bool m_isReady = false;
    std::string m_unread;
    std::vector<std::string> m_requests;
};

} // namespace korvane::test
