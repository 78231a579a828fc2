#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""commandpages_test.py SOURCE REPORT MAKER: the manual's page, the completions and docs/settings.md against the help.

Every task and option of the help stands in each of them, bash completes what it should, the shells that are there take
their scripts, man has no warning, every example of a help runs, and docs/settings.md is what the lists make.
"""

import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

source, report, maker = (pathlib.Path(word).resolve() for word in sys.argv[1:4])


def run(*command, **options):
    return subprocess.run([str(word) for word in command], capture_output=True, text=True, check=False, **options)


def expect(holds, what):
    if not holds:
        sys.exit(f"FAILED: {what}")


def told(*command, **options):
    done = run(*command, **options)
    expect(done.returncode == 0, f"{command}: {done.stderr}")
    return done.stdout


def options_of(help_text):
    return re.findall(r"^\s+(?:-\w,)?(--[\w-]+)", help_text, re.MULTILINE)


def tasks_of(help_text):
    return re.findall(r"^  ([a-z][\w-]*) ", help_text.split("Subcommands:\n")[1].split("\n\n")[0], re.MULTILINE)


folder = pathlib.Path(tempfile.mkdtemp())
pages = {}
for kind in ("man", "bash", "zsh", "fish"):
    told(maker, kind, folder / kind)
    pages[kind] = (folder / kind).read_text(encoding="utf-8")
main_help = told(report, "--help")
tasks = tasks_of(main_help)
expect(len(tasks) >= 18 and {"next", "day", "prayer", "hijri"} <= set(tasks), f"tasks {tasks}")

# --- Every task and option ---
helps = {task: told(report, task, "--help") for task in tasks}
sections = dict(re.findall(r"\.SS (\S+)\n(.*?)(?=\.SS |\.SH )", pages["man"].replace("\\-", "-"), re.DOTALL))
bash_words = dict(re.findall(r"^ +([a-z][\w-]*)\) words='([^']*)' ;;$", pages["bash"], re.MULTILINE))
for task, text in helps.items():
    options = options_of(text)
    expect("--help" in options and "Exit status:\n  0 " in text, f"{task} --help")
    page = sections.get(task, "")
    paged = re.findall(r"\\fB(--[\w-]+)\\fR", page)
    expect(sorted(set(options)) == sorted(set(paged)), f"the page of {task}: {set(options) ^ set(paged)}")
    expect(sorted(set(options)) == sorted(bash_words[task].split()), f"bash: {task}")
    zsh = re.search(rf"^ +{task}\)\n +_arguments(.*?)\n +;;$", pages["zsh"], re.DOTALL | re.MULTILINE)
    expect(sorted(set(options)) == sorted(set(re.findall(r"'\*?(--[\w-]+)\[", zsh[1]))), f"zsh: {task}")
    fish = re.findall(rf"__fish_seen_subcommand_from {task}' -l ([\w-]+)", pages["fish"])
    expect(sorted(set(options)) == sorted("--" + name for name in fish), f"fish: {task}")
    for example in re.findall(r"^  (halvane-report .*)$", text, re.MULTILINE):
        expect(example in page, f"the page of {task} has not {example}")

# --- Examples ---
has_paper = (report.parent / "halvane-paper").exists()
for task, text in helps.items():
    examples = re.findall(r"^  halvane-report (.*)$", text, re.MULTILINE)
    expect(examples and all(task in example.split() for example in examples), f"examples of {task}")
    for example in examples:
        if not has_paper and re.search(r"\.pdf|--format pdf|^atlas", example):
            continue
        with tempfile.TemporaryDirectory() as place:
            done = run(report, "--folder", place, *example.split(), cwd=place)
            expect(done.returncode == 0 and not done.stderr, f"{example}: {done.stderr}")
            expect(done.stdout.strip(), f"{example} tells nothing")

# --- Rows ---
document = (source / "docs/data.md").read_text(encoding="utf-8")
for task in ("day", "sun"):
    made = json.loads(told(report, "--folder", folder, task, "--date", "2026-02-18", "--format", "json"))
    section = re.search(rf"^### Rows of `{task}`\n(.*?)^#", document, re.MULTILINE | re.DOTALL)
    rows = re.findall(r"^\| `(\w+)` \| (.*?) \| (\w+) \| (.*?) \|$", section[1], re.MULTILINE)
    expect(rows == [(c["key"], c["unit"], c["type"], c["heading"]["en"]) for c in made["columns"]], f"rows of {task}")

# --- Shells ---
def completed(*words):
    line = " ".join(f"'{word}'" for word in words)
    script = f"""source '{folder / "bash"}'; COMP_WORDS=({line}); COMP_CWORD={len(words) - 1}; _halvane_report
                 printf '%s\\n' "${{COMPREPLY[@]}}" """
    return [word for word in told("bash", "-c", script, cwd=folder).split("\n") if word]


expect(sorted(tasks) == sorted(word for word in completed("halvane-report", "") if not word.startswith("-")), "tasks")
expect(completed("halvane-report", "ne") == ["next"], "ne")
expect(completed("halvane-report", "next", "--js") == ["--json"], "next --js")
expect(completed("halvane-report", "--now", "2026-02-18T12:00", "prayer", "--fo") == ["--format"], "prayer --fo")
expect(completed("halvane-report", "prayer", "--js") == [], "prayer --js")
expect(completed("halvane-report", "prayer", "--set", "pref.fajer") == ["pref.fajer-angle="], "--set pref.fajer")
expect(set(completed("halvane-report", "prayer", "--format", "")) == {"text", "csv", "json"}, "prayer --format")
expect(set(completed("halvane-report", "watch", "--format", "")) == {"pdf", "png", "csv"}, "watch --format")
expect(completed("halvane-report", "timetable", "--profile", "mw") == ["mwl"], "timetable --profile mw")
expect(set(completed("halvane-report", "map", "--day", "")) == {"0", "1", "2", "all"}, "map --day")
rules = re.findall(r"^([a-z0-9-]+)", told(report, "hijri", "--list-rules"), re.MULTILINE)
expect(len(rules) > 10 and set(completed("halvane-report", "hijri", "--rule", "")) == {*rules, "announced"},
       "hijri --rule")
expect(completed("halvane-report", "prayer", "--place", "") == [], "prayer --place")
expect(set(completed("halvane-report", "prayer", "--output", "")) == {"man", "bash", "zsh", "fish"}, "files")
for shell in ("bash", "zsh", "fish"):
    if shutil.which(shell):
        told(shell, "-n", folder / shell)
    else:
        print(f"{shell} is not installed: its script is not read by it")
if shutil.which("man"):
    for page in [folder / "man", *sorted((source / "packaging/debian").glob("*.1"))]:
        done = run("man", "--warnings", "-E", "UTF-8", "-l", page)
        expect(done.returncode == 0 and not done.stderr and len(done.stdout) > 300, f"man {page}: {done.stderr}")
else:
    print("man is not installed: the pages are not read by it")

# --- Settings ---
expect(told(maker, "settings", source / "data") == (source / "docs/settings.md").read_text(encoding="utf-8"),
       "docs/settings.md: write it with makecommandpages settings data")
for wrong in ((), ("man",), ("text", folder / "x"), ("settings", folder)):
    expect(run(maker, *wrong).returncode != 0, f"makecommandpages {wrong}")
shutil.rmtree(folder)
print("passed")
