"""Makes the installer and the archive of a staged package.

usage: make.py STAGE OUTPUT VERSION ICON IDL

STAGE is the folder with all files of the package; they are dated with the day of the newest version in the list of
changes, so that the same files make the same archive. OUTPUT is the path of what is made without its ending, .msi or
.zip.
"""

import csv
import datetime
import hashlib
import os
import pathlib
import re
import subprocess
import sys
import zipfile

import classes
import contents
import product
import source
import tables

HERE = pathlib.Path(__file__).parent
# The values whose keys every user may write; one of each key.
SHARED_VALUES = ("EventLogPurgeFre",)


def staged_files(stage):
    """The files by their names in the package, the programs first."""
    names = sorted(path.relative_to(stage).as_posix() for path in stage.rglob("*") if path.is_file())
    first = [name for name in contents.PROGRAMS if name in names]
    return {name: stage / name for name in first + [name for name in names if name not in first]}


def settings():
    """The rows of registry.tsv."""
    text = (HERE / "registry.tsv").read_text(encoding="utf-8")
    lines = [line for line in text.splitlines() if not line.startswith("#")]
    return list(csv.DictReader(lines, delimiter="\t", quoting=csv.QUOTE_NONE))


def day_of_version():
    """Of the newest, as the list of changes tells it."""
    text = (HERE.parent / "CHANGELOG.md").read_text(encoding="utf-8")
    match = re.search(r"^## \S+ \((\d{4}-\d\d-\d\d)\)$", text, re.MULTILINE)
    if match is None:
        sys.exit("The first heading of CHANGELOG.md does not tell the day of its version: ## VERSION (YYYY-MM-DD)")
    return datetime.datetime.fromisoformat(match[1]).replace(tzinfo=datetime.timezone.utc)


def date_files(files, day):
    seconds = int(day.timestamp())
    for path in files.values():
        os.utime(path, (seconds, seconds))


def write_archive(files, folder, day, path):
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for name in sorted(files):
            entry = zipfile.ZipInfo(f"{folder}/{name}", day.timetuple()[:6])
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            archive.writestr(entry, files[name].read_bytes())


def content_identifier(version, files, *others):
    """The identifier of this very installer."""
    hashes = [hashlib.sha256(path.read_bytes()).hexdigest() for path in [*files.values(), *others]]
    return product.identifier("package", version, *files, *hashes)


def registry_rows(rows):
    for i, row in enumerate(rows):
        yield f"Setting{i}", row["key"], row["name"], f"[{row['kept']}]" if row["kept"] else row["value"]


def class_rows(idl):
    for i, (key, name, value) in enumerate(classes.rows(idl.read_text(encoding="utf-8"))):
        yield f"Class{i}", rf"Software\Classes\{key}", name, value


def write_installer(files, version, icon, idl, path):
    made_by = [HERE / name for name in ("source.py", "tables.py", "classes.py", "registry.tsv", "make.py")]
    code = content_identifier(version, files, idl, *made_by)
    rows = settings()
    wxs = path.with_suffix(".wxs")
    text = source.Source(wxs, version, files, icon)
    text.add_program_folder()
    text.add_data_folder()
    text.add_registry("Settings", "HKLM", registry_rows(rows))
    text.add_registry("Classes", "HKLM", class_rows(idl))
    text.write()
    subprocess.run(["wixl", "--arch", "x64", "--output", path.name, wxs.name], cwd=path.parent, check=True)
    kept = [(row["key"], row["name"], row["kept"], row["value"]) for row in rows if row["kept"]]
    languages = {pathlib.PurePosixPath(name).parent.name for name in files
                 if name.startswith("resource/") and name.endswith(contents.LANGUAGE_FILE)}
    shared = [f"Setting{i}" for i, row in enumerate(rows) if row["name"] in SHARED_VALUES]
    programs = [source.identifier("File", name) for name in files if name in contents.PROGRAMS]
    helps = {language: contents.help_of(language) for language in sorted(languages - {contents.FALLBACK})
             if contents.help_of(language) in files}
    statements = [*tables.statements(kept, languages, helps, shared, source.OUTER_FOLDERS),
                  *tables.versions(version, programs)]
    queries = [word for statement in statements for word in ("-q", statement)]
    subprocess.run(["msibuild", path, *queries], check=True)
    # wixl makes an identifier up, whatever its source says.
    subprocess.run(["msibuild", path, "-s", f"{product.NAME} {version}", product.MAKER, "x64;1033", f"{{{code}}}"],
                   check=True)


def main(stage, output, version, icon, idl):
    files = staged_files(pathlib.Path(stage))
    day = day_of_version()
    date_files(files, day)
    output = pathlib.Path(output)
    write_archive(files, f"Kestrix-{version}", day, output.with_name(output.name + ".zip"))
    write_installer(files, version, pathlib.Path(icon), pathlib.Path(idl), output.with_name(output.name + ".msi"))


if __name__ == "__main__":
    if len(sys.argv) != 6:
        sys.exit(__doc__)
    main(*sys.argv[1:])
