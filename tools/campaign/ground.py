# SPDX-License-Identifier: MIT
"""Where the campaign works: the programs, folders of its own, processes under limits, and the table of results."""

import contextlib
import dataclasses
import os
import pathlib
import resource
import shutil
import signal
import subprocess
import tempfile
import time

SERIES = ["term.vsk", "termfull.vsk", "mterm.vsk", "elp.vsk"]
RECORDS = ["pref.vsk", "loc.vsk", "date.vsk", "phase.vsk", "visib.vsk", "coor.vsk", "tele.vsk", "alert.vsk"]
LISTS = ["loc.txt", "zones.csv", "world.txt"]
PICTURES = ["map.gif", "qmap.gif"]

# The tasks of the batch program and the report of each; None where it prints.
TASKS = {
    "prayer": "results.out",
    "moon": "mresults.out",
    "today": None,
    "phases": "results.out",
    "crescent": "visib.out",
    "qibla-sun": "results.out",
    "qibla-shadow": "results.out",
    "ephemeris": "ephemeris.out",
    "telescope": None,
}

NOW = "2026-06-21T15:07"


@dataclasses.dataclass
class Ended:
    """How a process ended. A negative status is the signal that ended it; None is one that did not end."""

    status: int | None
    out: str
    err: str
    seconds: float
    peak: int  # the most memory it held [MB]

    def story(self):
        end = "did not end" if self.status is None else f"status {self.status}"
        if self.status is not None and self.status < 0:
            end = f"ended by {signal.Signals(-self.status).name}"
        return f"{end}; it said {(self.err or self.out).strip()[:300]!r}"


@dataclasses.dataclass
class Outcome:
    """What a check was asked for, what it did, and what it found."""

    asked: str
    done: str = ""
    findings: list = dataclasses.field(default_factory=list)
    notes: list = dataclasses.field(default_factory=list)

    def find(self, words):
        self.findings.append(words)

    def note(self, words):
        self.notes.append(words)


class Ground:
    def __init__(self, source, build, scale, seed, makes_builds=False):
        self.source = pathlib.Path(source).resolve()
        self.build = pathlib.Path(build).resolve()
        self.scale = scale
        self.seed = seed
        self.makes_builds = makes_builds
        memory = pathlib.Path("/dev/shm")
        base = memory if memory.is_dir() and os.access(memory, os.W_OK) else None
        self.base = pathlib.Path(tempfile.mkdtemp(prefix="halvane-campaign-", dir=base))
        os.chmod(self.base, 0o755)
        self.home = self.base / "home"
        self.home.mkdir()

    def close(self):
        shutil.rmtree(self.base, ignore_errors=True)

    @property
    def data(self):
        return self.source / "data"

    @property
    def programs(self):
        return self.build / "halvane"

    @property
    def report(self):
        return self.programs / "halvane-report"

    @property
    def probe(self):
        return self.build / "tools/campaign/halvane-probe"

    def times(self, at_full_scale, least=1):
        """How often a work of so many rounds at scale 1 is done at this scale."""
        return max(least, round(at_full_scale * self.scale))

    @contextlib.contextmanager
    def folder(self):
        """A program folder of its own with every delivered file; removed at the end."""
        path = pathlib.Path(tempfile.mkdtemp(prefix="folder", dir=self.base))
        path.chmod(0o755)
        for name in SERIES + RECORDS + LISTS + PICTURES:
            shutil.copy(self.data / name, path / name)
        try:
            yield path
        finally:
            for root, folders, _ in os.walk(path):
                for name in folders:
                    with contextlib.suppress(OSError):
                        os.chmod(os.path.join(root, name), 0o755)
            shutil.rmtree(path, ignore_errors=True)

    def environment(self, **more):
        kept = {name: os.environ[name] for name in ("PATH", "LANG") if name in os.environ}
        return {
            **kept,
            "HOME": str(self.home),
            "XDG_RUNTIME_DIR": str(self.home),
            "LC_ALL": "C.UTF-8",
            "QT_QPA_PLATFORM": "offscreen",
            "QT_LOGGING_RULES": "*=false",
            "LSAN_OPTIONS": f"suppressions={self.source / 'tests/leaks.supp'}:print_suppressions=0",
            **more,
        }

    def run(
        self,
        words,
        seconds=120,
        memory=None,
        file_size=None,
        user=None,
        environment=None,
        cwd=None,
        stdout=subprocess.PIPE,
    ):
        """Runs a program to its end, or kills it after `seconds`; `memory` is the most that it gets [MB]."""

        def restrict():
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
            if memory is not None:
                resource.setrlimit(resource.RLIMIT_AS, (memory << 20, memory << 20))
            if file_size is not None:
                resource.setrlimit(resource.RLIMIT_FSIZE, (file_size, file_size))
            if user is not None:
                os.setgroups([])
                os.setgid(user)
                os.setuid(user)

        start = time.monotonic()
        with tempfile.TemporaryFile(dir=self.base) as out, tempfile.TemporaryFile(dir=self.base) as err:
            process = subprocess.Popen(
                [str(word) for word in words],
                stdin=subprocess.DEVNULL,
                stdout=out if stdout == subprocess.PIPE else stdout,
                stderr=err,
                preexec_fn=restrict,
                env=environment or self.environment(),
                cwd=cwd or self.home,
            )
            status, peak = None, 0
            while status is None:
                pid, code, usage = os.wait4(process.pid, os.WNOHANG)
                if pid != 0:
                    status, peak = os.waitstatus_to_exitcode(code), usage.ru_maxrss // 1024
                    break
                if time.monotonic() - start > seconds:
                    process.kill()
                    _, _, usage = os.wait4(process.pid, 0)
                    peak = usage.ru_maxrss // 1024
                    break
                time.sleep(0.001)
            process.returncode = 0 if status is None else status
            texts = []
            for stream in (out, err):
                stream.seek(0)
                texts.append(stream.read(1 << 24).decode("utf-8", "replace"))
        return Ended(status, texts[0], texts[1], time.monotonic() - start, peak)

    def run_report(self, folder, *words, **options):
        return self.run([self.report, "--folder", folder, "--now", NOW, *words], **options)

    def run_probe(self, folder, *words, **options):
        return self.run([self.probe, folder, *words], **options)

    def rows(self, folder, *words):
        """The probe's rows, one by one; a probe that fails ends the check."""
        with subprocess.Popen(
            [str(self.probe), str(folder), *map(str, words)],
            stdout=subprocess.PIPE,
            text=True,
            encoding="utf-8",
            env=self.environment(),
        ) as process:
            for line in process.stdout:
                yield line.rstrip("\r\n")
        if process.returncode != 0:
            raise RuntimeError(f"the probe ended with status {process.returncode}: {' '.join(map(str, words))}")


def table(results):
    """The results as rows of a Markdown table, name by name."""
    lines = ["| check | asked | done | findings |", "|---|---|---|---:|"]
    for name, outcome in results:
        lines.append(f"| {name} | {outcome.asked} | {outcome.done} | {len(outcome.findings)} |")
    return lines
