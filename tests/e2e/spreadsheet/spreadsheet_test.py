#!/usr/bin/env python3
"""Has LibreOffice Calc open an export and compares its cells with the records.

usage: spreadsheet_test.py RUNNER EXPORT_PROGRAM BIN_FOLDER
"""

import csv
import pathlib
import shutil
import subprocess
import tempfile

import day

RECORDS = [
    ("beta", "C:\\Users\\a user\\beta.exe"),
    ('a "quoted" name', '"'),
    ("a\ttab", "\t"),
    ("comma, semicolon; apostrophe '", "=1+1"),
    ("0012", "1/2/2008"),
    ("", "C:\\c"),
    ("日本語 äß Ж 😀", "\\\\server\\share\\文書.doc"),
] + [(f"threat {i}", f"C:\\folder\\{i}.exe") for i in range(2000)]

# Of Calc's text filter: separator, quote, character set (65535 is UTF-16, 76 UTF-8), first line, columns, language,
# quoted fields are text, special numbers are not looked for.
READ = "Text - txt - csv (StarCalc):9,34,65535,1,,0,true,false"
WRITE = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,true,true"


def cells(office, export, folder):
    subprocess.run([office, "--headless", "--norestore", f"-env:UserInstallation=file://{folder}/profile",
                    f"--infilter={READ}", "--convert-to", WRITE, "--outdir", str(folder / "out"), str(export)],
                   check=True, capture_output=True, timeout=180)
    with open(folder / "out" / (export.stem + ".csv"), encoding="utf-8-sig", newline="") as file:
        return list(csv.reader(file))


def main():
    runner, program, bin_folder = day.arguments()
    office = shutil.which("soffice")
    if office is None:
        day.skip("LibreOffice Calc is not installed")
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        day.write_day(folder / "20261120.VLG", RECORDS)
        answer = day.export(runner, program, bin_folder, folder / "20261120.VLG", folder / "export.txt")
        assert answer == (1, 0), answer
        rows = cells(office, folder / "export.txt", folder)
    assert rows[0][1:3] == ["31/12/2008", "192.0.2.1"], rows[0]
    assert len(rows[1]) == 8 and all(rows[1]), rows[1]
    found = [(row[3], row[4]) for row in rows[2:]]
    for record, cell in zip(RECORDS, found):
        assert record == cell, (record, cell)
    assert len(found) == len(RECORDS), len(found)
    assert rows[2][0] == "09:00", rows[2]
    print(f"{len(found)} records are in the cells")


if __name__ == "__main__":
    main()
