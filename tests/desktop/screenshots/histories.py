"""The histories of the scenes: what somebody may have copied in the last days, the newest first. Each is
given a folder for the files that it names."""

import datetime

from support.history import clip

MINUTES = {"just now": 0, "3m": 3, "12m": 12, "26m": 26, "48m": 48, "2h": 120, "5h": 300, "1d": 24 * 60, "2d": 48 * 60}
MEBIBYTE = 1024 * 1024

CODE = """for (const auto& clip : store.clips())
    total += bytes(clip);

// Pinned clips stay, even when they alone break the limits.
while (total > limit && hasUnpinned()) {
    const auto gone = oldestUnpinned();
    total -= bytes(gone);
    overflowFiles.remove(gone);
    remove(gone);
}
save();"""

PROSE = """The café opens at nine ☕ — bring the printed plans, and the long ruler.

We begin with the east wing: the stairs first, then the two rooms above the yard. Anna has the keys until noon, so whatever needs the cellar has to be measured before lunch.

What is left over stays for Thursday."""

HEBREW = "שלום עולם, Καλημέρα κόσμε, and back again"


def copied(age, source, text, kind="plainText", **fields):
    """A record of a clip of that age, as a row tells it."""
    now = datetime.datetime.now(datetime.timezone.utc)
    date = (now - datetime.timedelta(minutes=MINUTES[age])).strftime("%Y-%m-%dT%H:%M:%SZ")
    source = {"sourceApp": source} if source else {}
    return {**clip(text, kind, **fields), "createdAt": date, **source}


def a_file(folder, name):
    path = folder / name
    path.write_bytes(b"something")
    return str(path)


def a_large(folder, size, **fields):
    """The fields of a clip whose text lies in a file of its own."""
    path = folder / f"{size}.txt"
    with open(path, "wb") as file:
        file.truncate(size)
    return {"isOverflow": True, "overflowPath": str(path), "overflowByteCount": size, **fields}


def nothing(_folder):
    return []


def typical(folder):
    log = "2026-11-21T09:14:07Z INFO request served in 12 ms, 200 OK\n"
    return [
        copied("just now", "Chromium", "https://www.unicode.org/reports/tr29/", "url"),
        copied("3m", "Kate", CODE, "code"),
        copied("12m", "Thunderbird", "12 St James's Square, London SW1Y 4JH", pinned=True, customName="Invoice address"),
        copied("48m", "Mousepad", PROSE, hasEmoji=True),
        copied("2h", "Files", a_file(folder, "Quarterly figures 2026.ods"), "file"),
        copied("5h", "Terminal", log * 40, **a_large(folder, 18 * MEBIBYTE)),
        copied("1d", "Chromium", "hello@korvane.example", "email"),
        copied("2d", "Mousepad", HEBREW),
    ]


def odd(folder):
    """Texts that are hard to show on one line."""
    return [
        copied("just now", "Mousepad", "مرحبا بالعالم (hello, 2026!) ثم العودة إلى البداية مرة أخرى"),
        copied("just now", "Kate", "Ve\u0301lo, a\u0308\u0323\u0302, Z\u0351\u036b\u0343\u0321\u0353a\u0325\u0348\u0351\u0363l\u034a\u0346\u034cg\u034e\u0325\u034do\u0335\u0349\u0353, niño"),
        copied("3m", "Chromium", "天地玄黃，宇宙洪荒。日月盈昃，辰宿列張。寒來暑往，秋收冬藏。"),
        copied("3m", "Signal", "👩‍👩‍👧‍👦 🏳️‍🌈 👍🏽 🇩🇪 ❤️ 1️⃣ 🧑🏿‍🚀 and a word", hasEmoji=True),
        copied("12m", "LibreOffice Calc", "name\tage\tcity\nAda\t36\tLondon"),
        copied("12m", "Terminal", "\x1b[1;31merror:\x1b[0m bell\x07 delete\x7f next\x85 end", "plainText"),
        copied("26m", "Terminal", "one line of a megabyte without a blank "[:39] + "0123456789abcdef" * (MEBIBYTE // 16)),
        copied("48m", "Mousepad", "  \t \n   "),
        copied("2h", "Files", a_file(folder, "two\nlines.txt"), "file"),
        copied("5h", "Files", str(folder / "This one was thrown away.pdf"), "file"),
        copied("1d", "An application with a name far too long to stand in one line with all the rest",
               "Wide marks on a row with a long title as well", pinned=True, **a_large(folder, 3 * MEBIBYTE)),
        copied("2d", None, "no application told its name"),
        copied("2d", "Chromium", "https://example.org/" + "a-very-long-path/" * 30, "url"),
    ]


def few_rtl(folder):
    return [copied("just now", "Mousepad", "\n".join([HEBREW, "العربية من اليمين إلى اليسار", "and a line from left to right"])),
            *typical(folder)[:2]]


def long_prose(folder):
    paragraph = "What nobody had expected was the rain. It came over the hills at four, and by five the yard was a pond. "
    return [copied("just now", "LibreOffice Writer", "\n\n".join([paragraph * 4] * 12)), *typical(folder)[:3]]


def many(folder):
    """More than a screen shows."""
    return [*typical(folder), *(copied("2d", "Kate", f"Line {number} of the list of parts") for number in range(1, 41))]


def numbered(count):
    """So many small clips, for what depends on their number alone."""
    def history(folder):
        return (typical(folder)[:4] + [copied("2d", "Kate", f"Note {number}") for number in range(count)])[:count]

    return history
