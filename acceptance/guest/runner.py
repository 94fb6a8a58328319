"""The job runner over the real libusb: every command, an IC of each family, both models."""
import os
import pwd
import subprocess

from bench import (INSTALLED, another_writer, catalogue, check, device, job, node, options_of, program, read, sample,
                   sample_of, step, until, usable, without_right)


@step("kernel, udev and the right to the device")
def right():
    until(usable, 30, "the writer on the bus, with the right to open it")
    user = pwd.getpwuid(os.getuid()).pw_name
    check(os.getuid() != 0, "this is root")
    access = subprocess.run(["getfacl", "-p", node()], capture_output=True, text=True).stdout
    check(f"user:{user}:rw-" in access, f"no entry for {user} in the access list of {node()}")
    return f"Linux {os.uname().release}, {device()} at {read(device() + '/speed')} Mbit/s, {user} may open {node()}"


@step("the package is installed")
def installed():
    if not INSTALLED:
        return "there is none: the programs come from the build folder"
    shown = subprocess.run(["dpkg-query", "-W", "-f", "${Status} ${Version}", "pyxisload"], capture_output=True, text=True)
    check(shown.stdout.startswith("install ok installed"), shown.stdout or shown.stderr)
    rule = subprocess.run(["dpkg", "-L", "pyxisload"], capture_output=True, text=True).stdout
    check(".rules" in rule, "no udev rule in the package")
    return shown.stdout


@step("writer: identity and model")
def writer():
    seen = job("writer")
    check(seen["transport"] == "usb" and seen["model_register"] == 0x98, str(seen))
    return f"{seen['identity']} over {seen['transport']}"


@step("pyxisjob without the right to the device")
def no_right():
    with without_right():
        seen = job("writer", code=1)["messages"]
    check("no right to open it" in str(seen), str(seen))
    job("writer")
    return f"{seen}; with the right again it answers"


def add_command(title, *arguments, code=0, expect=None):
    @step("pyxisjob " + title)
    def run():
        seen = job(*arguments, code=code)
        told = seen.get("lines") or seen.get("messages") or seen
        check(expect is None or expect in str(told), f"{told}, not {expect}")
        return str(told)


@step("pyxisjob load QV8348")
def load():
    seen = job("load", "--ic", "QV8348", sample("QV8348.hex"))
    check(seen["messages"] == ["Loading Data Ok"], str(seen))
    held = job("writer")
    check(held["chip"] == "QV8348" and held["model"] == "KM48", str(held))
    return f"the writer holds {held['chip']}, checksum {held['checksum']}, firmware {held['firmware_code']}"


add_command("blank", "blank", expect="BlankCheck OK")
add_command("program", "program", expect="Program OK")
add_command("verify", "verify", expect="Verify OK")
add_command("auto", "auto", expect="Auto OK")
add_command("blank on a burnt chip", "blank", code=1, expect="BlankCheck FAIL")


@step("pyxisjob compare, with the same and with another file")
def compare():
    file = sample("QV8348.hex")
    same = job("compare", file)
    check(any("OK" in line for line in same["lines"]), str(same))
    other = job("compare", sample("QV8301.hex"), code=1)
    check(any("Fail" in line for line in other["lines"]), str(other))
    return f"{same['lines'][-1]}; {other['lines'][-1]}"


add_command("protect on", "protect", "on")
add_command("protect off", "protect", "off")
add_command("auto after protect", "auto", expect="Auto OK")
add_command("chip-info", "chip-info", expect="QV8348")
add_command("read", "read", expect="Read OK")
add_command("self-test", "--yes", "self-test")
# Its template goes to the writer, and is installed data that the user can't write to.
add_command("read of another IC", "read", "--ic", "QVL04", expect="Read OK")


@step("pyxisjob serial: a series of three")
def serial():
    job("load", "--ic", "QV8348", sample("QV8348.hex"))
    seen = job("serial", "--length", "4", "--address", "3F0", "--start", "000010FE", "--amount", "3", "--chips", "3")
    check((seen["ok"], seen["ng"]) == (3, 0) and "Serial Number Program Complete" in seen["messages"], str(seen))
    return f"ok {seen['ok']}, next {seen['next']}, {seen['messages'][-1]}"


@step("pyxisjob serial through IC selection")
def serial_selected():
    seen = job("serial", "--length", "4", "--address", "3F0", "--start", "00002000", "--amount", "2", "--chips", "2",
               "--ic", "QV8348", sample("QV8348.hex"))
    check((seen["ok"], seen["ng"]) == (2, 0), str(seen))
    return f"ok {seen['ok']}, next {seen['next']}"


def family(chip):
    loaded = job("load", "--ic", chip["label"], *options_of(chip), sample_of(chip))
    check("Loading Data Ok" in loaded["messages"], str(loaded))
    held = job("writer")
    check(held["chip"] == chip["chip"] and held["model"] == chip["model"], str(held))
    job("auto")
    job("verify")
    return f"checksum {held['checksum']}, firmware {held['firmware_code']}, Auto and Verify OK"


def add_families(model):
    """One IC of each family of files in each list of the catalogue."""
    seen = set()
    for chip in catalogue():
        key = (chip["list"], chip["file_extension"])
        if chip["model"] != model or key in seen:
            continue
        seen.add(key)
        step(f"{model} {chip['label']} ({chip['file_extension']})")(lambda chip=chip: family(chip))


def second_model():
    another_writer("--model KM49 --fresh-chips")
    seen = job("writer")
    check(seen["model_register"] == 0x99, str(seen))
    return f"model register {seen['model_register']:X}"


def begin():
    add_families("KM48")
    step("another model of writer takes the first one's place")(second_model)
    add_families("KM49")


def end():
    another_writer("--model KM48 --fresh-chips")
