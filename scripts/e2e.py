#!/usr/bin/env python3
"""Plays the real program on a screen of its own with real keys and clicks, from the opening to each way out."""
import argparse
import pathlib
import struct
import subprocess
import sys
import tempfile
import time

from Xlib.error import BadMatch, XError

from e2e_desk import Desk, save_png

TIMEOUT_S = 15
END_S = 2  # within this the program must have ended
TAP_MS = 60
DOUBLE_CLICK_MS = 600  # a click that comes earlier would be half of a double click, which presses nothing

# Where the mouse clicks, in pixels of the game's picture.
COLUMN = ("START", "LOAD", "OPTIONS", "SCORES", "HELP", "EXIT")
PLACES = {name: (143, 200 + 58 * row) for row, name in enumerate(COLUMN)}
PLACES |= {f"slot{row}": (524 + 46 * row, 191 + 94 * row) for row in range(3)}
PLACES |= {f"menu{row}": (400, 104 + 64 * row) for row in range(4)}
PLACES |= {f"dialog{row}": (400, 108 + 88 * row) for row in range(3)}
PLACES |= {f"{name}{v}": (463 + 25 * v, y) for name, y in (("sound", 206), ("music", 294)) for v in range(9)}
PLACES |= {"title": (571, 100), "box": (570, 378), "sheet": (570, 300), "back": (410, 495), "on": (730, 495)}
PLACES |= {"carve": (570, 366), "answers": (480, 340), "middle": (400, 300)}

# What of a picture a name stands for: columns, bands of rows, and the milliseconds for which it must stand still, when
# it is known and when it is new: a page that slides must not be taken for one. In play only the panel stands still, and
# the uppermost rows once the shutter has gone. Around a dialog lies the level. A glance is for what soon goes away, and
# lasting is what stays for longer than the opening.
PARTS = {"page": (0, 800, [(0, 600)], 300, 600), "glance": (0, 800, [(0, 600)], 120, 120),
         "lasting": (0, 800, [(0, 600)], 1500, 1500),
         "play": (0, 800, [(0, 4), (566, 600)], 700, 700), "dialog": (234, 566, [(18, 384)], 300, 600)}

TO_START = "start; keys space; page start; "
TO_LEVEL = TO_START + "click LOAD; page load-restarted; click slot1; "

