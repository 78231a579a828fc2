# SPDX-License-Identifier: MIT
"""The pictures of the program, read by programs and routines that share nothing with it."""

import random
import shutil
import struct

from ground import PICTURES, Outcome

CRITERIA = ["vesk", "yallop", "saao"]


class NotAPicture(Exception):
    pass


def unpacked(data, code_size, area):
    """The indices of an image's packed codes, after GIF89a, appendix F."""
    clear, end = 1 << code_size, (1 << code_size) + 1
    words = {}
    width, bits, held = code_size + 1, 0, 0
    out = bytearray()
    before = None
    for byte in data:
        bits |= byte << held
        held += 8
        while held >= width:
            code = bits & ((1 << width) - 1)
            bits >>= width
            held -= width
            if code == clear:
                words = {i: bytes([i]) for i in range(clear)}
                following, width, before = end + 1, code_size + 1, None
                continue
            if code == end:
                return bytes(out)
            if before is None:
                word = words.get(code)
            else:
                word = words.get(code, before + before[:1] if code == following else None)
            if word is None:
                raise NotAPicture(f"code {code} stands for nothing")
            out += word
            if before is not None and following < 4096:
                words[following] = before + word[:1]
                following += 1
                if following == 1 << width and width < 12:
                    width += 1
            before = word
            if len(out) > area:
                raise NotAPicture("more pixels than the picture has")
    raise NotAPicture("no end code")


def sub_blocks(content, at):
    data = bytearray()
    while content[at]:
        data += content[at + 1 : at + 1 + content[at]]
        at += 1 + content[at]
    return bytes(data), at + 1


def colours(content, at, flags):
    count = 2 << (flags & 7)
    return [content[at + 3 * i : at + 3 * i + 3] for i in range(count)], at + 3 * count


def read_gif(content):
    """Width, height and the red, green and blue bytes of a GIF of one image."""
    try:
        if content[:6] not in (b"GIF87a", b"GIF89a"):
            raise NotAPicture("no GIF signature")
        width, height, flags = struct.unpack_from("<HHB", content, 6)
        at, palette = 13, []
        if flags & 0x80:
            palette, at = colours(content, at, flags)
        pixels = None
        while True:
            kind = content[at]
            if kind == 0x3B:
                break
            if kind == 0x21:
                _, at = sub_blocks(content, at + 2)
                continue
            if kind != 0x2C or pixels is not None:
                raise NotAPicture(f"block {kind:#x}")
            left, top, w, h, flags = struct.unpack_from("<HHHHB", content, at + 1)
            if (left, top, w, h) != (0, 0, width, height) or flags & 0x40:
                raise NotAPicture("an image that is interlaced or a part")
            at += 10
            if flags & 0x80:
                palette, at = colours(content, at, flags)
            code_size = content[at]
            data, at = sub_blocks(content, at + 1)
            indices = unpacked(data, code_size, w * h)
            if len(indices) != w * h:
                raise NotAPicture(f"{len(indices)} pixels, not {w * h}")
            pixels = b"".join([palette[i] for i in indices])
        if pixels is None or at != len(content) - 1:
            raise NotAPicture("no image, or something after its end")
        return width, height, pixels
    except (IndexError, struct.error) as error:
        raise NotAPicture(f"cut: {error}") from error


def foreign_readers(ground):
    """Programs that read a GIF and give its pixels, or only tell whether they can: name and words."""
    readers = {}
    if shutil.which("convert"):
        readers["ImageMagick"] = ["convert", "FILE", "-depth", "8", "rgb:OUT"]
    if shutil.which("ffmpeg"):
        readers["FFmpeg"] = ["ffmpeg", "-v", "error", "-i", "FILE", "-f", "rawvideo", "-pix_fmt", "rgb24", "OUT"]
    if shutil.which("giftext"):
        readers["giftext"] = ["giftext", "FILE"]
    return readers


def judge_reading(title, own, pixels, ended):
    if ended.status != 0:
        return [f"{title}: {ended.story()}"]
    if ended.err.strip():
        return [f"{title}: it complains: {ended.err.strip()[:200]}"]
    if pixels is not None and pixels != own:
        return [f"{title}: it sees other pixels"]
    return []


def read_everywhere(ground, path, readers, outcome):
    """One picture by every reader; returns its pixels."""
    try:
        width, height, own = read_gif(path.read_bytes())
    except NotAPicture as problem:
        outcome.find(f"{path.name}: {problem}")
        return None
    target = ground.base / f"pixels-{path.name}"
    for name, words in readers.items():
        target.unlink(missing_ok=True)
        ended = ground.run([word.replace("FILE", str(path)).replace("OUT", str(target)) for word in words])
        pixels = target.read_bytes() if target.exists() else None
        if "OUT" in " ".join(words) and pixels is None:
            outcome.find(f"{path.name}: {name} gives no pixels: {ended.story()}")
        outcome.findings += judge_reading(f"{path.name} by {name}", own, pixels, ended)
    target.unlink(missing_ok=True)
    return width, height, own


def pictures(ground):
    rng = random.Random(ground.seed)
    count = ground.times(1000, 2)
    readers = foreign_readers(ground)
    outcome = Outcome(f"{count} saved maps and the two delivered pictures, by {len(readers) + 1} readers")
    for name in PICTURES:
        read_everywhere(ground, ground.data / name, readers, outcome)
    done = len(PICTURES)
    with ground.folder() as folder:
        for number in range(count):
            year, month = rng.randrange(1900, 2100), rng.randrange(1, 13)
            record = (ground.data / "visib.vsk").read_text().split(",")
            record[:3] = ['"15"', f'"{month}"', f'"{year}"']
            (folder / "visib.vsk").write_text(",".join(record))
            words = ["map", "--criterion", rng.choice(CRITERIA), "--day", rng.randrange(3)]
            path = folder / f"map{number}.gif"
            ended = ground.run_report(folder, *words, "--output", path)
            if ended.status != 0:
                outcome.find(f"{words} of {month}/{year}: {ended.story()}")
                continue
            size = read_everywhere(ground, path, readers, outcome)
            if size and size[0] != 748:
                outcome.find(f"{words}: {size[0]} pixels wide")
            path.unlink()
            done += 1
    outcome.done = f"{done} pictures by {', '.join(['its own reader', *readers])}"
    if len(readers) < 2:
        outcome.note("fewer than two of ImageMagick, FFmpeg and giftext is here")
    return outcome
