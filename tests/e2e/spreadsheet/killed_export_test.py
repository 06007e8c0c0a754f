#!/usr/bin/env python3
"""Kills an export in the middle: the file that it was to replace stays whole, and the next export cleans up.

usage: killed_export_test.py RUNNER EXPORT_PROGRAM BIN_FOLDER
"""

import pathlib
import tempfile

import day

LARGE = [("beta", "C:\\beta.exe")] * 10_000


def main():
    runner, program, bin_folder = day.arguments()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        source, target = folder / "20261120.VLG", folder / "exports" / "export.txt"
        target.parent.mkdir()
        target.write_text("an older export")
        day.write_day(source, LARGE)

        killed = day.run(runner, program, bin_folder, source, target, "killed")
        assert killed.returncode != 0 and killed.stdout == "", killed
        assert target.read_text() == "an older export"
        left = [path for path in target.parent.iterdir() if path != target]
        assert [path.name for path in left] == ["export.txt.kestrix-part"], left
        assert left[0].stat().st_size > 0, "killed before anything was written"

        answer = day.export(runner, program, bin_folder, source, target)
        assert answer == (1, 0), answer
        assert list(target.parent.iterdir()) == [target], list(target.parent.iterdir())
        assert target.read_bytes().count("\n".encode("utf-16-le")) == len(LARGE) + 2
    print("a killed export leaves the older one whole")


if __name__ == "__main__":
    main()
