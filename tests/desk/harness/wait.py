"""Waiting for a condition, with a deadline; the stories never sleep."""
import time

DEADLINE = 30  # seconds; met in a fraction of one unless the machine is very busy
INTERVAL = 0.02


def wait_for(condition, what, deadline=DEADLINE):
    """Returns the first true value of `condition()`; fails with `what` after the deadline."""
    end = time.monotonic() + deadline
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"waited {deadline} s in vain for {what}")
        time.sleep(INTERVAL)
