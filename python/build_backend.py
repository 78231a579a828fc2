# SPDX-License-Identifier: MIT
"""Builds wheels of the package for pip (PEP 517): CMake compiles and installs it, this packs what it installed.

It needs nothing but Python's standard library and what CMake needs, so that no network is asked. The folder of the
build, build/wheel-..., is kept: the next wheel compiles only what has changed. The setting `build` names another
folder, which CMake has configured with HALVANE_PYTHON for this interpreter.
"""

import base64
import hashlib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import sysconfig
import tarfile
import tempfile
import time
import tomllib
import zipfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
EARLIEST = 315532800  # 1980-01-01, before which a zip archive has no times


def project():
    return tomllib.loads((ROOT / "pyproject.toml").read_text(encoding="utf-8"))["project"]


def version():
    """That of the CMake project."""
    text = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"^project\(Halvane VERSION ([\d.]+)", text, re.MULTILINE)[1]


def metadata():
    told = project()
    lines = ["Metadata-Version: 2.1", f"Name: {told['name']}", f"Version: {version()}"]
    lines += [f"Summary: {told['description']}", f"License: {told['license']['text']}"]
    lines += [f"Classifier: {classifier}" for classifier in told["classifiers"]]
    lines += [f"Requires-Python: {told['requires-python']}"]
    lines += [f"Requires-Dist: {dependency}" for dependency in told["dependencies"]]
    lines += ["Description-Content-Type: text/markdown", "", (ROOT / told["readme"]).read_text(encoding="utf-8")]
    return "\n".join(lines)


def tag():
    abi = f"cp{sys.version_info.major}{sys.version_info.minor}"
    return f"{abi}-{abi}-{re.sub('[^a-zA-Z0-9]', '_', sysconfig.get_platform())}"


def distribution():
    return f"{project()['name']}-{version()}"


def write_dist_info(folder):
    """The folder that tells of the wheel, without its RECORD."""
    info = pathlib.Path(folder) / f"{distribution()}.dist-info"
    info.mkdir()
    (info / "METADATA").write_text(metadata(), encoding="utf-8")
    wheel = f"Wheel-Version: 1.0\nGenerator: halvane\nRoot-Is-Purelib: false\nTag: {tag()}\n"
    (info / "WHEEL").write_text(wheel, encoding="utf-8")
    shutil.copy(ROOT / "LICENSE", info / "LICENSE")
    return info


def run(*command):
    subprocess.run([str(word) for word in command], cwd=ROOT, check=True)


def configured_build():
    """The folder of the build, configured."""
    build = ROOT / "build" / f"wheel-{sysconfig.get_config_var('SOABI')}"
    generator = ["-G", "Ninja"] if shutil.which("ninja") else []
    parts = {"PANELS": "OFF", "TESTS": "OFF", "BENCHMARKS": "OFF", "PYTHON": "ON"}
    options = [f"-DHALVANE_{part}={value}" for part, value in parts.items()]
    options += ["-DCMAKE_BUILD_TYPE=Release", f"-DPython_EXECUTABLE={sys.executable}"]
    run("cmake", "-S", ROOT, "-B", build, *generator, *options)
    return build


def install_package(build, folder):
    """Compiles the package in the folder of a build and installs it into another."""
    run("cmake", "--build", build, "--target", "halvane_python", "--parallel", os.cpu_count() or 1)
    run("cmake", "--install", build, "--component", "python", "--prefix", folder, "--strip")


def record_line(name, data):
    digest = base64.urlsafe_b64encode(hashlib.sha256(data).digest()).rstrip(b"=").decode()
    return f"{name},sha256={digest},{len(data)}\n"


def pack(folder, wheel):
    """The files of a folder as a wheel; those of its .dist-info come last, as the form wants."""
    record = f"{distribution()}.dist-info/RECORD"
    written = max(int(os.environ.get("SOURCE_DATE_EPOCH", EARLIEST)), EARLIEST)
    moment = time.gmtime(written)[:6]
    names = sorted(
        (path.relative_to(folder).as_posix() for path in folder.rglob("*") if path.is_file()),
        key=lambda name: (".dist-info/" in name, name),
    )
    lines = []
    with zipfile.ZipFile(wheel, "w") as archive:

        def write(name, data):
            entry = zipfile.ZipInfo(name, moment)
            entry.external_attr = (0o755 if ".so" in name else 0o644) << 16
            archive.writestr(entry, data, zipfile.ZIP_DEFLATED)

        for name in names:
            data = (folder / name).read_bytes()
            write(name, data)
            lines.append(record_line(name, data))
        write(record, "".join([*lines, f"{record},,\n"]).encode())


# The hooks of PEP 517.


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    name = f"{distribution()}-{tag()}.whl"
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch)
        install_package((config_settings or {}).get("build") or configured_build(), folder)
        write_dist_info(folder)
        pack(folder, pathlib.Path(wheel_directory) / name)
    return name


def prepare_metadata_for_build_wheel(metadata_directory, config_settings=None):
    return write_dist_info(metadata_directory).name


def build_sdist(sdist_directory, config_settings=None):
    """The files under version control."""
    listed = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, capture_output=True, text=True, check=True)
    name = f"{distribution()}.tar.gz"
    with tarfile.open(pathlib.Path(sdist_directory) / name, "w:gz", format=tarfile.PAX_FORMAT) as archive:
        for file in filter(None, listed.stdout.split("\0")):
            archive.add(ROOT / file, f"{distribution()}/{file}")
        with tempfile.NamedTemporaryFile("w", encoding="utf-8") as told:
            told.write(metadata())
            told.flush()
            archive.add(told.name, f"{distribution()}/PKG-INFO")
    return name
