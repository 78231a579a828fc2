# SPDX-License-Identifier: MIT
"""The same reports from every build and in every locale, byte for byte."""

import random
import subprocess

from ground import TASKS, Outcome
from systemlocales import LOCALES, locale_environment, make_locale

# Builds beside the one at hand: folder below build/, and what CMake is told.
BUILDS = {
    "clang": ["-DCMAKE_CXX_COMPILER=clang++", "-DCMAKE_BUILD_TYPE=Release"],
    "sanitized": ["-DHALVANE_SANITIZE=ON", "-DCMAKE_BUILD_TYPE=RelWithDebInfo"],
    "fuzz": [
        "-DCMAKE_CXX_COMPILER=clang++",
        "-DHALVANE_FUZZ=ON",
        "-DHALVANE_SANITIZE=ON",
        "-DCMAKE_BUILD_TYPE=RelWithDebInfo",
    ],
}
PLAIN = ["-GNinja", "-DHALVANE_PANELS=OFF", "-DHALVANE_TESTS=OFF", "-DHALVANE_BENCHMARKS=OFF"]
BUILDING_SCALE = 0.005  # from here on a build that is not there is made


def build_folder(ground, name):
    return ground.source / "build/campaign" / name


def made_build(ground, name, targets):
    """The folder of another build, made where that is wanted; None where there is none."""
    folder = build_folder(ground, name)
    if not ground.makes_builds:
        return folder if (folder / "halvane/halvane-report").exists() else None
    for words in (["cmake", "-S", ground.source, "-B", folder, *PLAIN, *BUILDS[name]], ["cmake", "--build", folder, "--target", *targets]):
        if subprocess.run([str(word) for word in words], stdout=subprocess.DEVNULL).returncode != 0:
            return None
    return folder


def settings_of(rng):
    """Random settings of every tool, sound ones."""
    latitude, longitude = rng.randrange(0, 60), rng.randrange(0, 180)
    east, north = rng.choice(("#TRUE#", "#FALSE#")), rng.choice(("#TRUE#", "#FALSE#"))
    year = rng.randrange(1600, 2400)
    start = f"{year},{rng.randrange(1, 13)},{rng.randrange(1, 28)}"
    zone = round(longitude / 15) * (1 if east == "#TRUE#" else -1)
    seconds = rng.choice("01")
    return {
        "pref.vsk": f'{rng.randrange(12, 20)}.5,17,4,1,10,1,0,0,0,"{rng.choice("01")}","0","{rng.choice("01")}","{seconds}",#TRUE#,"1","1",0,0',
        "loc.vsk": f'"قرية, İstanbul",{longitude},{rng.randrange(60)},7.25,{latitude},30,0,{rng.randrange(2000)},{zone},{east},{north},#FALSE#,#FALSE#,0,1010,10',
        "date.vsk": f"#FALSE#,{year},1,1,{year},3,31,{year},1,1,{year},3,31,{year},1,1,#TRUE#,#FALSE#",
        "phase.vsk": f'"{year}",#FALSE#,#TRUE#',
        "visib.vsk": f'"17","{rng.randrange(1, 13)}","{year}",#TRUE#,#FALSE#,#FALSE#,#TRUE#,#FALSE#,#FALSE#,#FALSE#,#TRUE#,#FALSE#,"18","0",#TRUE#,#FALSE#,8,"1447"',
        "coor.vsk": f"{rng.randrange(2)},#TRUE#,#FALSE#,{start},0,0,0,{year + 1},1,1,0,0,0,1,3,0",
        "tele.vsk": f"{start},{rng.randrange(24)},15,#FALSE#,#TRUE#,#TRUE#,#FALSE#,0,1",
    }


