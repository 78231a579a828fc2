# SPDX-License-Identifier: MIT
"""Files under damage, kills, full disks and two processes at once."""

import os
import random
import shutil
import signal
import subprocess
import time

from ground import LISTS, NOW, PICTURES, RECORDS, SERIES, TASKS, Outcome

NOBODY = 65534
LONGEST = 10  # [s] that a program may take to tell what is wrong with a file
MOST_MEMORY = 200  # [MB] that it may hold meanwhile
MEMORY = 1000  # [MB] of address space that it gets
EARLIER = b"an earlier report\r\n"

# What reads each file: a task of the batch program, or the reader itself where no task does.
READERS = {
    "pref.vsk": "today",
    "loc.vsk": "today",
    "date.vsk": "prayer",
    "phase.vsk": "phases",
    "visib.vsk": "crescent",
    "coor.vsk": "ephemeris",
    "tele.vsk": "telescope",
    "alert.vsk": None,
    "loc.txt": None,
    "term.vsk": "today",
    "termfull.vsk": "phases",
    "mterm.vsk": "moon",
    "elp.vsk": "moon",
    "map.gif": "map",
}


# --- damages ------------------------------------------------------------------------------------------------


def remove(path):
    path.unlink()


def empty(path):
    path.write_bytes(b"")


def make_folder(path):
    path.unlink()
    path.mkdir()


def make_pipe(path):
    path.unlink()
    os.mkfifo(path)


def make_endless(path):
    path.unlink()
    path.symlink_to("/dev/zero")


def make_loop(path):
    path.unlink()
    path.symlink_to(path.name)


