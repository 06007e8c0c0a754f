#!/usr/bin/env python3
"""Exports to a disk of 64 KB that is too small, and into a folder where nobody may write.

usage: full_disk_test.py RUNNER EXPORT_PROGRAM BIN_FOLDER
"""

import pathlib
import subprocess
import tempfile

import day

SMALL = [("beta", "C:\\beta.exe")] * 10
LARGE = [("beta", "C:\\beta.exe")] * 10_000
DISK_FULL = 10000


def contents(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir()}


def main():
    runner, program, bin_folder = day.arguments()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        disk = folder / "disk"
        disk.mkdir()
        mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "tmpfs", disk], capture_output=True)
        if mounted.returncode != 0:
            day.skip("a disk can only be mounted by root")
        try:
            for target, records, expected in (("large.txt", LARGE, (0, DISK_FULL)), ("export.txt", SMALL, (1, 0)),
                                              ("export.txt", LARGE, (0, DISK_FULL))):
                before = contents(disk)
                day.write_day(folder / "20261120.VLG", records)
                answer = day.export(runner, program, bin_folder, folder / "20261120.VLG", disk / target)
                assert answer == expected, (answer, expected)
                after = contents(disk)
                assert list(after) == [target] if answer[0] else after == before, (list(before), list(after))
        finally:
            subprocess.run(["umount", disk], check=True)
        answer = day.export(runner, program, bin_folder, folder / "20261120.VLG", pathlib.Path("/proc/export.txt"))
        assert answer == (0, 0), answer
    print("a full disk leaves what was there and says so")


if __name__ == "__main__":
    main()
