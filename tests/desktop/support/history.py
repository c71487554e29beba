"""The history as it lies on the disk."""

import json
import stat
import uuid

from support.waiting import wait_for


def clip(text, kind="plainText", pinned=False, **fields):
    """A record of the history file."""
    return {"id": str(uuid.uuid4()).upper(), "text": text, "type": kind, "createdAt": "2024-05-01T12:34:56Z",
            "isPinned": pinned, "useCount": 0, "isOverflow": False, "hasEmoji": False, **fields}


class History:
    def __init__(self, folder):
        self.folder = folder
        self.path = folder / "clips.json"

    def write(self, clips):
        self.folder.mkdir(parents=True, mode=0o700, exist_ok=True)
        self.path.write_text(json.dumps(clips))

    def clips(self):
        """The records, the newest first. The file is always whole: it is replaced, never written into."""
        return json.loads(self.path.read_bytes()) if self.path.exists() else []

    def texts(self):
        return [record["text"] for record in self.clips()]

    def wait_for_texts(self, texts, seconds=1.0):
        """Waits until exactly these texts are on the disk, the newest first, and gives the records."""
        wait_for(lambda: f"the texts {texts!r} in the history; there are {self.texts()!r}",
                 lambda: self.texts() == list(texts), seconds)
        return self.clips()

    def wait_for(self, what, predicate, seconds=1.0):
        """Waits until a statement about the records is true."""
        wait_for(lambda: f"{what}; the history is {str(self.clips())[:400]}", lambda: predicate(self.clips()), seconds)

    def holds_anywhere(self, text):
        """Whether any file of the data folder holds these bytes."""
        return any(text.encode() in path.read_bytes() for path in self.folder.rglob("*") if path.is_file())

    def modes(self):
        """The permissions of everything in the data folder, itself included, by name."""
        return {path.relative_to(self.folder.parent).as_posix(): stat.S_IMODE(path.stat().st_mode)
                for path in (self.folder, *self.folder.rglob("*"))}