def make_huge(path):
    """Its own content again and again, up to 100 MB."""
    content = path.read_bytes()
    with path.open("wb") as stream:
        for _ in range(100_000_000 // len(content)):
            stream.write(content)


def forbid(path):
    path.chmod(0)


def make_binary(rng):
    def damage(path):
        path.write_bytes(b"\xff\x00" + rng.randbytes(5000))

    return damage


def cut(rng):
    def damage(path):
        content = path.read_bytes()
        path.write_bytes(content[: rng.randrange(len(content))])

    return damage


def change_bytes(rng):
    def damage(path):
        content = bytearray(path.read_bytes())
        for _ in range(rng.choice((1, 1, 2, 8))):
            content[rng.randrange(len(content))] = rng.choice(b"0123456789,.-\"#eE\r\n\x00\xff " + rng.randbytes(4))
        path.write_bytes(content)

    return damage


def enlarge_number(rng):
    """Another number in place of one field."""

    def damage(path):
        content = path.read_bytes()
        fields = content.split(b",")
        numbers = (b"1e308", b"-1e308", b"1e18", b"-1", b"0", b"99999", b"9" * 4000, b"1e-300", b"0.5", b"2147483648")
        fields[rng.randrange(len(fields))] = rng.choice(numbers)
        path.write_bytes(b",".join(fields))

    return damage


# Damages after which the file cannot be read at all, and damages that may leave it readable.
FATAL = {
    "missing": remove,
    "empty": empty,
    "a directory": make_folder,
    "a pipe": make_pipe,
    "an endless device": make_endless,
    "a link to itself": make_loop,
    "100 MB": make_huge,
    "no right": forbid,
}
# What is no damage to the reader: an empty list has no places, and without a picture of its own a folder takes the
# program's.
HARMLESS = {("loc.txt", "empty"), ("map.gif", "missing"), ("map.gif", "a link to itself")}
RANDOM = {"binary": make_binary, "cut": cut, "changed bytes": change_bytes, "another number": enlarge_number}


def read_damaged(ground, folder, name, as_user):
    task = READERS[name]
    user = NOBODY if as_user and os.getuid() == 0 else None
    options = {"seconds": LONGEST, "memory": MEMORY, "user": user, "file_size": 1 << 28}
    if user is not None:
        for path in (folder, *folder.iterdir()):
            shutil.chown(path, user, user) if not path.is_symlink() else None
    if task is None:
        return ground.run_probe(folder, "read", name, **options)
    words = [task, "--output", folder / "made.gif"] if task == "map" else [task]
    return ground.run_report(folder, *words, **options)


def judge_damaged(name, damage, ended, fatal, report_is_kept):
    """What is wrong with the end of a program that has read a damaged file."""
    head = f"{name}, {damage}:"
    if ended.status is None or ended.status < 0:
        return [f"{head} {ended.story()}"]
    wrong = []
    if ended.peak > MOST_MEMORY:
        wrong.append(f"{head} it held {ended.peak} MB")
    if ended.status == 0:
        if fatal:
            wrong.append(f"{head} taken without a word")
        elif "nan" in ended.out.lower() or "inf" in ended.out.lower().split():
            wrong.append(f"{head} {ended.story()}")
        return wrong
    if ended.status != 1:
        wrong.append(f"{head} {ended.story()}")
    if not ended.err.strip():
        wrong.append(f"{head} it ended with status {ended.status} and no word")
    if fatal and name not in ended.err:
        wrong.append(f"{head} its words do not name the file: {ended.story()}")
    if not report_is_kept:
        wrong.append(f"{head} the earlier report is lost")
    return wrong


def damage_once(ground, name, title, damage, fatal):
    with ground.folder() as folder:
        report = TASKS.get(READERS[name] or "")
        if report:
            (folder / report).write_bytes(EARLIER)
        # A number may ask for a long run: a day is enough where the file is not the date's own.
        if name != "date.vsk":
            set_period(folder, (2026, 6, 21), (2026, 6, 23))
        damage(folder / name)
        ended = read_damaged(ground, folder, name, as_user=title == "no right")
        kept = not report or ended.status == 0 or (folder / report).read_bytes() == EARLIER
        return judge_damaged(name, title, ended, fatal, kept)


def set_period(folder, first, last):
    """Makes the calculation date a period."""
    days = ",".join(str(number) for number in (*first, *last) * 2 + first)
    (folder / "date.vsk").write_bytes(f"#FALSE#,{days},#TRUE#,#FALSE#\r\n".encode())


def damages(ground):
    rng = random.Random(ground.seed)
    rounds = ground.times(400)
    asked = len(READERS) * (len(FATAL) + rounds * len(RANDOM))
    outcome = Outcome(f"{asked} damages of {len(READERS)} files, {len(FATAL) + len(RANDOM)} kinds")
    done = 0
    for name in READERS:
        for title, damage in FATAL.items():
            outcome.findings += damage_once(ground, name, title, damage, (name, title) not in HARMLESS)
            done += 1
        for _ in range(rounds):
            for title, make in RANDOM.items():
                fatal = title == "binary"
                if name in PICTURES and title == "another number":
                    title, make = "changed bytes", change_bytes
                outcome.findings += damage_once(ground, name, title, make(rng), fatal)
                done += 1
    outcome.done = f"{done} damages"
    return outcome


# --- no room to write ---------------------------------------------------------------------------------------

FULL_DISK = """
set -eu
mount -t tmpfs -o size=2m none "$1"
cp -r "$2/." "$1/"
dd if=/dev/zero of="$1/filler" bs=4096 2>/dev/null || true
shift 2
exec "$@"
"""


def has_small_disks(ground):
    words = ["unshare", "-rm", "mount", "-t", "tmpfs", "-o", "size=1m", "none", ground.home]
    return shutil.which("unshare") is not None and ground.run(words).status == 0


def judge_full(task, ended, before, after, strays):
    wrong = []
    if ended.status != 1:
        wrong.append(f"{task}: {ended.story()}")
    elif not ended.err.strip():
        wrong.append(f"{task}: it ended with status 1 and no word")
    if before != after:
        wrong.append(f"{task}: the earlier file is lost")
    if strays:
        wrong.append(f"{task}: it left {', '.join(strays)}")
    return wrong


def write_without_room(ground, words, name):
    """A limit on the size of a file: every write fails after its first bytes."""
    with ground.folder() as folder:
        (folder / name).write_bytes(EARLIER)
        known = set(os.listdir(folder))
        set_period(folder, (2026, 1, 1), (2026, 12, 31))
        ended = ground.run([word.replace("FOLDER", str(folder)) for word in words], file_size=64)
        strays = sorted(set(os.listdir(folder)) - known)
        return judge_full(" ".join(words[1:]), ended, EARLIER, (folder / name).read_bytes(), strays)


def write_to_full_disk(ground, words, name):
    with ground.folder() as folder:
        (folder / name).write_bytes(EARLIER)
        set_period(folder, (2026, 1, 1), (2026, 12, 31))
        disk = folder / "disk"
        disk.mkdir()
        script = folder / "fill.sh"
        script.write_text(FULL_DISK)
        source = folder / "source"
        source.mkdir()
        for entry in SERIES + RECORDS + LISTS + PICTURES + [name]:
            if (folder / entry).exists():
                shutil.copy(folder / entry, source / entry)
        inner = " ".join(f"'{word.replace('FOLDER', str(disk))}'" for word in words)
        look = f"status=0; {inner} || status=$?; cmp -s '{disk}/{name}' '{source}/{name}' || echo CHANGED >&2; "
        look += f"for f in '{disk}'/*; do [ -e '{source}'/${{f##*/}} ] || echo STRAY ${{f##*/}} >&2; done; exit $status"
        ended = ground.run(["unshare", "-rm", "sh", script, disk, source, "sh", "-c", look])
        lines = ended.err.splitlines()
        strays = [line.split()[1] for line in lines if line.startswith("STRAY") and line.split()[1] != "filler"]
        after = b"" if "CHANGED" in lines else EARLIER
        ended.err = "\n".join(line for line in lines if line != "CHANGED" and not line.startswith("STRAY"))
        return [f"on a full disk, {words}" for words in judge_full(" ".join(words[1:]), ended, EARLIER, after, strays)]


def writers(ground):
    """What writes which file: the words of a command with FOLDER for the program folder."""
    report = [str(ground.report), "--folder", "FOLDER", "--now", NOW]
    works = [([*report, task], name) for task, name in TASKS.items() if name]
    works.append(([*report, "map", "--output", "FOLDER/made.gif"], "made.gif"))
    works.append(([*report, "map", "--csv", "FOLDER/made.csv"], "made.csv"))
    works += [([str(ground.probe), "FOLDER", "save", name, "2"], name) for name in SAVES]
    return works


SAVES = [*RECORDS, "loc.txt", "saved.txt", "saved.gif"]


def full_disk(ground):
    works = writers(ground)
    small_disks = has_small_disks(ground)
    outcome = Outcome(f"{len(works)} kinds of writing, on a full disk, beyond a limit of the file size and to /dev/full")
    done = 0
    for words, name in works:
        if name in ("loc.txt", *RECORDS):
            outcome.findings += keep_record(ground, words, name)
        else:
            outcome.findings += write_without_room(ground, words, name)
        done += 1
        if small_disks and name not in RECORDS and name != "loc.txt":
            outcome.findings += write_to_full_disk(ground, words, name)
            done += 1
    for task in (*TASKS, "--help"):
        with ground.folder() as folder, open("/dev/full", "wb") as full:
            set_period(folder, (2026, 6, 21), (2026, 6, 23))
            ended = ground.run_report(folder, task, stdout=full)
            if ended.status != 1 or not ended.err.strip():
                outcome.find(f"{task} > /dev/full: {ended.story()}")
            done += 1
    outcome.done = f"{done} writings"
    if not small_disks:
        outcome.note("no small disk can be mounted here: only the limit of the file size")
    return outcome


def keep_record(ground, words, name):
    """The same for a stored file: it stands as it was."""
    with ground.folder() as folder:
        before = (folder / name).read_bytes()
        known = set(os.listdir(folder))
        ended = ground.run([word.replace("FOLDER", str(folder)) for word in words], file_size=8)
        strays = sorted(set(os.listdir(folder)) - known)
        return judge_full(" ".join(words[2:]), ended, before, (folder / name).read_bytes(), strays)


# --- kills --------------------------------------------------------------------------------------------------


def kill_after(ground, words, seconds, how, ready=False):
    """Starts a program and kills it so long after its start, or after its first line."""
    process = subprocess.Popen(
        [str(word) for word in words], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, env=ground.environment()
    )
    if ready:
        process.stdout.readline()
    time.sleep(seconds)
    process.send_signal(how)
    try:
        process.communicate(timeout=LONGEST)
    except subprocess.TimeoutExpired:
        process.kill()
        process.communicate()
        return None
    return process.returncode


def judge_killed(title, content, whole, strays, how):
    wrong = []
    if content not in whole:
        found = "nothing" if content is None else f"{len(content)} bytes, {content[:60]!r} ..."
        wrong.append(f"{title}: after {how.name} it holds {found}")
    if strays and how != signal.SIGKILL:
        wrong.append(f"{title}: {how.name} left {', '.join(strays)}")
    return wrong


def content_of(path):
    return path.read_bytes() if path.exists() else None


def kill_saves(ground, name, rounds, rng, outcome):
    """Kills during the endless saves of one file."""
    with ground.folder() as folder:
        whole = []
        for content in ("1", "2"):
            ground.run_probe(folder, "save", name, content)
            whole.append(content_of(folder / name))
        if None in whole or whole[0] == whole[1]:
            outcome.find(f"{name}: no two contents to tell apart")
            return 0
        known = set(os.listdir(folder))
        states = set()
        for _ in range(rounds):
            how = rng.choice((signal.SIGKILL, signal.SIGTERM, signal.SIGINT, signal.SIGHUP))
            kill_after(ground, [ground.probe, folder, "save", name], rng.uniform(0, 0.012), how, ready=True)
            content = content_of(folder / name)
            states.add(content)
            strays = sorted(set(os.listdir(folder)) - known)
            outcome.findings += judge_killed(name, content, whole, strays, how)
            for stray in strays:
                (folder / stray).unlink()
        return rounds


def kill_reports(ground, words, name, rounds, rng, outcome):
    """Kills during a run: its file is the earlier one or the new one, whole."""
    with ground.folder() as folder:
        set_period(folder, (2026, 1, 1), (2026, 1, 31))
        command = [word.replace("FOLDER", str(folder)) for word in words]
        seconds = ground.run(command).seconds
        made = content_of(folder / name)
        if made is None:
            outcome.find(f"{' '.join(words[1:])} writes no {name}")
            return 0
        known = set(os.listdir(folder))
        for _ in range(rounds):
            (folder / name).write_bytes(EARLIER)
            how = rng.choice((signal.SIGKILL, signal.SIGTERM, signal.SIGHUP))
            if kill_after(ground, command, rng.uniform(0, 1.1 * seconds), how) is None:
                outcome.find(f"{' '.join(words[5:])}: {how.name} does not end it")
            strays = sorted(set(os.listdir(folder)) - known)
            outcome.findings += judge_killed(" ".join(words[5:]), content_of(folder / name), [EARLIER, made], strays, how)
            for stray in strays:
                (folder / stray).unlink()
        return rounds


def kills(ground):
    rng = random.Random(ground.seed)
    rounds = ground.times(2000, 3)
    works = [work for work in writers(ground) if str(ground.report) in work[0]]
    kinds = len(SAVES) + len(works)
    outcome = Outcome(f"{kinds * rounds:,} kills during {kinds} kinds of save")
    done = sum(kill_saves(ground, name, rounds, rng, outcome) for name in SAVES)
    done += sum(kill_reports(ground, words, name, rounds, rng, outcome) for words, name in works)
    outcome.done = f"{done:,} kills"
    return outcome


# --- two processes ------------------------------------------------------------------------------------------


def start(ground, words):
    return subprocess.Popen(
        [str(word) for word in words], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, env=ground.environment()
    )


def judge_places(names, wanted):
    missing = [name for name in wanted if names.count(name) == 0]
    double = [name for name in wanted if names.count(name) > 1]
    wrong = [f"{len(missing)} of {len(wanted)} places are missing"] if missing else []
    return wrong + ([f"{len(double)} places stand twice"] if double else [])


def add_side_by_side(ground, count, outcome):
    """Two processes add places to one list: every one is kept."""
    with ground.folder() as folder:
        before = (folder / "loc.txt").read_text(encoding="utf-8").count("\n")
        known = set(os.listdir(folder))
        both = [start(ground, [ground.probe, folder, "add-places", prefix, count]) for prefix in ("left", "right")]
        for process in both:
            _, err = process.communicate(timeout=300)
            if process.returncode != 0:
                outcome.find(f"two processes add places: {err.strip()}")
        lines = (folder / "loc.txt").read_text(encoding="utf-8").splitlines()
        names = [line.split('"')[1] for line in lines if line.startswith('"')]
        outcome.findings += judge_places(names, [f"{side}{i}" for side in ("left", "right") for i in range(count)])
        if len(lines) != before + 2 * count:
            outcome.find(f"the list has {len(lines)} lines, not {before + 2 * count}")
        strays = set(os.listdir(folder)) - known
        if any(name.startswith("temp") for name in strays):
            outcome.find(f"adding places left {', '.join(sorted(strays))}")
    return 2 * count


def read_beside_saves(ground, name, task, rounds, outcome):
    """A process reads a file that another saves without end: it never sees a part of one."""
    with ground.folder() as folder:
        saver = start(ground, [ground.probe, folder, "save", name])
        saver.stdout.readline()
        for _ in range(rounds):
            ended = ground.run_report(folder, task)
            if ended.status != 0:
                outcome.find(f"{task} beside saves of {name}: {ended.story()}")
        saver.kill()
        saver.communicate()
    return rounds


def report_side_by_side(ground, task, name, rounds, outcome):
    """Two processes write one report: it is the whole report of either."""
    with ground.folder() as folder:
        set_period(folder, (2026, 1, 1), (2026, 1, 31))
        ground.run_report(folder, task)
        whole = (folder / name).read_bytes()
        known = set(os.listdir(folder))
        for _ in range(rounds):
            words = [ground.report, "--folder", folder, "--now", NOW, task]
            for process in [start(ground, words) for _ in range(2)]:
                _, err = process.communicate(timeout=60)
                if process.returncode != 0:
                    outcome.find(f"two processes write {name}: {err.strip()}")
            if (folder / name).read_bytes() != whole:
                outcome.find(f"two processes write {name}: it is the report of neither")
        strays = sorted(set(os.listdir(folder)) - known)
        if strays:
            outcome.find(f"two processes write {name} and leave {', '.join(strays)}")
    return 2 * rounds


PLACES = 100  # that each of two processes adds to a list


def two_processes(ground):
    lists = ground.times(200)
    rounds = ground.times(2000, 5)
    reading = {"pref.vsk": "today", "loc.vsk": "today", "phase.vsk": "phases", "visib.vsk": "crescent", "tele.vsk": "telescope"}
    reports = {task: name for task, name in TASKS.items() if name}
    asked = 2 * lists * PLACES + len(reading) * rounds + 2 * len(reports) * rounds
    outcome = Outcome(f"{asked:,} additions, readings and reports of two processes on one folder")
    done = sum(add_side_by_side(ground, PLACES, outcome) for _ in range(lists))
    done += sum(read_beside_saves(ground, name, task, rounds, outcome) for name, task in reading.items())
    done += sum(report_side_by_side(ground, task, name, rounds, outcome) for task, name in reports.items())
    outcome.done = f"{done:,} of them"
    return outcome
