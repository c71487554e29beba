"""A sound server of the test's own, with a loudspeaker that plays into nothing and a microphone in front of it."""

import array
import os
import pathlib
import queue
import subprocess
import threading
import wave

from support.programs import Program
from support.waiting import wait_for

SOUNDS = pathlib.Path(__file__).resolve().parents[3] / "resources/sounds"
RATE = 44100
AUDIBLE = 1000
SILENCE = RATE // 10  # samples, longer than the pauses within a sound
# The microphone has sent off as silence already what the loudspeaker begins with.
LOST_AT_THE_BEGINNING = RATE // 20


class Loudspeaker:
    def __init__(self, desk):
        folder = desk.folder / "sound"
        folder.mkdir(mode=0o700)
        socket = folder / "native"
        # What a program needs to play here.
        self.environment = {"PULSE_SERVER": f"unix:{socket}", "PULSE_RUNTIME_PATH": str(folder),
                            "PULSE_COOKIE": str(folder / "cookie"), "CANBERRA_DRIVER": "pulse"}
        own = {**self.environment, "HOME": str(folder), "XDG_CONFIG_HOME": str(folder)}
        Program(desk, ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "-L", "module-null-sink sink_name=test",
                       "-L", f"module-native-protocol-unix socket={socket}"], **own)
        wait_for("the sound server is there", socket.exists)
        self.microphone = subprocess.Popen(
            ["parec", "--device=test.monitor", "--raw", "--format=s16le", "--channels=1", f"--rate={RATE}",
             "--latency-msec=20"], stdout=subprocess.PIPE, env={**os.environ, **own})
        desk.programs.append(self)
        # All that is heard is kept, also what nobody asks for at that time: a full pipe would lose some.
        self.recorded = queue.SimpleQueue()
        self.recorder = threading.Thread(target=self.record)
        self.recorder.start()
        self.half = b""
        wait_for("the microphone hears", self.listen)

    def end(self):
        self.microphone.kill()
        self.microphone.wait()
        self.recorder.join()
        self.microphone.stdout.close()

    def record(self):
        while heard := os.read(self.microphone.stdout.fileno(), 1 << 16):
            self.recorded.put(heard)

    def listen(self):
        """The samples that were recorded since the last time, as far as there are any now."""
        heard = self.half
        while not self.recorded.empty():
            heard += self.recorded.get()
        whole = len(heard) // 2 * 2
        self.half = heard[whole:]
        return array.array("h", heard[:whole])

    def next_sound(self):
        """The name of the sound that is heard next, after the last one that was asked for, until the silence
        after it."""
        samples = array.array("h")
        is_heard = False

        def is_over():
            nonlocal is_heard
            new = self.listen()
            samples.extend(new)
            is_heard = is_heard or any(abs(sample) > AUDIBLE for sample in new)
            return is_heard and not any(samples[-SILENCE:])

        wait_for("a sound is heard", is_over)
        played = without_silence(samples)
        names = [path.stem for path in sorted(SOUNDS.glob("*.wav")) if is_end_of(played, without_silence(samples_of(path)))]
        return names[0] if len(names) == 1 else f"{len(played)} samples that are the end of {names}"


def samples_of(path):
    with wave.open(str(path)) as file:
        return array.array("h", file.readframes(file.getnframes()))


def without_silence(samples):
    audible = [at for at, sample in enumerate(samples) if sample]
    return samples[audible[0]:audible[-1] + 1] if audible else samples[:0]


def is_end_of(played, sound):
    """Whether what was played is the sound, but for its beginning and for what is rounded on the way."""
    return (len(sound) - LOST_AT_THE_BEGINNING <= len(played) <= len(sound)
            and all(abs(one - other) <= 2 for one, other in zip(reversed(played), reversed(sound))))
