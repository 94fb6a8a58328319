"""Download and read-back through the job runner against a bare loop of the same bulk transfers on the same device."""
import os
import subprocess

from bench import JOB, TOOLS, WORK, check, job, sample, step

# An IC with one of the largest packages.
IC, FILE = "QV8101", "QV8101.velmar"
ROUNDS = 5
GOAL = 1.05


def record(path, file):
    """Microseconds of the download in one run of the runner."""
    settings = dict(os.environ, LD_PRELOAD=os.path.join(TOOLS, "transfer_log.so"), TRANSFER_LOG=path)
    subprocess.run([*JOB, "--link", "usb", "load", "--ic", IC, file], cwd=WORK, env=settings, capture_output=True,
                   check=True)
    return measured(path, 0)


def measured(path, rounds):
    shown = subprocess.run([os.path.join(TOOLS, "bulk_loop"), path, str(rounds)], capture_output=True, text=True)
    check(shown.returncode == 0, shown.stderr + shown.stdout)
    words = shown.stdout.split()
    values = {"program": [], "loop": [], "transfers": [], "bytes": []}
    for name, value in zip(words[::2], words[1::2]):
        values[name].append(int(value))
    return values


# The fastest of each: whatever else the machine does only adds time. The rounds take turns, so that it adds alike.
@step(f"download and read-back, at most {GOAL} times the bare loop")
def throughput():
    file = sample(FILE)
    job("load", "--ic", IC, file)
    path = os.path.join(WORK, "transfers")
    programs, loops = [], []
    for _ in range(ROUNDS):
        programs += record(path, file)["program"]
        values = measured(path, 2)
        loops += values["loop"]
    ratio = min(programs) / min(loops)
    seen = (f"ratio {ratio:.3f}: {min(programs) / 1000:.1f} ms against {min(loops) / 1000:.1f} ms, "
            f"{values['transfers'][0]} transfers, {values['bytes'][0]} bytes")
    check(ratio <= GOAL, seen)
    return seen
