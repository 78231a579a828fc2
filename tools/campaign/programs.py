# SPDX-License-Identifier: MIT
"""Whatever is typed: fuzz targets, command lines, and keys on the panels for a long time."""

import concurrent.futures
import os
import random
import re
import shutil
import signal
import string
import subprocess
import time

import likeness
from ground import Outcome

# --- fuzz targets -------------------------------------------------------------------------------------------


def targets(folder):
    return sorted(path for path in (folder / "fuzz").glob("*_fuzz") if os.access(path, os.X_OK))


def judge_target(name, ended, input_path):
    if ended.status == 0:
        return []
    kept = f"; the input: {input_path.read_bytes()[:200]!r}" if input_path and input_path.exists() else ""
    return [f"{name}: {ended.story()}{kept}"]


def longest(program):
    """The longest input of a target [bytes], as its build tells it."""
    return (program.parent / "longest" / program.name).read_text().strip()


def run_target(ground, program, seconds):
    """One target with its delivered seeds; a crash keeps its input. Returns the runs done and what was found."""
    name = program.name.removesuffix("_fuzz")
    work = ground.base / f"fuzz-{name}"
    corpus = work / "corpus"
    shutil.copytree(program.parent / "corpus" / name, corpus)
    words = [program, "-runs=1000000000", f"-max_total_time={seconds}", f"-seed={ground.seed}", f"-max_len={longest(program)}"]
    ended = ground.run([*words, f"-artifact_prefix={work}/", corpus], seconds=seconds + 60, cwd=work)
    kept = next((path for path in work.iterdir() if path.name.startswith(("crash", "timeout", "oom"))), None)
    found = re.search(r"Done (\d+) runs", ended.out + ended.err)
    wrong = judge_target(name, ended, kept)
    if not found and not wrong:
        wrong.append(f"{name}: it does not tell its runs: {ended.story()}")
    shutil.rmtree(work, ignore_errors=True)
    return int(found[1]) if found else 0, wrong


def fuzz(ground):
    seconds = max(1, round(900 * ground.scale))
    clang = likeness.made_build(ground, "fuzz", ["all"])
    groups = {"mutations": targets(ground.build), "guided ones by libFuzzer with sanitizers": targets(clang) if clang else []}
    count = sum(len(programs) for programs in groups.values())
    outcome = Outcome(f"{count} fuzz targets, {seconds} s each")
    told = []
    for title, programs in groups.items():
        done = 0
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            for runs, wrong in pool.map(lambda program: run_target(ground, program, seconds), programs):
                done += runs
                outcome.findings += wrong
        told.append(f"{done:,} {title} of {len(programs)} targets")
    if not groups["mutations"]:
        outcome.find("no fuzz target is built")
    if not clang:
        outcome.note("no sanitized Clang build here (--builds make): no guided fuzzing")
    outcome.done = "; ".join(told)
    return outcome


# --- command lines ------------------------------------------------------------------------------------------

TASK_WORDS = ["prayer", "moon", "today", "phases", "crescent", "map", "qibla-sun", "qibla-shadow", "ephemeris", "telescope"]
ODD_TEXTS = ["", " ", "-", "--", "0", "-1", "1e308", "nan", "inf", "٣", "9" * 400, "%s%n", "\x01", "\t", "a b", "'", '"', "ذ" * 200, "--help", "2026-13-45T99:99", "-9999-01-01T00:00", "9999-12-31T23:59", "0000-01-01T00:00", "1e-320", "+5", "0x10"]


def random_text(rng):
    if rng.random() < 0.6:
        return rng.choice(ODD_TEXTS)
    letters = string.ascii_letters + string.digits + "-+.,:T =_%£ذ٣"
    return "".join(rng.choice(letters) for _ in range(rng.randrange(1, 30)))


def random_words(rng):
    """A command line of known and unknown words; no file name leads out of the working folder."""
    words = []
    for _ in range(rng.randrange(0, 5)):
        kind = rng.random()
        if kind < 0.25:
            words.append(rng.choice(TASK_WORDS))
        elif kind < 0.35:
            task = list(rng.choice(TASK_WORDS))
            task[rng.randrange(len(task))] = rng.choice(string.ascii_lowercase)
            words.append("".join(task))
        elif kind < 0.75:
            option = rng.choice(["--now", "--delta-t", "--day", "--criterion", "--csv", "--output", "--version", "--help"])
            value = random_text(rng)
            words += rng.choice([[option, value], [f"{option}={value}"], [option]])
        else:
            words.append(random_text(rng))
    return [word.replace("/", "_").replace("\x00", "") for word in words]


def judge_command(words, ended):
    title = " ".join(repr(word[:60]) for word in words)
    if ended.status not in (0, 1, 2):
        return [f"{title}: {ended.story()}"]
    if ended.status != 0 and not ended.err.strip():
        return [f"{title}: status {ended.status} and no word"]
    # The program tells the names of the files that it has written as they were typed.
    names = {word.split("=", 1)[-1] for word in words} | set(words)
    told = "\n".join(line for line in ended.out.splitlines() if line.rsplit("/", 1)[-1] not in names)
    if re.search(r"\b(nan|inf)\b", told, re.IGNORECASE) and ended.status == 0:
        return [f"{title}: it prints a number that is none"]
    return []


