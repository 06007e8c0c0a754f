#!/usr/bin/env python3
"""Checks the topics of the help in a language and compiles them to the suite's help file.

usage: help.py HELP_FOLDER TEXTS.TSV LANGUAGE OUTPUT.CHM [CHMCMD CHMLS]

topics.py says what the folder holds and by which rules. All violations are printed, one a line, and the exit status is
1 when there is any. CHMCMD and CHMLS are the help compiler and lister of Debian's fp-utils-3.2.2.
"""

import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import zlib

import project
import topics


def run(*command, folder):
    try:
        done = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8",
                              errors="replace")
    except FileNotFoundError:
        sys.exit(f"{command[0]} is missing. Install it: apt-get install --no-install-recommends fp-utils-3.2.2")
    # The compiler ends with 0 when it could not read a file.
    if done.returncode or re.search(r"^(Error|Warning):", done.stdout, re.MULTILINE):
        sys.exit(f"{command[0]} failed:\n{done.stdout}")
    return done.stdout


def stamp(chm, listing):
    """Replaces the time in the file by a number made of its contents: the same topics make the same file."""
    content, = struct.unpack_from("<Q", chm, 0x58)
    system = re.search(r"^ *0 +(\d+) +\d+ +/#SYSTEM$", listing, re.MULTILINE)
    place = content + int(system[1]) + 4  # after the version
    kind, length = struct.unpack_from("<HH", chm, place)
    if chm[:4] != b"ITSF" or (kind, length) != (10, 4):
        sys.exit("The help compiler writes the time elsewhere than fp-utils-3.2.2 does.")
    chm[16:20] = chm[place + 4:place + 8] = bytes(4)
    number = zlib.crc32(chm)
    struct.pack_into(">I", chm, 16, number)
    struct.pack_into("<I", chm, place + 4, number)


def compile_help(folder, language, table, target, chmcmd, chmls):
    with tempfile.TemporaryDirectory() as work:
        work = pathlib.Path(work)
        project.write(folder, language, table, work)
        # The first run tells where the names of the pages stand, the second puts in the table that points at them.
        run(chmcmd, "vdhelp.hhp", folder=work)
        run(chmls, "extract", "vdhelp.chm", "/#STRINGS", "texts", folder=work)
        texts = (work / "texts").read_bytes()
        (work / "#IVB").write_bytes(project.context_table(table, texts))
        run(chmcmd, "vdhelp.hhp", folder=work)
        chm = bytearray((work / "vdhelp.chm").read_bytes())
        stamp(chm, run(chmls, "-p", "list", "vdhelp.chm", folder=work))
    target.write_bytes(chm)


def main(folder, texts_tsv, language, target, chmcmd="chmcmd", chmls="chmls"):
    folder = pathlib.Path(folder)
    try:
        table = topics.read_table(folder, language)
    except topics.MalformedTable as error:
        sys.exit(str(error))
    names = topics.screen_texts(pathlib.Path(texts_tsv), language)
    found = list(topics.violations(folder, language, table, names))
    if found:
        sys.exit("\n".join(found))
    compile_help(folder, language, table, pathlib.Path(target), chmcmd, chmls)


if __name__ == "__main__":
    if len(sys.argv) not in (5, 7):
        sys.exit(__doc__)
    main(*sys.argv[1:])
