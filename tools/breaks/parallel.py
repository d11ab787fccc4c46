"""Work on several workshops at a time."""

import signal
import threading

from .workshop import Stopped


def stop(workshops, number):
    for workshop in workshops:
        workshop.stop.set()
        workshop.end(number)


def in_parallel(work, workshops):
    """Runs it for each of the workshops on a thread of its own; the first error ends all of them."""
    errors = []

    def guarded(workshop):
        try:
            work(workshop)
        except Stopped:
            pass
        except BaseException as error:  # What happens on the thread is told by the one that waits.
            errors.append(error)
            stop(workshops, signal.SIGTERM)

    threads = [threading.Thread(target=guarded, args=(workshop,), daemon=True) for workshop in workshops]
    for thread in threads:
        thread.start()
    try:
        for thread in threads:
            while thread.is_alive():
                thread.join(0.2)
    except BaseException:
        for number in (signal.SIGTERM, signal.SIGKILL):
            stop(workshops, number)
            for thread in threads:
                thread.join(5)
        raise
    if errors:
        raise errors[0]
