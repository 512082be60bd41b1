"""What a running process costs, as the system tells it."""

import os
import re
from dataclasses import dataclass
from pathlib import Path

TICK = os.sysconf("SC_CLK_TCK")  # of the system's accounts, in one second


@dataclass
class Figures:
    """One moment of a process. Times are in seconds since its start, memory is in kilobytes."""

    cpu: float  # of its threads that live
    accounted: float  # of all its threads, and of the children it has waited for; in steps of TICK
    voluntary: int  # how often its threads have given up the processor, to wait for something
    involuntary: int  # how often it was taken from them
    threads: int
    descriptors: int
    rss: int
    pss: int
    private: int
    anonymous: int  # heap, stacks and written data

    @property
    def switches(self):
        return self.voluntary + self.involuntary

    def __str__(self):
        return (
            f"Pss {self.pss / 1024:.2f} MB, private {self.private / 1024:.2f} MB, Rss {self.rss / 1024:.2f} MB, "
            f"anonymous {self.anonymous / 1024:.2f} MB, {self.threads} threads, {self.descriptors} descriptors")


def _number(text, key):
    return int(re.search(rf"^{key}:\s+(\d+)", text, re.MULTILINE).group(1))


def figures_of(pid):
    """What it is now; FileNotFoundError or ProcessLookupError when it has gone."""
    process = Path("/proc") / str(pid)
    tasks = [_task(task) for task in (process / "task").iterdir()]
    times = (process / "stat").read_text().rsplit(")", 1)[1].split()[11:15]
    memory = (process / "smaps_rollup").read_text()
    return Figures(
        cpu=sum(task[0] for task in tasks),
        accounted=sum(map(int, times)) / TICK,
        voluntary=sum(task[1] for task in tasks),
        involuntary=sum(task[2] for task in tasks),
        threads=len(tasks),
        descriptors=len(os.listdir(process / "fd")),
        rss=_number(memory, "Rss"),
        pss=_number(memory, "Pss"),
        private=_number(memory, "Private_Clean") + _number(memory, "Private_Dirty"),
        anonymous=_number(memory, "Anonymous"),
    )


def _task(folder):
    try:
        status = (folder / "status").read_text()
        nanoseconds = int((folder / "schedstat").read_text().split()[0])
    except (FileNotFoundError, ProcessLookupError):
        return 0.0, 0, 0  # it has just ended
    return nanoseconds / 1e9, _number(status, "voluntary_ctxt_switches"), _number(status, "nonvoluntary_ctxt_switches")


def names_of_threads(pid):
    names = []
    for task in (Path("/proc") / str(pid) / "task").iterdir():
        try:
            names.append((task / "comm").read_text().strip())
        except (FileNotFoundError, ProcessLookupError):
            pass  # it has just ended
    return sorted(names)
