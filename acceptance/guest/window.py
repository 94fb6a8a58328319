"""The window by keyboard, with the cable out and in."""
import glob
import time

import screen
from bench import catalogue, check, device, host, plug, replug, sample, step, transfers, unplug, until, without_right
from screen import CONNECTED, GONE, key, shot, write

window = None


def place(label):
    """Where an IC stands in IC Type Select of the first model: series and type, counted from 0."""
    rows = [row for row in catalogue() if row["model"] == "KM48"]
    series = next(row["list"] for row in rows if row["label"] == label)
    return series, [row["label"] for row in rows if row["list"] == series].index(label)


def begin():
    global window
    screen.start_display()
    window = screen.Program()


def end():
    if window.alive():
        window.quit()


def after_failure(title):
    """The next step finds the window without dialogs, and the writer plugged in and shown."""
    shot("failed")
    host("tell no-fault")
    if window.alive():
        window.close_all()
    if device() is None:
        plug()
    elif window.alive() and CONNECTED not in window.link():
        replug()
    if window.alive():
        window.wait_link(CONNECTED)


@step("window: starts and finds the writer")
def start():
    window.wait_link(CONNECTED)
    check(window.enabled("Auto") and window.enabled("Verify"), "Auto or Verify is disabled")
    shot("start")
    return window.link()


@step("window: IC selection and Load File by keyboard")
def select_and_load():
    window.select_ic(*place("QV8348"), "QV8348")
    window.load_file(sample("QV8348.hex"))
    seen = window.wait_message("Loading Data Ok", 90)
    shot("loaded")
    return f"{seen}; checksum {window.field('Checksum')}, file {window.field('File')}"


@step("window: Auto, Verify, Blank check by keyboard")
def tasks():
    seen = []
    for mnemonic, text in (("u", "Auto OK"), ("v", "Verify OK"), ("b", "BlankCheck FAIL"), ("p", "Program OK")):
        window.press(mnemonic)
        seen.append(window.wait_message(text))
    return "; ".join(seen)


@step("window: a series of three serial numbers by keyboard")
def serial():
    window.choose_menu("o", 1)
    dialog = window.wait_window("Serial Number Program")
    window.press("s")
    window.wait_window("Serial Number Set")
    for mnemonic, text in (("l", "4"), ("a", "3F0"), ("s", "00001000"), ("m", "3")):
        key("alt+" + mnemonic, "ctrl+a")
        write(text)
    shot("serial_set")
    window.shut("alt+o", 2)
    ok = window.item_soon(dialog, "OK (Hex)", "text")
    for count in ("1", "2", "3"):
        key("alt+p")
        if count != "3":
            until(lambda: window._quietly(lambda: window.text_of(ok)) == count, 30, f"{count} under OK")
    window.wait_message("Serial Number Program Complete")
    seen = [window.text_of(window.item_soon(dialog, name, "text")) for name in ("OK", "NG", "Total", "Start Serial")]
    shot("serial_program")
    check(seen[:3] == ["3", "0", "3"], f"OK, NG, Total, next: {seen}")
    window.shut("alt+c", 1)
    # The writer holds the job of the series now: nothing but a new load ends that.
    window.press("u")
    told = window.wait_message("Please Reload Program File")
    window.load_file(sample("QV8348.hex"))
    loaded = window.wait_message("Loading Data Ok", 90)
    return f"OK, NG, Total, next: {seen}; Auto behind it: {told}; {loaded}"


@step("window: cable out and in while idle")
def idle():
    unplug()
    window.wait_link(GONE)
    check(not window.enabled("Auto"), "Auto stays enabled")
    shot("unplugged")
    plug()
    window.wait_link(CONNECTED)
    until(lambda: window._quietly(lambda: window.enabled("Auto")), 20, "Auto enabled again")
    check(window.dialogs() == [], f"open: {window.dialogs()}")
    window.press("u")
    return "out: " + GONE + "; in again: " + window.wait_message("Auto OK")


@step("window: the writer comes without the right to it")
def no_right():
    with without_right():
        until(lambda: window._quietly(lambda: window.shows("No right to open the writer")), 40, "the words of it")
        window.wait_link(GONE)
        shot("no_right")
    window.wait_link(CONNECTED)
    check(not window.shows("No right to open the writer"), "the words stay")
    return "No right to open the writer, " + GONE + "; with the right again connected"


@step("window: another device in and out")
def another_device():
    before, shown = transfers(), window.link()
    host("plug-other")
    other = until(lambda: [path for path in glob.glob("/sys/bus/usb/devices/*/product")
                           if "Tablet" in open(path).read()], 20, "the other device")
    time.sleep(1.5)
    check(window.link() == shown and window.dialogs() == [], f"{window.link()}, open: {window.dialogs()}")
    host("unplug-other")
    time.sleep(1.5)
    check(window.link() == shown and window.dialogs() == [], f"{window.link()}, open: {window.dialogs()}")
    check(transfers() == before, f"{transfers() - before} transfers with the writer")
    window.press("u")
    return f"a tablet at {other[0].split('/')[-2]}, no transfer with the writer; {window.wait_message('Auto OK')}"


def under(name, opened, title="", says="", closed="Escape", windows=1, at_once=True):
    """The cable goes out and comes back while a window is open: one with a title, or a message that says something."""
    def is_open():
        if title:
            window.wait_window(title)
        else:
            until(lambda: (lambda box: box and says in window.words(box))(window.dialog()), 40, f"the message \"{says}\"")

    @step(f"window: cable out and in under {name}")
    def run():
        opened()
        is_open()
        unplug()
        seen = ""
        if at_once:
            seen = "told at once; "
            window.wait_link(GONE, 15)
        else:
            time.sleep(1)
        shot("under_" + name.replace(" ", "_"))
        check(len(window.dialogs()) == windows, f"open: {window.dialogs()}")
        for left in range(windows, 0, -1):
            window.shut(closed, left)
        window.wait_link(GONE)
        plug()
        window.wait_link(CONNECTED)
        # And both while it is open.
        opened()
        is_open()
        unplug()
        plug()
        for left in range(windows, 0, -1):
            window.shut(closed, left)
        window.wait_link(CONNECTED)
        until(lambda: window._quietly(lambda: window.enabled("Auto")), 20, "Auto enabled")
        check(window.dialogs() == [], f"open: {window.dialogs()}")
        return seen + "connected again behind it"


def serial_set():
    window.choose_menu("o", 1)
    window.wait_window("Serial Number Program")
    window.press("s")


under("IC Type Select", lambda: window.press("d"), "IC Type Select")
under("the file dialog", lambda: window.choose_menu("f", 0), "Open")
under("Serial Number Program", lambda: window.choose_menu("o", 1), "Serial Number Program")
under("Serial Number Set", serial_set, "Serial Number Set", windows=2)
under("Compare File", lambda: window.choose_menu("o", 3), "Download File Information")
under("Set Protect", lambda: window.choose_menu("o", 4), "Option Select 1")
under("Smart Option", lambda: window.press("s"))
under("Read Chip Info", lambda: window.choose_menu("o", 5))
under("About", lambda: window.press("a"), "About PyxisLoad")
under("the question of Exit", lambda: window.choose_menu("f", 1), says="Are you sure to Exit", at_once=False)
under("a result", lambda: window.press("v"), says="Verify OK", at_once=False)


@step("window: Auto still works behind all of it")
def still():
    window.press("u")
    seen = window.wait_message("Auto OK")
    return seen + f", status {window.link()}"