# A step: its name and commands, which are methods of Walk. `page NAME`, `play NAME` and the like wait until a part
# of the picture stands still: a new name must differ from all others, a known one must be the same to the pixel.
STEPS = [
    ("the opening ends by itself", "start; glance opening; page start"),
    # every page by keyboard
    ("the load page by key", "keys Down; page load; keys Right; page load-second; keys Return Left; page load"),
    ("the options by key", "keys Down; page options; keys Right; page options-sound8; keys Tab; page options-music;"
     "keys Left Left; page options-music1"),
    ("the box by key", "keys Tab; page options-box; keys Return; page options-ticked; keys space; page options-box"),
    ("the scores by key", "keys Down; page scores"),
    ("the help by key", "keys Down; page help-1; " + "".join(f"keys Right; page help-{n}; " for n in range(2, 13))),
    ("no sheet after the last", "keys Next; page help-12"),
    ("the help backwards", "".join(f"keys Left; page help-{n}; " for n in range(11, 0, -1))),
    ("a held arrow", "press on; page help-2-held; release on; page help-2; keys Left; page help-1"),
    ("quick exit and back", "keys a; page quick-exit; keys Right; page quick-exit-stay; keys Return; page help-1"),
    ("the exit page by key", "keys Down; page exit; keys Right; page exit-noisily; keys Left; page exit"),
    ("up to the load page", "keys Up; page help-1; keys Up; page scores; keys Up; page options-box; keys Up;"
     "page load"),
    ("quick exit, the third answer", "keys a; page quick-exit; keys Right Right; page quick-exit-dig-on;"
     "keys Return; page load; keys Up; page start"),
    # every page by mouse
    ("the options by mouse", "click LOAD; page load; click OPTIONS; page options-box; drag sound8 sound5;"
     "page options-sound5; drag music1 music6; page options-music6; click box; page options-mouse"),
    ("the help by mouse", "click SCORES; page scores; click HELP; page help-1; "
     + "".join(f"click {'sheet' if n % 2 else 'on'}; page help-{n}; " for n in range(2, 13))
     + "click back; page help-11"),
    ("the exit page by mouse", "click EXIT; page exit; click START; page start"),
    # settings stay
    ("settings on the disk", "close; ends; settings 5 6 1"),
    ("the full screen, for one start", "start; lasting full-start; fills-screen; settings 5 6 0"),
    ("its options by mouse", "click OPTIONS; page full-options; click box; page full-unticked; close; ends"),
    ("settings as they were", TO_START + "click OPTIONS; page options-again; click START; page start"),
    # play
    ("a new game through both comics", "click title; page comic-1; keys Return; page comic-2; click middle;"
     "play level-1"),
    ("a key", "hold Right 1000; play level-1-key"),
    ("the menu by key", "keys Escape; dialog menu; keys Up; dialog menu-quit; keys Escape; play level-1-key"),
    ("save by key", "click middle; dialog menu; keys Down Return; dialog save; keys Down Return; dialog menu;"
     "slot 1 0 3 0"),
    ("load by mouse", "click menu2; dialog load-menu; click dialog1; play level-1"),
    ("an empty slot", "keys Escape; dialog menu; keys Down Down Return; dialog load-menu; keys Return; dialog menu"),
    ("load by key", "keys Down Down Return; dialog load-menu; keys Down Return; play level-1"),
    ("save by mouse", "click middle; dialog menu; click menu1; dialog save-again; click dialog0; dialog menu;"
     "slot 0 0 3 0;"
     "click menu0; play level-1"),
    ("two keys on the way", "hold Right 2240; hold Up 1400; hold Right 900; hold Left 2560; hold Up 1000;"
     "play two-keys"),
    ("the third and the door", "hold Left 3000; page won; hold Return 200; play level-2"),
    # the end of a game
    ("quit, and type a name", "keys Escape; dialog menu; keys Up Return; page name-entry; keys Z E D 9;"
     "page name-typed"),
    ("rub out, and carve it by mouse", "keys Left; page name-rubbed; click carve; page scores-one"),
    ("load from the menu by mouse", "click LOAD; page load-filled; click slot1; play level-1"),
    ("a score of 0 asks for no name", "keys Escape; dialog menu; click menu3; page start"),
    ("load from the menu by key", "write-slot 2 19 1 4200; click LOAD; page load-gate; keys Right Return; play gate"),
    ("the dog takes the last life", "hold Left 2000; hold Up 3000; hold Right 5000; page caught"),
    ("half a name by key", "hold Return 200; page name-entry; keys M Return; page scores-two"),
    ("the table on the disk", "click EXIT; page exit; click answers; ends; scores M:4300:20 ZED:1150:2"),
    # the other ways out, each from a new start
    ("exit page, Enter", TO_START + "click EXIT; page exit; keys Return; ends"),
    ("exit page, its button", TO_START + "click EXIT; page exit; click EXIT; ends"),
    ("quick exit, A", TO_START + "keys a; page quick-exit; keys a; ends"),
    ("quick exit, Enter", TO_START + "keys a; page quick-exit; keys Return; ends"),
    ("close at once", "start; close; ends"),
    ("close the opening", "start; glance opening; close; ends"),
    ("close while the strips load", "start; glance opening; keys space; close; ends"),
    ("close a sliding page", TO_START + "keys Down; close; ends"),
    ("close the quick exit", TO_START + "keys a; page quick-exit; close; ends"),
    ("close a comic", TO_START + "keys Return; page comic-1; close; ends"),
    ("close a level that loads", TO_LEVEL + "close; ends"),
    ("close play", TO_LEVEL + "play level-1; close; ends"),
    ("close a dialog", TO_LEVEL + "play level-1; keys Escape; dialog menu; close; ends"),
]


class Failed(Exception):
    pass


