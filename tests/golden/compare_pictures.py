#!/usr/bin/env python3
"""Usage: compare_pictures.py [--renew] PICTURES
Compares the pictures of the dialog that "quillhost run --pictures" has left in the folder PICTURES
with the golden ones beside this file. Some pixels may differ a little, as other fonts' edges do; a
text that is moved or another one differs in more. Where a picture differs, PICTURES/difference has
it in grey with what differs in red. --renew makes PICTURES the golden ones.
"""
import pathlib
import shutil
import struct
import sys
import zlib

NOTICEABLE = 64  # of 255, in one channel
MOST_PIXELS = 4
golden = pathlib.Path(__file__).parent / "pictures"


def read(path):
    """(width, height, rows of RGB bytes) of a PNG as WritePng writes it."""
    data, at, packed = path.read_bytes(), 8, b""
    while at < len(data):
        (size,) = struct.unpack(">I", data[at : at + 4])
        kind, content = data[at + 4 : at + 8], data[at + 8 : at + 8 + size]
        if kind == b"IHDR":
            width, height = struct.unpack(">II", content[:8])
        if kind == b"IDAT":
            packed += content
        at += size + 12
    lines, step = zlib.decompress(packed), 3 * width + 1
    assert len(lines) == step * height and not any(lines[::step]), f"{path}: another kind of PNG"
    return width, height, [lines[y * step + 1 : (y + 1) * step] for y in range(height)]


def write(path, width, height, rows):
    def chunk(kind, content):
        checksum = zlib.crc32(kind + content)
        return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", checksum)

    path.parent.mkdir(exist_ok=True)
    path.write_bytes(
        b"\x89PNG\r\n\x1a\n"
        + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
        + chunk(b"IDAT", zlib.compress(b"".join(b"\0" + row for row in rows)))
        + chunk(b"IEND", b"")
    )


def difference(wanted, seen):
    """How many pixels differ noticeably, and the rows of the picture that shows them."""
    count, rows = 0, []
    for old, new in zip(wanted[2], seen[2]):
        row = bytearray()
        for x in range(0, len(old), 3):
            differs = max(abs(a - b) for a, b in zip(old[x : x + 3], new[x : x + 3])) > NOTICEABLE
            count += differs
            row += b"\xff\0\0" if differs else bytes([128 + old[x + 1] // 2]) * 3
        rows.append(bytes(row))
    return count, rows


def main():
    folder = pathlib.Path(sys.argv[-1])
    if sys.argv[1:-1] == ["--renew"]:
        shutil.rmtree(golden, ignore_errors=True)
        golden.mkdir()
        for picture in folder.glob("*.png"):
            shutil.copy(picture, golden)
        return 0
    names = {path.name for path in golden.glob("*.png")}
    failures = [f"{name}: only one of the two is there" for name in
                names ^ {path.name for path in folder.glob("*.png")}]
    for name in sorted(names - {failure.split(":")[0] for failure in failures}):
        wanted, seen = read(golden / name), read(folder / name)
        if wanted[:2] != seen[:2]:
            failures.append(f"{name}: {seen[:2]} instead of {wanted[:2]} pixels")
            continue
        count, rows = (0, []) if wanted == seen else difference(wanted, seen)
        if count > MOST_PIXELS:
            write(folder / "difference" / name, *wanted[:2], rows)
            failures.append(f"{name}: {count} pixels differ; see {folder / 'difference' / name}")
    for failure in failures:
        print(failure)
    if failures or not names:
        print(f"When it is right so: {__file__} --renew {folder}")
        return 1
    print(f"{len(names)} pictures are as they should be")
    return 0


sys.exit(main())
