"""What the tests of the package share: programs in the Wine prefix, its registry and files, the package itself.

The environment, which ./package --test makes: WINEPREFIX, DISPLAY and Wine's server running.
"""

import contextlib
import os
import pathlib
import re
import subprocess

ROOT = pathlib.Path(__file__).parents[2]
PREFIX = pathlib.Path(os.environ["WINEPREFIX"])
DRIVE = PREFIX / "drive_c"
VERSION = (ROOT / "VERSION").read_text(encoding="utf-8").strip()
MADE = ROOT / "build/package"
INSTALLER = MADE / f"Kestrix-{VERSION}-x64.msi"
ARCHIVE = MADE / f"Kestrix-{VERSION}-x64.zip"
OLDER = MADE / "test/Kestrix-0.9.0-x64.msi"
VIEWER_TEST = ROOT / "build/release/tests/package/package_viewer.exe"

PROGRAMS = DRIVE / "Program Files/Veldrane/Kestrix"
DATA = DRIVE / "ProgramData/Veldrane/Kestrix"
SUITE_KEY = r"HKEY_LOCAL_MACHINE\Software\Veldrane\Zeptara"
LOG_KEY = SUITE_KEY + r"\17\ServiceFramework\EnforceLayer\Common\EventLog"
UNINSTALL_KEY = r"HKEY_LOCAL_MACHINE\Software\Microsoft\Windows\CurrentVersion\Uninstall"

LIMIT = 120  # seconds for any program


def windows_path(path):
    """The name of a file of this machine as a program in the prefix knows it."""
    path = pathlib.Path(path)
    if path.is_relative_to(DRIVE):
        return "C:\\" + str(path.relative_to(DRIVE)).replace("/", "\\")
    return "Z:" + str(path).replace("/", "\\")


def run(program, *arguments, environment=None, folder=ROOT):
    """A Windows program; its exit status and what it printed on both streams."""
    done = subprocess.run([ROOT / "tools/wine", program, *arguments], cwd=folder, timeout=LIMIT, check=False,
                          env={**os.environ, **(environment or {})}, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT)
    return done.returncode, done.stdout.decode("utf-8", "replace").replace("\r\n", "\n")


def msiexec(*arguments):
    """The exit status of the system's installer, which says nothing."""
    return run("msiexec", *arguments, "/qn")[0]


def install(package=INSTALLER, *properties):
    return msiexec("/i", windows_path(package), *properties)


def remove(package=INSTALLER, *properties):
    return msiexec("/x", windows_path(package), *properties)


def repair():
    """What msiexec /fa stands for, which Wine's does not know: all files, all values, all entries once more."""
    code = next(iter(_entry_keys())).rpartition("\\")[2]
    return msiexec("/i", code, "REINSTALL=ALL", "REINSTALLMODE=amus")


_KEY = re.compile(r"\[(.*)\]")
_VALUE = re.compile(r'(@|"(?:[^"\\]|\\.)*")=(.*)')


def registry(key):
    """All keys below a key and the key itself: a table of the values of each, as text, by their names."""
    target = PREFIX / "registry.reg"
    target.unlink(missing_ok=True)
    run("regedit", "/E", windows_path(target), key)
    if not target.exists():
        return {}
    text = target.read_text(encoding="utf-16").replace("\\\n  ", "")
    keys, values = {}, {}
    for line in text.splitlines():
        if match := _KEY.fullmatch(line):
            values = keys.setdefault(match[1], {})
        elif match := _VALUE.fullmatch(line):
            values[_plain(match[1])] = _plain(match[2])
    return keys


def _plain(text):
    if text.startswith('"'):
        return re.sub(r"\\(.)", r"\1", text[1:-1])
    return int(text[6:], 16) if text.startswith("dword:") else text


def value(key, name):
    return registry(key).get(key, {}).get(name)


def set_value(key, name, number):
    run("reg", "add", key, "/v", name, "/t", "REG_DWORD", "/d", str(number), "/f")


def _entry_keys():
    return {key: values for key, values in registry(UNINSTALL_KEY).items()
            if values.get("DisplayName", "").startswith("Kestrix")}


def entries():
    """The entries in the list of programs that are of this product."""
    return list(_entry_keys().values())


def files(folder):
    """All files and folders below it, with the size and time of each file."""
    return {str(path.relative_to(folder)): (path.stat().st_size, path.stat().st_mtime_ns) if path.is_file() else None
            for path in sorted(folder.rglob("*"))}


def start_entry():
    return next(DRIVE.rglob("Kestrix Log Viewer.lnk"), None)


def write_day(path, *threats):
    """A daily file with a virus for each name."""
    lines = "".join(f"x|0900|1048576|x|0|0|{threat}|C:\\{threat}.exe|4|1|0|0\r\n" for threat in threats)
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(("\ufeff" + lines).encode("utf-16-le"))
    return path


def write_days(folder):
    """Three days of the virus log, one virus each."""
    for day, threat in (("20261118", "oldest"), ("20261119", "older"), ("20261120", "newest")):
        write_day(folder / f"{day}.VLG", threat)


def use_viewer(case, test, **said):
    """Runs a test of PackageViewer.cpp, which is to pass."""
    environment = {"KESTRIX_" + name: windows_path(path) for name, path in said.items()}
    status, text = run(windows_path(VIEWER_TEST), f"--gtest_filter=PackageViewer.{test}", environment=environment,
                       folder=ROOT / "build/release/bin")
    case.assertEqual(status, 0, text)
    case.assertIn("[  PASSED  ] 1 test.", text)


@contextlib.contextmanager
def disk(folder, size, *options):
    """A disk of that size in a folder; nothing when this user may mount none."""
    folder.mkdir(parents=True, exist_ok=True)
    options = ",".join((f"size={size}", *options))
    mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", options, "tmpfs", folder], capture_output=True, check=False)
    try:
        yield mounted.returncode == 0
    finally:
        if mounted.returncode == 0:
            subprocess.run(["umount", "--lazy", folder], check=True)
