"""Copies the files of the package into a folder, or lists those in it that take a signature.

usage: stage.py ROOT BINARIES NOTICES STAGE
       stage.py --signed STAGE
"""

import pathlib
import shutil
import sys

import contents


def main(root, binaries, notices, stage):
    for path, name in contents.files(*map(pathlib.Path, (root, binaries, notices))):
        target = pathlib.Path(stage) / name
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(path, target)


def list_signed(stage):
    for path in sorted(pathlib.Path(stage).rglob("*")):
        if contents.is_signed(path):
            print(path)


if __name__ == "__main__":
    if len(sys.argv) == 3 and sys.argv[1] == "--signed":
        list_signed(sys.argv[2])
    elif len(sys.argv) == 5:
        main(*sys.argv[1:])
    else:
        sys.exit(__doc__)
