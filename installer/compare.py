"""Compares two packages of the same sources.

usage: compare.py FIRST SECOND

Both are paths without their ending, .msi or .zip. Archives have to be equal byte for byte, installers in every table
and every file; what the maker of the installer puts into it besides is named. The exit status is 1 when something
differs that must not.
"""

import pathlib
import subprocess
import sys
import tempfile
import zipfile

# Of the summary: when the installer was made.
MAY_DIFFER = ("Created", "Last saved")


def msiinfo(command, path, *arguments):
    # An export of a table with streams leaves them in the current folder.
    with tempfile.TemporaryDirectory() as folder:
        return subprocess.run(["msiinfo", command, path.resolve(), *arguments], cwd=folder, capture_output=True,
                              check=True).stdout


def archived(path):
    with zipfile.ZipFile(path) as archive:
        return {name: archive.read(name) for name in archive.namelist()}


def parts(path):
    """Tables and streams of an installer by their names."""
    found = {f"table {name}": msiinfo("export", path, name) for name in msiinfo("tables", path).decode().split()
             if name != "_SummaryInformation"}
    for name in msiinfo("streams", path).decode().splitlines():
        if "SummaryInformation" not in name:
            found[f"stream {name}"] = msiinfo("extract", path, name)
    for line in msiinfo("suminfo", path).decode().splitlines():
        name, _, text = line.partition(":")
        found[f"summary {name}"] = text.encode()
    return found


def differences(first, second):
    return sorted(name for name in first.keys() | second.keys() if first.get(name) != second.get(name))


def main(first, second):
    archives = [pathlib.Path(path + ".zip") for path in (first, second)]
    installers = [pathlib.Path(path + ".msi") for path in (first, second)]
    bad = differences(*map(archived, archives))
    if not bad and archives[0].read_bytes() != archives[1].read_bytes():
        bad = ["the archive around its files"]
    allowed = {f"summary {name}" for name in MAY_DIFFER}
    found = differences(*map(parts, installers))
    bad += [name for name in found if name not in allowed]
    for name in found:
        if name in allowed:
            print(f"differs, as its maker writes the time: {name}")
    for name in bad:
        print(f"differs: {name}")
    if not bad:
        print(f"{len(archived(archives[0]))} files and the archive are equal, byte for byte; so are the installer's "
              f"tables and files")
    return 1 if bad else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