def everything(ground, program, settings, environment):
    """What every task of a batch program writes and prints."""
    results = {}
    with ground.folder() as folder:
        for name, record in settings.items():
            (folder / name).write_text(record + "\r\n", encoding="utf-8", newline="")
        works = {task: ([task], report) for task, report in TASKS.items()}
        works["map"] = (["map", "--csv", str(folder / "map.csv"), "--output", str(folder / "made.gif")], "map.csv")
        for task, (words, report) in works.items():
            ended = ground.run(
                [program, "--folder", folder, "--now", "2026-06-21T15:07", *words], environment=environment, seconds=120
            )
            written = (folder / report).read_bytes() if report and (folder / report).exists() else b""
            printed = (ended.out + ended.err).replace(str(folder), "FOLDER")
            results[task] = (ended.status, printed, written)
        results["picture"] = (folder / "made.gif").read_bytes() if (folder / "made.gif").exists() else b""
    return results


def judge_alike(title, first, other):
    return [f"{title}: {task} differs" for task in first if first[task] != other[task]]


def judge_whole(results):
    """The reports that are compared are there at all."""
    return [f"{task}: {result[1][:200]}" for task, result in results.items() if task != "picture" and result[0] not in (0, 1)]


def builds(ground):
    rng = random.Random(ground.seed)
    rounds = ground.times(300)
    outcome = Outcome(f"all reports of {rounds} settings by the GCC, Clang and two sanitized builds")
    programs = {}
    for name in BUILDS:
        folder = made_build(ground, name, ["halvane-report"])
        if folder is None:
            outcome.note(f"no {name} build here (--builds make)")
        else:
            programs[name] = folder / "halvane/halvane-report"
    for _ in range(rounds):
        settings = settings_of(rng)
        first = everything(ground, ground.report, settings, ground.environment())
        outcome.findings += judge_whole(first)
        for name, program in programs.items():
            outcome.findings += judge_alike(f"{name} build", first, everything(ground, program, settings, ground.environment()))
    outcome.done = f"{rounds * len(programs)} comparisons with {', '.join(programs) or 'no other build'}"
    return outcome


def made_locales(ground, outcome):
    """Makes the locales in a folder of the run; returns the variables of those that are in force there."""
    folder = ground.base / "locales"
    folder.mkdir(exist_ok=True)
    made = {"C": {"LC_ALL": "C", "LANG": "C"}}
    for name in LOCALES:
        trouble = make_locale(folder, name)
        if trouble:
            outcome.note(trouble)
        else:
            made[name] = locale_environment(folder, name)
    return made


def locales(ground):
    rng = random.Random(ground.seed)
    rounds = ground.times(300)
    outcome = Outcome(f"all reports of {rounds} settings in {len(LOCALES) + 1} locales, by batch program and panels")
    made = made_locales(ground, outcome)
    soak = ground.build / "tools/campaign/halvane-soak"
    for _ in range(rounds):
        settings = settings_of(rng)
        first = None
        for name, variables in made.items():
            environment = ground.environment(**variables)
            results = everything(ground, ground.report, settings, environment)
            first = first or results
            outcome.findings += judge_whole(results)
            outcome.findings += judge_alike(name, first, results)
            if soak.exists():
                outcome.findings += judge_panels(name, results, panel_reports(ground, soak, settings, environment))
    outcome.done = f"{rounds * len(made)} runs in {', '.join(made)}"
    return outcome


def panel_reports(ground, soak, settings, environment):
    """The reports that the panels write of the same settings."""
    with ground.folder() as folder:
        for name, record in settings.items():
            (folder / name).write_text(record + "\r\n", encoding="utf-8", newline="")
        ended = ground.run([soak, folder, "reports"], environment=environment, seconds=120)
        if ended.status != 0:
            return ended
        return {name: (folder / name).read_bytes() for name in ("prayer.out", "mresults.out")}


def judge_panels(title, results, panels):
    if not isinstance(panels, dict):
        return [f"panels in {title}: {panels.story()}"]
    wanted = {"prayer.out": results["prayer"][2], "mresults.out": results["moon"][2]}
    return [f"panels in {title}: {name} differs" for name in wanted if panels[name] != wanted[name]]
