# SPDX-License-Identifier: MIT
"""Locales of the system, made in a folder of one's own: no root is needed and none has to be installed."""

import os
import subprocess

# What `locale decimal_point` and `locale abday` say where the locale is in force.
LOCALES = {
    "ar_EG.UTF-8": (".", "ح;ن;ث;ر;خ;ج;س"),
    "de_DE.UTF-8": (",", "So;Mo;Di;Mi;Do;Fr;Sa"),
    "tr_TR.UTF-8": (",", "Paz;Pzt;Sal;Çrş;Prş;Cum;Cts"),
}


def locale_environment(folder, name):
    """The variables that put a locale of `folder` in force."""
    return {"LOCPATH": str(folder), "LC_ALL": name, "LANG": name, "LANGUAGE": name.partition(".")[0]}


def make_locale(folder, name):
    """Makes a locale in `folder`; gives why it is not in force there, or an empty text."""
    language, charset = name.split(".")
    words = ["localedef", "--no-archive", "-i", language, "-f", charset, str(folder / name)]
    # Its status is 1 after warnings, so what was made is asked for.
    try:
        made = subprocess.run(words, capture_output=True, text=True)
        environment = {**os.environ, **locale_environment(folder, name)}
        asked = ["locale", "decimal_point", "abday", "charmap"]
        found = subprocess.run(asked, capture_output=True, text=True, env=environment)
    except FileNotFoundError as missing:
        return f"{name}: {missing} (Debian packages libc-bin and locales)"
    said = tuple(found.stdout.splitlines())
    if said == (*LOCALES[name], charset):
        return ""
    return f"{name} is not in force: locale says {said}; localedef: {made.stderr.strip()} (Debian package locales)"
