"""What the tests beside this file share: a daily file of known records, and its export by the product's own writer."""

import pathlib
import subprocess
import sys

SKIPPED = 77


def skip(reason):
    """Ends the test as one that could not be run."""
    print(f"skipped: {reason}")
    sys.exit(SKIPPED)


def windows(path):
    return "Z:" + str(path).replace("/", "\\")


def write_day(path, records):
    """Records are pairs of threat and location, none of which may hold a vertical line or a line end."""
    lines = [f"x|{9 + i // 60 % 10:02}{i % 60:02}|1048576|x|0|0|{threat}|{location}|4|1|0|0\r\n"
             for i, (threat, location) in enumerate(records)]
    path.write_bytes(b"\xff\xfe" + "".join(lines).encode("utf-16-le"))


def export(runner, program, folder, day, target):
    """The writer's result and error code. folder is that of the built program, with the language file."""
    done = run(runner, program, folder, day, target)
    done.check_returncode()
    result, code = map(int, done.stdout.split())
    return result, code


def run(runner, program, folder, day, target, *options):
    """The ended process of an export."""
    return subprocess.run([runner, program, windows(day), windows(target), *options], cwd=folder, capture_output=True,
                          text=True)


def arguments():
    """Of every test: the command that runs a Windows program, the exporting program, the folder of the built program."""
    return pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
