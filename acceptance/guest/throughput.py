"""Download and read-back through the job runner against a bare loop of the same bulk transfers on the same device."""
import os
import subprocess

from bench import JOB, TOOLS, WORK, check, job, sample, step

# An IC with the largest package of the samples.
IC, FILE = "QV4206", "QV4206.epm"
ROUNDS = 12
GOAL = 1.05


def logged(path, *command):
    """Runs a command, and keeps its transfers in a file."""
    settings = dict(os.environ, LD_PRELOAD=os.path.join(TOOLS, "transfer_log.so"), TRANSFER_LOG=path)
    shown = subprocess.run(command, cwd=WORK, env=settings, capture_output=True, text=True)
    check(shown.returncode == 0, shown.stderr + shown.stdout)


def times(path):
    """Of each transfer of the download: nanoseconds since the one before, and its own."""
    shown = subprocess.run([os.path.join(TOOLS, "bulk_loop"), path, "times"], capture_output=True, text=True, check=True)
    return [[int(word) for word in line.split()] for line in shown.stdout.splitlines()]


def fastest(rounds, kind):
    """Milliseconds, of each transfer the fastest of all rounds."""
    return sum(min(one[i][kind] for one in rounds) for i in range(len(rounds[0]))) / 1e6


# The machine's other work takes ten times as long as all of it, but only adds time: so of each transfer, and of each pause
# before one, the fastest of all rounds counts. The transfers are the same on both sides, which differ in the pauses alone.
# Both are a new process each time and keep the same log.
@step(f"download and read-back, at most {GOAL} times the bare loop")
def throughput():
    file = sample(FILE)
    job("load", "--ic", IC, file)
    path = os.path.join(WORK, "transfers")
    programs, loops = [], []
    for _ in range(ROUNDS):
        logged(path, *JOB, "--link", "usb", "load", "--ic", IC, file)
        logged(path + ".loop", os.path.join(TOOLS, "bulk_loop"), path)
        programs.append(times(path))
        loops.append(times(path + ".loop"))
    program, loop, inside = fastest(programs, 0), fastest(loops, 0), fastest(programs + loops, 1)
    ratio = (program + inside) / (loop + inside)
    seen = (f"ratio {ratio:.3f}: {len(programs[0])} transfers of {inside:.1f} ms, between them {program:.1f} ms against "
            f"{loop:.1f} ms, fastest of {ROUNDS} rounds")
    check(ratio <= GOAL, seen)
    return seen
