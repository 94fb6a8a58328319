"""The window program on a display of its own: keys go in as from a keyboard, and what it shows is read as a screen reader
reads it."""
import os
import shutil
import subprocess
import time

from bench import FOLDER, INSTALLED, Failure, check, program, until

DISPLAY = ":7"
FRAMES = "/tmp/frames"
CONNECTED = "PYX STANDALONE LOADER"
GONE = "USB was not connected"
LINK = "Link status"

_background = []
_shots = 0
Atspi = None


def _spawn(*arguments, **settings):
    process = subprocess.Popen(arguments, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **settings)
    _background.append(process)
    return process


def start_display():
    global Atspi
    if Atspi is not None:
        return
    os.makedirs(FRAMES)
    os.environ["DISPLAY"] = DISPLAY
    _spawn("Xvfb", DISPLAY, "-screen", "0", "1280x800x24", "-fbdir", FRAMES, "-nolisten", "tcp")
    until(lambda: os.path.exists("/tmp/.X11-unix/X7"), 60, "the display")
    bus = subprocess.run(["dbus-daemon", "--session", "--fork", "--print-address"], capture_output=True, text=True,
                         check=True)
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.strip()
    _spawn("/usr/libexec/at-spi-bus-launcher", "--launch-immediately")
    _spawn("openbox")
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi as module
    Atspi = module
    Atspi.init()
    # While an operation runs the program answers nobody.
    Atspi.set_timeout(5000, 20000)


class Busy(Exception):
    """The program runs an operation and answers nobody."""


