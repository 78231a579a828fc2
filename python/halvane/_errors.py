# SPDX-License-Identifier: MIT
"""The exceptions of the package."""

from __future__ import annotations

from enum import StrEnum


class ErrorKind(StrEnum):
    """What kind of thing failed."""

    BAD_ARGUMENT = "bad_argument"  #: a value outside its range, an unknown key or time zone
    MISSING_FILE = "missing_file"  #: a series file that is not there
    DAMAGED_FILE = "damaged_file"  #: a series file that is not of its form
    NO_VALUE = "no_value"  #: a calculation without an answer
    NO_MEMORY = "no_memory"  #: the system gives no more memory
    CANCELLED = "cancelled"  #: the caller's own progress function said so
    OTHER = "other"


class Error(Exception):
    """A failure of the engine. Its text is a whole sentence in English; `kind` tells what failed."""

    def __init__(self, words: str, kind: ErrorKind = ErrorKind.OTHER) -> None:
        super().__init__(words)
        self.kind = kind

    def __reduce__(self) -> tuple[object, ...]:
        return type(self), (str(self), self.kind)


class BadArgument(Error, ValueError):
    """A value outside its range, an unknown key or time zone."""

    def __init__(self, words: str, kind: ErrorKind = ErrorKind.BAD_ARGUMENT) -> None:
        super().__init__(words, kind)


def error_of(number: int, words: str) -> Error:
    """The exception for an error of the engine, whose kinds count from 1."""
    kind = tuple(ErrorKind.__members__.values())[number - 1]
    return BadArgument(words) if kind is ErrorKind.BAD_ARGUMENT else Error(words, kind)
