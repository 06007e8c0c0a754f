"""What a package holds."""

import pathlib
import sys

# Of the build's folder bin. The one that the start menu begins with stands first.
PROGRAMS = ("Kestrix.exe", "ImportLogs.exe", "OrlDbMg.dll", "VdDbg64.dll", "VdFrwkPs.dll", "VdFrwkSvc.exe")
LANGUAGE_FILE = "Kestrix.exe.mui"
HELP_FILE = "vdhelp.chm"
# The language that a viewer finds beside itself when the folder of its own is missing.
FALLBACK = "en-US"


def languages(binaries):
    """The languages that the build has made, whichever they are."""
    found = sorted(path.parent.name for path in (binaries / "resource").glob(f"*/{LANGUAGE_FILE}"))
    if FALLBACK not in found:
        sys.exit(f"The build has no language file of {FALLBACK}.")
    return found


def help_of(language):
    """The help file of a language; where there is none, that of English is shown."""
    return HELP_FILE if language == FALLBACK else f"vdhelp.{language}.chm"


def files(root, binaries, notices):
    """Source and name in the package, with "/" between folders, of each file."""
    for name in (*PROGRAMS, HELP_FILE):
        yield binaries / name, name
    for language in languages(binaries):
        # Beside it may lie what the tests have made for programs of their own.
        name = f"resource/{language}/{LANGUAGE_FILE}"
        yield binaries / name, name
        help_file = binaries / help_of(language)
        if language != FALLBACK and help_file.exists():
            yield help_file, help_file.name
    yield binaries / "resource" / FALLBACK / LANGUAGE_FILE, LANGUAGE_FILE
    yield root / "LICENSE", "LICENSE.txt"
    yield root / "CHANGELOG.md", "CHANGELOG.txt"
    yield root / "docs/installing.md", "README.txt"
    yield notices, "NOTICES.txt"


def is_signed(name):
    """Whether a file of the package takes a signature."""
    return pathlib.PurePath(name).suffix in (".exe", ".dll", ".mui")
