"""A desktop for one program: a screen without a monitor, a window manager, a keyboard, a mouse and a camera."""
import os
import struct
import subprocess
import time
import zlib

from Xlib import X, XK, Xatom, display, protocol
from Xlib.ext import xtest

PICTURE_WIDTH = 800  # as the game draws it; a full screen shows it larger


class Desk:
    """Coordinates are pixels of the game's picture. Leaving the block ends the screen, the manager and the program."""

    def __init__(self, program: list[str], folder, settings):
        self.command, self.folder = program, folder
        self.game = self.window = None
        reader, writer = os.pipe()
        screen = ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1024x768x24", "-nolisten", "tcp"]
        self.screen = subprocess.Popen(screen, pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as answer:
            number = answer.readline().strip()
        self.surroundings = os.environ | {"DISPLAY": f":{number}", "SDL_VIDEODRIVER": "x11", "SDL_AUDIODRIVER": "dummy",
                                          "XDG_CONFIG_HOME": str(settings), "XDG_DATA_HOME": str(settings)}
        self.display = display.Display(f":{number}")
        self.manager = subprocess.Popen(["openbox", "--sm-disable"], env=self.surroundings,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.display.close()
        for process in (self.game, self.manager, self.screen):
            if process and process.poll() is None:
                process.terminate()
                process.wait()

    def start(self) -> None:
        """Starts the program and waits until its window has the keyboard."""
        self._until(lambda: self._windows() == [])  # the manager is there, and knows that the last program has ended
        self.game = subprocess.Popen(self.command, cwd=self.folder, env=self.surroundings)
        self._until(lambda: self.display.get_input_focus().focus in (self._windows() or []))
        self.window = self._windows()[0]

    def _windows(self):
        """Those that the manager looks after; None before it does so."""
        name = self.display.intern_atom("_NET_CLIENT_LIST")
        found = self.display.screen().root.get_full_property(name, Xatom.WINDOW)
        return found and [self.display.create_resource_object("window", number) for number in found.value]

    @staticmethod
    def _until(is_so) -> None:
        end = time.monotonic() + 10
        while not is_so():
            if time.monotonic() > end:
                raise RuntimeError("the program shows no window, or leaves it behind")
            time.sleep(0.01)

    def picture(self, whole_screen=False):
        """Width, height and the pixels, 4 bytes each, of the window or of the screen."""
        source = self.display.screen().root if whole_screen else self.window
        size = source.get_geometry()
        return size.width, size.height, source.get_image(0, 0, size.width, size.height, X.ZPixmap, 0xFFFFFFFF).data

    def key(self, name: str, down: bool) -> None:
        code = self.display.keysym_to_keycode(XK.string_to_keysym(name))
        self._send(X.KeyPress if down else X.KeyRelease, code)

    def button(self, down: bool) -> None:
        self._send(X.ButtonPress if down else X.ButtonRelease, 1)

    def point(self, x: int, y: int) -> None:
        corner = self.window.translate_coords(self.display.screen().root, 0, 0)
        scale = self.window.get_geometry().width / PICTURE_WIDTH
        self._send(X.MotionNotify, x=int(x * scale) - corner.x, y=int(y * scale) - corner.y)

    def close(self) -> None:
        """What a click on the window's close button does."""
        protocols, delete = map(self.display.intern_atom, ("WM_PROTOCOLS", "WM_DELETE_WINDOW"))
        wish = protocol.event.ClientMessage(window=self.window, client_type=protocols, data=(32, [delete, 0, 0, 0, 0]))
        self.window.send_event(wish)
        self.display.sync()

    def _send(self, *event, **where) -> None:
        xtest.fake_input(self.display, *event, **where)
        self.display.sync()


def save_png(path, picture) -> None:
    width, height, pixels = picture
    rgb = bytearray(width * height * 3)
    rgb[0::3], rgb[1::3], rgb[2::3] = pixels[2::4], pixels[1::4], pixels[0::4]
    rows = b"".join(b"\0" + rgb[y * width * 3:(y + 1) * width * 3] for y in range(height))
    head = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + b"".join(
        struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
        for kind, data in ((b"IHDR", head), (b"IDAT", zlib.compress(rows, 6)), (b"IEND", b""))))