class Program:
    def __init__(self):
        settings = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb")
        folder = os.path.expanduser("~") if INSTALLED else FOLDER
        log = open("/share/pyxisload.log", "a")
        self.process = subprocess.Popen([program("pyxisload")], cwd=folder, env=settings, stdout=log, stderr=log)
        _background.append(self.process)
        self.application = until(self._find, 90, "the program among the accessible ones")
        self.main = until(lambda: self._top("frame"), 30, "the main window")
        self._fields = {}

    def _find(self):
        try:
            for child in self._children(Atspi.get_desktop(0)):
                if (child.get_name() or "").lower() == "pyxisload":
                    child.set_cache_mask(Atspi.Cache.NONE)
                    return child
        except Exception:  # the registry is only starting
            pass
        return None

    def alive(self):
        return self.process.poll() is None

    # ---- what it shows

    def _children(self, item):
        count = item.get_child_count()
        if count < 0:
            raise Busy
        for i in range(count):
            child = item.get_child_at_index(i)
            if child is not None:
                yield child

    def _walk(self, item):
        for child in self._children(item):
            yield child
            if child.get_role_name() not in ("table", "list", "tree", "menu bar"):
                yield from self._walk(child)

    def _top(self, *roles):
        try:
            shown = [child for child in self._children(self.application)
                     if child.get_role_name() in roles and child.get_state_set().contains(Atspi.StateType.SHOWING)]
        except Exception:  # busy: nobody knows
            return None
        return shown[-1] if shown else None

    def dialog(self):
        """The window in front of the main window, or None."""
        return self._top("dialog", "alert", "file chooser", "message box")

    def dialogs(self):
        try:
            return [child.get_name() for child in self._children(self.application)
                    if child.get_role_name() != "frame" and child.get_state_set().contains(Atspi.StateType.SHOWING)]
        except Exception:
            return None

    @staticmethod
    def text_of(item):
        text = item.get_text_iface()
        return Atspi.Text.get_text(text, 0, -1) if text is not None else item.get_name()

    def words(self, window):
        """Every label and message of a small window."""
        try:
            found = [window.get_name()] + [item.get_name() for item in self._walk(window)
                                           if item.get_role_name() == "label"]
        except Exception:
            return ""
        return " | ".join(word for word in found if word and word.strip())

    def item(self, window, name, role=None):
        for item in self._walk(window):
            if (item.get_name() or "").strip().startswith(name.strip()) and role in (None, item.get_role_name()):
                return item
        raise Failure(f"nothing is called {name}")

    def shows(self, name):
        """Whether the main window shows something that is called so."""
        return any((item.get_name() or "").startswith(name) and item.get_state_set().contains(Atspi.StateType.SHOWING)
                   for item in self._walk(self.main))

    def item_soon(self, window, name, role=None):
        """The same where the program may still be busy, or the window still filling."""
        def there():
            try:
                return self.item(window, name, role)
            except Exception:
                return None
        return until(there, 20, f"something called {name}")

    def field(self, name):
        """The text of a field of the main window."""
        if name not in self._fields:
            self._fields[name] = self.item(self.main, name, "text")
        return self.text_of(self._fields[name])

    def link(self):
        """What the status bar says of the link. A label that tells its name alone is judged by the buttons, which go with
        the link."""
        if LINK not in self._fields:
            for item in self._walk(self.main):
                words = (item.get_name() or "") + (item.get_description() or "")
                if any(word in words for word in (CONNECTED, GONE, LINK)):
                    self._fields[LINK] = item
        words = (self._fields[LINK].get_name() or "") + (self._fields[LINK].get_description() or "")
        if CONNECTED in words or GONE in words:
            return words
        return CONNECTED if self.enabled("Auto") else GONE

    def enabled(self, name):
        key = "button " + name
        if key not in self._fields:
            self._fields[key] = self.item(self.main, name, "push button")
        return self._fields[key].get_state_set().contains(Atspi.StateType.ENABLED)

    def _quietly(self, question):
        try:
            return question()
        except Failure:
            raise
        except Exception:
            return None

    def wait_link(self, text, seconds=40):
        check(self.alive(), f"the program has ended with {self.process.poll()}")
        seen = [""]

        def shows():
            seen[0] = self._quietly(self.link) or seen[0]
            return text in seen[0]
        try:
            until(shows, seconds, f"\"{text}\" in the status bar")
        except Failure as failure:
            raise Failure(f"{failure}; it shows \"{seen[0]}\"")
        return text

    def wait_window(self, title, seconds=40):
        def there():
            check(self.alive(), f"the program has ended with {self.process.poll()}")
            window = self.dialog()
            return window if window is not None and title in (self._quietly(window.get_name) or "") else None
        try:
            return until(there, seconds, f"the window \"{title}\"")
        except Failure as failure:
            window = self.dialog()
            raise Failure(f"{failure}; in front: {self.words(window) if window else 'none'}")

    def wait_message(self, text, seconds=60):
        """Waits for a message box with the text, and presses Enter in it. One that tells something else won't go away by
        itself."""
        others = []

        def there():
            check(self.alive(), f"the program has ended with {self.process.poll()}")
            window = self.dialog()
            words = self.words(window) if window is not None else ""
            if text in words:
                return window
            others[:] = others + [words] if words and self._quietly(window.get_role_name) == "alert" else []
            check(len(others) < 20 or len(set(others[-20:])) > 1, f"not \"{text}\": {words}")
            return None
        try:
            window = until(there, seconds, f"the message \"{text}\"")
        except Failure as failure:
            window = self.dialog()
            raise Failure(f"{failure}; in front: {self.words(window) if window else 'none'}")
        seen = self.words(window)
        self.shut("Return", len(self.dialogs() or [1]))
        return seen

    def shut(self, press, before):
        """Presses a key until a window fewer is open, or the program has ended; a box that has just come takes none for
        a moment."""
        def fewer():
            now = self.dialogs()
            return not self.alive() or now is not None and len(now) < before
        for _ in range(5):
            time.sleep(0.3)
            key(press)
            try:
                until(fewer, 4, "closed")
                return
            except Failure:
                pass
        raise Failure(f"{self.dialogs()} stays open")

    def close_all(self):
        for _ in range(8):
            open_now = self.dialogs()
            if open_now is not None and not open_now:
                return
            key("Escape")
            time.sleep(1)

    # ---- the operator's ways

    def choose_menu(self, letter, entry):
        """Opens a menu, and goes down to an entry, counted from 0 among those that are enabled: the keys pass over the others."""
        key("alt+" + letter)
        time.sleep(0.5)
        for _ in range(entry):
            key("Down")
        key("Return")

    def press(self, mnemonic):
        key("alt+" + mnemonic)

    def select_ic(self, series, position, chip):
        self.press("d")
        window = self.wait_window("IC Type Select")
        key("alt+r", "Home", *["Down"] * series)
        key("alt+t", "Home", *["Down"] * position)
        until(lambda: self._quietly(lambda: self.item(window, chip, "label")), 20, f"{chip} under the lists")
        self.shut("Return", 1)
        until(lambda: self._quietly(lambda: self.field("Chip Name")) == chip, 20, f"{chip} in the field Chip Name")

    def load_file(self, path):
        self.choose_menu("f", 0)
        self.wait_window("Open")
        time.sleep(0.5)
        key("ctrl+a")
        write(path)
        key("Return")

    def quit(self):
        self.process.terminate()
        self.process.wait(20)


def key(*presses):
    subprocess.run(["xdotool", "key", "--delay", "60", *presses], check=True)


def write(text):
    subprocess.run(["xdotool", "type", "--delay", "30", text], check=True)


def shot(name):
    """Keeps the screen; the host makes a picture of it."""
    global _shots
    _shots += 1
    shutil.copyfile(os.path.join(FRAMES, "Xvfb_screen0"), f"/share/{_shots:02}_{name}.xwd")


def stop_all():
    for process in reversed(_background):
        if process.poll() is None:
            process.terminate()