def command_lines(ground):
    rng = random.Random(ground.seed)
    count = ground.times(200_000, 150)
    outcome = Outcome(f"{count:,} command lines of known, mistyped and odd words")
    statuses = {}
    for start in range(0, count, 500):
        with ground.folder() as folder:
            work = folder / "work"
            work.mkdir()
            for _ in range(min(500, count - start)):
                words = random_words(rng)
                ended = ground.run([ground.report, "--folder", folder, *words], cwd=work)
                statuses[ended.status] = statuses.get(ended.status, 0) + 1
                outcome.findings += judge_command(words, ended)
    outcome.done = f"{sum(statuses.values()):,}: " + ", ".join(f"{n} with status {s}" for s, n in sorted(statuses.items(), key=str))
    return outcome


# --- a long soak --------------------------------------------------------------------------------------------

GROWTH = 40  # [MB] that a soak may add to what a program holds once warm


def judge_soak(ended):
    """The last line of the desktop's soak: keys, panels, runs, cancels, and memory at a tenth and at the end [MB]"""
    if ended.status != 0:
        return [f"the panels: {ended.story()}"], ""
    found = re.search(r"^soak: (\d+) keys, (\d+) panels, (\d+) cancels, (\d+) MB then (\d+) MB$", ended.out, re.MULTILINE)
    if not found:
        return [f"the panels: {ended.story()}"], ""
    keys, opened, cancels, first, last = (int(number) for number in found.groups())
    wrong = []
    if opened == 0 or keys == 0:
        wrong.append(f"the panels: {keys} keys opened {opened} panels")
    if last > first + GROWTH:
        wrong.append(f"the panels: memory grew from {first} to {last} MB")
    return wrong, f"{keys:,} keys, {opened} panels, {cancels} cancels, {first} to {last} MB"


def memory_of(pid):
    with open(f"/proc/{pid}/statm", encoding="ascii") as stream:
        return int(stream.read().split()[1]) * os.sysconf("SC_PAGE_SIZE") // 1_000_000


def disturb(folder, rng, good):
    """One thing that happens to a program's files while it runs, without a bad record ever standing there."""
    name = rng.choice(("pref.vsk", "loc.vsk", "alert.vsk"))
    beside = folder / "beside"
    content = good[name]
    if name == "pref.vsk":
        fields = content.split(b",")
        fields[7] = str(rng.randrange(-600, 600)).encode()  # minutes added to Dhohur: another alert comes due
        content = b",".join(fields)
    beside.write_bytes(content)
    os.replace(beside, folder / name)


def soak_alerts(ground, seconds, outcome):
    program = ground.programs / "alert63.exe"
    if not program.exists():
        outcome.note("no alert program is built here")
        return ""
    rng = random.Random(ground.seed)
    with ground.folder() as folder:
        for name in ("alert63.exe",):
            (folder / name).write_bytes(program.read_bytes())
            (folder / name).chmod(0o755)
        (folder / "alert.vsk").write_bytes(b"1,1,0,1,#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n")
        good = {name: (folder / name).read_bytes() for name in ("pref.vsk", "loc.vsk", "alert.vsk")}
        words = [str(folder / "alert63.exe")]
        with open(ground.base / "alerts.err", "wb") as err:
            process = subprocess.Popen(words, stdout=err, stderr=err, env=ground.environment(), cwd=ground.home)
        time.sleep(2)
        first = memory_of(process.pid) if process.poll() is None else 0
        end = time.monotonic() + seconds
        copies = 0
        while time.monotonic() < end and process.poll() is None:
            disturb(folder, rng, good)
            if rng.random() < 0.1:
                second = ground.run(words)
                copies += 1
                if second.status != 0:
                    outcome.find(f"a second copy of the alert program: {second.story()}")
            time.sleep(rng.uniform(0.02, 0.3))
        if process.poll() is not None:
            said = (ground.base / "alerts.err").read_text(errors="replace")[:300]
            outcome.find(f"the alert program ended with status {process.returncode}: {said}")
            return ""
        last = memory_of(process.pid)
        if last > first + GROWTH:
            outcome.find(f"the alert program: memory grew from {first} to {last} MB")
        process.send_signal(signal.SIGTERM)
        try:
            process.wait(20)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
            outcome.find("the alert program does not end by TERM")
        return f"alerts {seconds} s with {copies} second copies, {first} to {last} MB"


def soak(ground):
    seconds = max(6, round(14_400 * ground.scale))
    program = ground.build / "tools/campaign/halvane-soak"
    outcome = Outcome(f"{seconds} s of random keys and cancels on the panels, {seconds} s of alerts with files that change")
    if not program.exists():
        outcome.done = "nothing: the panels are not built here"
        return outcome
    with concurrent.futures.ThreadPoolExecutor() as pool, ground.folder() as folder:
        panels = pool.submit(ground.run, [program, folder, "keys", ground.seed, seconds], seconds=2 * seconds + 120)
        alerts = soak_alerts(ground, seconds, outcome)
        wrong, told = judge_soak(panels.result())
    outcome.findings += wrong
    outcome.done = "; ".join(words for words in (told, alerts) if words)
    return outcome