class Walk:
    """A command of a step is a method of this class, with its words as parameters."""

    def __init__(self, desk: Desk, folder: pathlib.Path, shots: pathlib.Path):
        self.desk, self.folder, self.shots = desk, folder, shots
        self.known = {}
        self.last_click = 0

    def run(self, commands: str) -> None:
        for command in filter(None, map(str.strip, commands.split(";"))):
            verb, *words = command.split()
            try:
                getattr(self, verb.replace("-", "_"))(*words)
            except (Failed, RuntimeError, OSError, XError) as fault:
                save_png(self.shots / "e2e-failed.png", self.desk.picture(whole_screen=True))
                raise Failed(f"'{command}': {fault}; the screen is in e2e-failed.png") from fault

    # What the player does.

    def start(self) -> None:
        self.desk.start()

    def hold(self, name: str, milliseconds) -> None:
        self.desk.key(name, True)
        time.sleep(int(milliseconds) / 1000)
        self.desk.key(name, False)

    def keys(self, *names: str) -> None:
        for name in names:
            self.hold(name, TAP_MS)
            time.sleep(TAP_MS / 1000)

    def click(self, place: str) -> None:
        self.drag(place, place)

    def drag(self, start: str, end: str) -> None:
        self.press(start)
        time.sleep(TAP_MS / 1000)
        self.release(end)

    def press(self, place: str) -> None:
        time.sleep(max(0, self.last_click + DOUBLE_CLICK_MS / 1000 - time.monotonic()))
        self.desk.point(*PLACES[place])
        self.desk.button(True)

    def release(self, place: str) -> None:
        self.desk.point(*PLACES[place])
        self.desk.button(False)
        self.last_click = time.monotonic()

    def close(self) -> None:
        self.desk.close()

    def write_slot(self, slot: str, *numbers: str) -> None:
        data = struct.pack("<3i20s20s", *map(int, numbers), b"12:00:00", b"01/01/00")
        (self.folder / f"slot{slot}.sav").write_bytes(data)

    # What must come of it.

    def page(self, name: str) -> None:
        self.see("page", name)

    def glance(self, name: str) -> None:
        self.see("glance", name)

    def lasting(self, name: str) -> None:
        self.see("lasting", name)

    def fills_screen(self) -> None:
        self.expect(self.desk.picture()[:2], self.desk.picture(whole_screen=True)[:2])

    def play(self, name: str) -> None:
        self.see("play", name)

    def dialog(self, name: str) -> None:
        self.see("dialog", name)

    def see(self, part: str, name: str) -> None:
        *_, known_ms, new_ms = PARTS[part]
        seen, others = self.known.get((part, name)), list(self.known.values())
        if seen:
            self.still(part, known_ms, lambda cut: cut == seen)
            return
        picture = self.still(part, new_ms, lambda cut: cut not in others and cut.strip(cut[:4]))
        self.known[part, name] = self.cut(picture, part)
        save_png(self.shots / f"e2e-{len(self.known):02}-{name}.png", picture)

    def still(self, part: str, milliseconds: int, wanted):
        """The picture, once a part of it is the wanted one and has stood still for so long."""
        end, since, last = time.monotonic() + TIMEOUT_S, 0, b""
        while time.monotonic() < end:
            if self.desk.game.poll() is not None:
                raise Failed(f"the program has ended with {self.desk.game.returncode}")
            try:
                picture = self.desk.picture()
            except BadMatch:  # the window changes its size just now
                continue
            cut = self.cut(picture, part)
            if cut != last:
                last, since = cut, time.monotonic()
            elif time.monotonic() - since > milliseconds / 1000 and wanted(cut):
                return picture
            time.sleep(0.02)
        raise Failed("another picture, or none that stands still")

    @staticmethod
    def cut(picture, part: str) -> bytes:
        width, _, pixels = picture
        left, right, bands, *_ = PARTS[part]
        if part in ("page", "glance", "lasting"):
            return pixels
        rows = (width * y for band in bands for y in range(*band))
        return b"".join(pixels[4 * (row + left):4 * (row + right)] for row in rows)

    def ends(self) -> None:
        try:
            code = self.desk.game.wait(END_S)
        except subprocess.TimeoutExpired as late:
            raise Failed(f"the program runs on for more than {END_S} s") from late
        self.expect(code, 0)

    def settings(self, *values: str) -> None:
        lines = (self.folder / "settings" / "grubaway" / "registry.txt").read_text().splitlines()
        fields = (line.split("\t") for line in lines)
        found = {name: int.from_bytes(bytes.fromhex(data), "little") for _, name, _, data in fields}
        self.expect([found.get(name) for name in ("SOUND", "MUSIC", "FULLSCREEN")], list(map(int, values)))

    def slot(self, slot: str, *numbers: str) -> None:
        data = (self.folder / f"slot{slot}.sav").read_bytes()
        self.expect((len(data), *struct.unpack_from("<3i", data)), (52, *map(int, numbers)))

    def scores(self, *rows: str) -> None:
        data = (self.folder / "GrubScore.sco").read_bytes()
        table = [struct.unpack_from("<12s2i", data, 4 + 20 * row) for row in range(data[0])]
        found = [f"{name.split(bytes(1))[0].decode().strip()}:{score}:{level + 1}" for name, score, level in table]
        self.expect((len(data), *found), (204, *rows))

    @staticmethod
    def expect(found, wanted) -> None:
        if found != wanted:
            raise Failed(f"{found} in place of {wanted}")


def main() -> int:
    parser = argparse.ArgumentParser(prog="./dev e2e", description=__doc__)
    parser.add_argument("program", type=pathlib.Path, help=argparse.SUPPRESS)
    parser.add_argument("--data", type=pathlib.Path, help="folder of the packages, in place of the program's own")
    parser.add_argument("--shots", type=pathlib.Path, default="build/shots", help="folder for the pictures")
    args = parser.parse_args()
    args.shots.mkdir(parents=True, exist_ok=True)
    for old in args.shots.glob("e2e-*.png"):
        old.unlink()
    command = [str(args.program.resolve()), *(["--data", str(args.data.resolve())] if args.data else [])]
    with tempfile.TemporaryDirectory() as name, Desk(command, name, f"{name}/settings") as desk:
        walk = Walk(desk, pathlib.Path(name), args.shots)
        for number, (step, commands) in enumerate(STEPS, 1):
            begin = time.monotonic()
            try:
                walk.run(commands)
            except Failed as fault:
                print(f"{number:2} FAILED {step}: {fault}", file=sys.stderr)
                return 1
            print(f"{number:2} {step} ({time.monotonic() - begin:.1f} s)", flush=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
