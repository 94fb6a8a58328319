"""What every step needs: the line to the host, the list of steps, the writer as the guest's kernel sees it."""
import contextlib
import glob
import json
import os
import re
import shutil
import subprocess
import time

INSTALLED = bool(os.environ.get("PACKAGE"))
WORK = os.path.expanduser("~/work")
DATA = "/usr/share/pyxisload" if INSTALLED else os.environ["FOLDER"]
TOOLS = os.environ["TOOLS"]
FOLDER = os.path.expanduser("~/.local/share/pyxisload") if INSTALLED else os.path.expanduser("~/folder")
PATIENCE = 5  # a busy machine's seconds are longer
VENDOR, PRODUCT = "7a31", "1602"


class Failure(Exception):
    pass


def program(name):
    return name if INSTALLED else os.path.join(os.environ["BIN"], name)


def prepare():
    """The operator's own folders. Where nothing is installed he gets a program folder of his own: its files are opened for
    writing too."""
    os.makedirs(WORK)
    if INSTALLED:
        return
    os.makedirs(FOLDER)
    subprocess.run(["cp", "-rL", "--no-preserve=mode", *glob.glob(DATA + "/[!r]*"), FOLDER], check=True)
    os.symlink(os.path.join(DATA, "res"), os.path.join(FOLDER, "res"))


def sample(name):
    """A program file as the operator's own."""
    target = os.path.join(WORK, os.path.basename(name))
    shutil.copy(os.path.join(DATA, "samples", name), target)
    os.chmod(target, 0o644)
    return target


# ---- the host

_line = None


def host(request):
    """One request to the host, which answers when it has done it."""
    global _line
    if _line is None:
        _line = os.open("/dev/ttyS1", os.O_RDWR | os.O_NOCTTY)
    os.write(_line, (" ".join(request.split()) + "\n").encode())
    answer = b""
    while not answer.endswith(b"\n"):
        answer += os.read(_line, 256)
    answer = answer.decode().strip()
    if answer != "ok":
        raise Failure(f"the host answered {answer} to {request}")


def note(text):
    host("note " + text)


# ---- steps

_steps = []


def step(title):
    """Adds a function to the steps; what it returns is what was seen."""
    def add(function):
        _steps.append((title, function))
        return function
    return add


def run_steps(part, after_failure=None):
    """Those of one part: a module that uses another one brings that one's steps along."""
    for title, function in _steps:
        if function.__module__ != part or not re.search(os.environ.get("STEPS", ""), title):
            continue
        began = time.monotonic()
        try:
            verdict, seen = "PASS", function() or ""
        except Exception as error:  # whatever goes wrong in a step is that step's result
            verdict, seen = "FAIL", f"{type(error).__name__}: {error}"
        host(f"{verdict} {title}: {seen} ({time.monotonic() - began:.0f} s)")
        if verdict == "FAIL" and after_failure:
            try:
                after_failure(title)
            except Exception as error:
                note(f"tidying up failed: {error}")


def check(condition, what):
    if not condition:
        raise Failure(what)


def until(ready, seconds, what):
    """Waits as long as is needed, and tells how long that was."""
    began = time.monotonic()
    while True:
        value = ready()
        if value:
            return value
        if time.monotonic() - began > PATIENCE * seconds:
            raise Failure(f"{what}: not within {PATIENCE * seconds} s")
        time.sleep(0.15)


# ---- the writer on the guest's bus

def device():
    """The writer's directory in sysfs, or None."""
    for path in glob.glob("/sys/bus/usb/devices/*/idVendor"):
        try:
            folder = os.path.dirname(path)
            if read(path) == VENDOR and read(folder + "/idProduct") == PRODUCT:
                return folder
        except OSError:
            pass
    return None


def read(path):
    with open(path) as file:
        return file.read().strip()


def node():
    folder = device()
    check(folder, "no writer on the bus")
    return "/dev/bus/usb/%03d/%03d" % (int(read(folder + "/busnum")), int(read(folder + "/devnum")))


def usable():
    try:
        return os.access(node(), os.R_OK | os.W_OK)
    except (Failure, OSError):
        return False


def plug():
    host("plug")
    until(usable, 20, "the writer on the bus, with the right to open it")


def sit(there):
    """What a session manager tells udev: who sits at the machine."""
    with open("/run/systemd/seats/seat0", "w") as seat:
        seat.write(f"ACTIVE=1\nACTIVE_UID={os.getuid()}\n" if there else "")


@contextlib.contextmanager
def without_right():
    """The writer comes back while nobody has the seat, and once more when the user has it again."""
    unplug()
    sit(False)
    try:
        host("plug")
        until(device, 20, "the writer on the bus")
        subprocess.run(["udevadm", "settle"], check=True)
        check(not usable(), f"the user may open {node()}")
        yield
    finally:
        sit(True)
        replug()


def unplug():
    host("unplug")
    until(lambda: device() is None, 20, "the writer gone from the bus")


def replug():
    unplug()
    plug()


def another_writer(arguments):
    unplug()
    host("writer " + arguments)
    plug()


def transfers():
    """How many transfers the kernel has made with the writer."""
    return int(read(device() + "/urbnum"))


def wait_for_stall(before, count):
    """Until the writer, which answers `count` transfers behind `before`, has stopped answering. The one that it leaves open
    counts; so do those that open the device, which no fault counts."""
    seen = [transfers(), time.monotonic()]

    def still():
        now = transfers()
        if now != seen[0]:
            seen[:] = [now, time.monotonic()]
        return now - before > count and time.monotonic() - seen[1] > 0.5
    until(still, 60, "transfers that stand still")
    return seen[0] - before


# ---- the job runner

# An installed one finds the user's folder by itself.
JOB = [program("pyxisjob")] + ([] if INSTALLED else ["--folder", FOLDER])


def start_job(*arguments):
    return subprocess.Popen([*JOB, "--json", "--link", "usb", *arguments], stdout=subprocess.PIPE,
                            stderr=subprocess.PIPE, text=True, cwd=WORK)


def finish_job(process, seconds=120):
    try:
        out, error = process.communicate(timeout=PATIENCE * seconds)
    except subprocess.TimeoutExpired:
        process.kill()
        process.communicate()
        raise Failure(f"pyxisjob hasn't ended within {PATIENCE * seconds} s")
    lines = [json.loads(line) for line in out.splitlines() if line.startswith("{")]
    return process.returncode, lines, (error.strip().splitlines() or [""])[-1]


def job(*arguments, code=0):
    """Runs a command to its end; the last line of its results."""
    result, lines, error = finish_job(start_job(*arguments))
    last = lines[-1] if lines else {}
    told = last.get("messages") or error
    check(result == code, f"{' '.join(arguments[:2])} ended with {result}, not {code}: {told}")
    return last


def options_of(chip):
    """An IC that asks for its protection gets it unprotected, in fast mode, with the 32 KHz clock on."""
    return ["--option-value", str(0x60 | 1 | 2)] if chip["has_option_dialog"] else []


def catalogue():
    listing = subprocess.run([*JOB, "--json", "ics"], capture_output=True, text=True, check=True, cwd=WORK)
    return [json.loads(line) for line in listing.stdout.splitlines()]


def sample_of(chip):
    """The sample file of a catalogue row, by the IC's name and whichever of its endings there is."""
    files = glob.glob(os.path.join(DATA, "samples", chip["chip"] + ".*"))
    files = [file for file in files if not file.endswith(".bin") or chip["file_extension"] == ".hexbin"]
    check(files, f"no sample for {chip['chip']}")
    return sample(sorted(files)[0])
