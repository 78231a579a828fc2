# SPDX-License-Identifier: MIT
"""The series files in memory."""

from __future__ import annotations

import os
import pathlib
import threading

from halvane import _engine
from halvane._errors import Error

_OWN_FOLDER = pathlib.Path(__file__).parent


def _read(folder: str | None) -> _engine.Engine:
    if folder is not None:
        return _engine.Engine(folder)
    # A wheel holds the data; a package of the system leaves them to the library.
    return _engine.Engine(str(_OWN_FOLDER)) if (_OWN_FOLDER / "termfull.vsk").exists() else _engine.Engine()


class Engine:
    """The theories of the Sun, the Moon and the turning Earth, read once and constant.

    Every function may be called with one engine by any number of threads at once. Functions that are given none share
    one of the process, made on first use. An engine pickles as its folder: where it is unpickled, the folder is read
    once for each process. The folder's files are termfull.vsk, term.vsk, mterm.vsk, elp.vsk and world.txt.
    """

    __slots__ = ("_core", "_folder", "_of_data")

    def __init__(self, folder: str | os.PathLike[str] | None = None) -> None:
        """Reads the data files of a folder; of None: the package's own.

        Raises Error (missing_file, damaged_file).
        """
        self._folder = None if folder is None else os.fsdecode(os.path.abspath(folder))
        self._core = _read(self._folder)
        self._of_data = False

    @classmethod
    def of_data(cls, termfull: bytes, term: bytes, mterm: bytes, elp: bytes, world: bytes = b"") -> Engine:
        """An engine of the texts of the five files, which may be let go afterwards. It does not pickle.

        Raises Error (damaged_file).
        """
        made = cls.__new__(cls)
        made._folder = None
        made._core = _engine.Engine.of_data(termfull, term, mterm, elp, world)
        made._of_data = True
        return made

    @property
    def folder(self) -> str | None:
        """The folder it was read from; None: the package's own, or data."""
        return self._folder

    @property
    def core(self) -> _engine.Engine:
        """What the extension module takes."""
        return self._core

    def __reduce__(self) -> tuple[object, ...]:
        if self._of_data:
            raise Error("An engine of data does not pickle: make it of a folder.")
        return shared_engine, (self._folder,)

    def __repr__(self) -> str:
        return "Engine.of_data(...)" if self._of_data else f"Engine({self._folder!r})"


_shared: dict[str | None, Engine] = {}
_lock = threading.Lock()


def _new_lock() -> None:
    global _lock
    _lock = threading.Lock()


# A process that was forked while another thread read holds a lock that nobody opens.
os.register_at_fork(after_in_child=_new_lock)


def shared_engine(folder: str | os.PathLike[str] | None = None) -> Engine:
    """The engine that this process shares for a folder, read on first use; of None: the package's own data."""
    key = None if folder is None else os.fsdecode(os.path.abspath(folder))
    with _lock:
        if key not in _shared:
            _shared[key] = Engine(key)
        return _shared[key]


def core_of(engine: Engine | None) -> _engine.Engine:
    return (shared_engine() if engine is None else engine).core
