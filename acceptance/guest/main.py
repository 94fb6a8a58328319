"""The steps in the guest, as an ordinary user. Each module adds its own."""
import os
import sys

import bench

PARTS = ["runner", "window", "faults", "throughput"]


def main():
    bench.prepare()
    wanted = os.environ.get("ONLY", "").split() or PARTS
    for part in PARTS:
        if part not in wanted:
            continue
        module = __import__(part)
        try:
            getattr(module, "begin", lambda: None)()
            bench.run_steps(part, getattr(module, "after_failure", None))
            getattr(module, "end", lambda: None)()
        except Exception as error:  # the other parts can still tell something
            bench.host(f"FAIL {part}: {type(error).__name__}: {error}")
    return 0


sys.exit(main())
