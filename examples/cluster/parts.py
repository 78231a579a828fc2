# SPDX-License-Identifier: MIT
"""A long work in parts, one after the other or by the workers of a Dask cluster.

A part is a file that depends on its arguments alone. Whoever makes it writes it beside its place and renames it, so that
a file that is there is whole; a part whose file is there is not made again. So a work may be ended at any time and begun
again, a worker may be lost, and the files are the same for any number of workers. On a cluster of several machines the
folder must be one that all of them see.
"""

import argparse
import json
import os
import pathlib
import signal
import sys
import tempfile
import time

UNFINISHED = ".unfinished-"


def write_whole(path, data):
    """Puts a file into its place when it is complete and on the disk."""
    with tempfile.NamedTemporaryFile(dir=path.parent, prefix=UNFINISHED, delete=False) as file:
        file.write(data)
        file.flush()
        os.fsync(file.fileno())
    os.chmod(file.name, 0o644)
    os.replace(file.name, path)


def make_part(make, path, arguments):
    """Makes a part where it is not there yet."""
    path = pathlib.Path(path)
    if not path.exists():
        write_whole(path, make(*arguments))
    return path.name


def clear_unfinished(folder):
    """What workers that were killed have left. No one else may work on the folder."""
    for path in folder.glob(UNFINISHED + "*"):
        path.unlink(missing_ok=True)


def begin(folder, settings):
    """The folder of a work, with its settings; one that was begun with others is refused."""
    folder.mkdir(parents=True, exist_ok=True)
    path = folder / "settings.json"
    text = json.dumps(settings, indent=1, sort_keys=True) + "\n"
    if path.exists() and path.read_text(encoding="utf-8") != text:
        sys.exit(f"{folder} holds the work of other settings ({path}): give another folder, or remove it.")
    clear_unfinished(folder)
    if not path.exists():
        write_whole(path, text.encode())


def options(description, folder):
    """The options that every work has."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--folder", type=pathlib.Path, default=pathlib.Path(folder), help="of the files (%(default)s)")
    how = parser.add_mutually_exclusive_group()
    how.add_argument("--workers", type=int, default=os.cpu_count(), help="processes on this machine (%(default)s)")
    how.add_argument("--scheduler", help="address of the scheduler of a cluster, tcp://HOST:8786")
    how.add_argument("--serial", action="store_true", help="one part after the other, without Dask")
    return parser


def tell(done, count, begun):
    print(f"\r{done} of {count} parts, {time.monotonic() - begun:.1f} s", end="", file=sys.stderr, flush=True)


def on_cluster(chosen, tasks):
    """The names of the parts, as they are done.

    tasks: the arguments of `make_part`
    """
    import dask
    from dask.distributed import Client, LocalCluster, as_completed

    # A part that was on a lost worker is made by another one.
    dask.config.set({"distributed.scheduler.allowed-failures": 10})
    cluster = chosen.scheduler or LocalCluster(
        n_workers=chosen.workers, threads_per_worker=1, processes=True, dashboard_address="localhost:0"
    )
    with Client(cluster) as client:
        if chosen.scheduler:
            client.upload_file(__file__)
        pids = client.run(os.getpid).values()
        print("workers", *pids, file=sys.stderr, flush=True)
        futures = [client.submit(make_part, *task, pure=False) for task in tasks]
        for future in as_completed(futures):
            yield future.result()
    if not chosen.scheduler:
        cluster.close()


def run(chosen, settings, make, parts):
    """Makes every part that is not there.

    chosen: of `options`
    settings: what the whole work depends on
    make: a function of a part's arguments that gives the bytes of its file
    parts: from the name of each file to its arguments
    """
    if not chosen.serial and not chosen.scheduler and chosen.workers < 1:
        sys.exit("A work needs one worker at least.")
    folder = chosen.folder.resolve()
    begin(folder, settings)
    tasks = [(make, str(folder / name), given) for name, given in parts.items() if not (folder / name).exists()]
    begun = time.monotonic()
    made = (make_part(*task) for task in tasks) if chosen.serial else on_cluster(chosen, tasks)
    for done, _ in enumerate(made if tasks else (), 1):
        tell(done, len(tasks), begun)
    clear_unfinished(folder)
    print(f"\n{len(parts)} parts in {folder}, {len(tasks)} of them made now", file=sys.stderr)


def end_quietly(main):
    """Runs the main function; Ctrl-C ends it with what is done in its place."""
    try:
        main()
    except KeyboardInterrupt:
        sys.exit(128 + signal.SIGINT)
