"""The cable pulled in the middle of an operation, a writer that falls silent, another device meanwhile: at the window and
at the job runner."""
import time

import window as steps
from bench import (Failure, check, finish_job, host, job, plug, sample, start_job, step, transfers, unplug, until,
                   wait_for_stall)
from screen import CONNECTED, GONE, key, shot

# Another IC than the one that the writer holds needs another firmware image; its own packages are large.
IC, FILE = "QV8101", "QV8101.velmar"
OTHER, OTHER_FILE = "QV8348", "QV8348.hex"
# A firmware image is sent and read back in 2 x 132 pieces, behind 10 to 70 transfers: this is before the last piece is out.
# A writer that has all of it needs no other one for the same IC, and the failed read-back counts on.
IN_FIRMWARE = 100
# A package load of FILE has 162 transfers until its data package is read back, and that begins with the 94th. What comes
# behind them closes the load, and no longer decides.
IN_PACKAGE = 120
# The bound of a transfer is two minutes.
SILENT_SECONDS = 150

window = None


def begin():
    global window
    steps.begin()
    window = steps.window
    window.wait_link(CONNECTED)


def end():
    steps.end()


after_failure = steps.after_failure


def caught_in(count, do):
    """Lets the writer stand still in the middle of what `do` begins; tells at which transfer."""
    before = transfers()
    host(f"tell stall-after {count}")
    do()
    return wait_for_stall(before, count)


def alone():
    """The runner has the writer for itself, also when the window hasn't ended as it should, or was only started."""
    if window.alive():
        window.quit()


def recovers(ic=OTHER, file=OTHER_FILE, select=True):
    """A plug, a new load and a chip."""
    host("tell no-fault")
    plug()
    window.wait_link(CONNECTED)
    if select:
        window.select_ic(*steps.place(ic), ic)
    window.load_file(sample(file))
    window.wait_message("Loading Data Ok", 120)
    window.press("u")
    return window.wait_message("Auto OK", 60)


@step("window: cable out in a firmware load")
def firmware():
    window.select_ic(*steps.place(OTHER), OTHER)
    window.load_file(sample(OTHER_FILE))
    window.wait_message("Loading Data Ok", 120)
    window.select_ic(*steps.place(IC), IC)
    at = caught_in(IN_FIRMWARE, lambda: window.load_file(sample(FILE)))
    shot("in_firmware_load")
    unplug()
    seen = window.wait_message("Update Firmware Fail", 60)
    window.wait_link(GONE)
    return f"at transfer {at}: {seen}; then {GONE}; a new load: {recovers(IC, FILE)}"


@step("window: cable out in a package load")
def package():
    at = caught_in(IN_PACKAGE, lambda: window.load_file(sample(FILE)))
    shot("in_package_load")
    unplug()
    seen = window.wait_message("Loading Data Fail", 60)
    window.wait_link(GONE)
    return f"at transfer {at}: {seen}; then {GONE}; a new load: {recovers(IC, FILE, select=False)}"


@step("window: cable out in Auto")
def auto():
    host("tell no-verdict")
    before = transfers()
    window.press("u")
    until(lambda: transfers() - before > 30, 30, "status reads of Auto")
    shot("in_auto")
    unplug()
    seen = window.wait_message("Auto FAIL", 60)
    window.wait_link(GONE)
    return f"{seen}; then {GONE}; a new load: {recovers(IC, FILE, select=False)}"


@step("window: another device comes in Auto")
def other_in_auto():
    host("tell no-verdict")
    before = transfers()
    window.press("u")
    until(lambda: transfers() - before > 30, 30, "status reads of Auto")
    host("plug-other")
    time.sleep(2)
    before = transfers()
    until(lambda: transfers() - before > 10, 30, "Auto going on")
    host("tell no-fault")
    seen = window.wait_message("Auto OK", 60)
    host("unplug-other")
    window.wait_link(CONNECTED)
    return seen


@step("window: the writer falls silent in Auto and stays plugged in")
def silent():
    host("tell no-verdict")
    before = transfers()
    window.press("u")
    until(lambda: transfers() - before > 30, 30, "status reads of Auto")
    host("tell stall")
    began = time.monotonic()
    seen = window.wait_message("Auto FAIL", SILENT_SECONDS)
    took = time.monotonic() - began
    shot("silent")
    host("tell no-fault")
    unplug()
    window.wait_link(GONE)
    return f"{seen} after {took:.0f} s; out and in again: {recovers(IC, FILE, select=False)}"


def question():
    front = window.dialog()
    words = window.words(front) if front is not None else ""
    return words if "Are you sure to Exit" in words else None


def ended(seconds):
    try:
        until(lambda: not window.alive(), seconds, "the end of the program")
        return True
    except Failure:
        return False


@step("window: Exit by keyboard")
def leave():
    window.choose_menu("f", 1)
    seen = until(lambda: window._quietly(question), 60, "the question")
    # The close command asks once more, in the same words.
    for answers in range(1, 6):
        time.sleep(1)
        key("Return")
        if ended(5):
            break
        check(question() is not None, f"no question behind {answers} answers")
    check(not window.alive() and answers >= 2, f"alive: {window.alive()}, answers: {answers}")
    check(window.process.returncode == 0, f"it ended with {window.process.returncode}")
    return seen


@step("pyxisjob: cable out in a firmware load")
def job_firmware():
    alone()
    before = transfers()
    host(f"tell stall-after {IN_FIRMWARE}")
    running = start_job("load", "--ic", OTHER, sample(OTHER_FILE))
    at = wait_for_stall(before, IN_FIRMWARE)
    unplug()
    began = time.monotonic()
    code, lines, _ = finish_job(running)
    check(code == 1, f"ended with {code}: {lines}")
    host("tell no-fault")
    plug()
    job("load", "--ic", OTHER, sample(OTHER_FILE))
    job("auto")
    return f"at transfer {at}; {lines[-1]['messages']} {time.monotonic() - began:.0f} s behind it; the next load and Auto OK"


@step("pyxisjob: cable out in Auto")
def job_auto():
    alone()
    host("tell no-verdict")
    before = transfers()
    running = start_job("auto")
    until(lambda: transfers() - before > 60, 30, "status reads of Auto")
    unplug()
    code, lines, _ = finish_job(running)
    check(code == 1 and "Auto FAIL" in str(lines[-1]), f"ended with {code}: {lines}")
    host("tell no-fault")
    plug()
    job("auto")
    return f"{lines[-1]['messages']}; the next Auto OK"


@step("pyxisjob: no writer")
def job_none():
    alone()
    unplug()
    seen = job("writer", code=1)
    check("connected" in str(seen), str(seen))
    plug()
    return str(seen.get("messages") or seen)
