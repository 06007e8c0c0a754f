"""What the package holds, read without installing it."""

import hashlib
import pathlib
import re
import subprocess
import tempfile
import unittest
import zipfile

import kit


def table(name, package=kit.INSTALLER):
    text = subprocess.run(["msiinfo", "export", package, name], capture_output=True, text=True, check=True).stdout
    lines = text.splitlines()
    columns = lines[0].split("\t")
    return [dict(zip(columns, line.split("\t"))) for line in lines[3:]]


def identifier(package):
    text = subprocess.run(["msiinfo", "suminfo", package], capture_output=True, text=True, check=True).stdout
    return re.search(r"Revision number \(UUID\): (\S+)", text)[1]


def archived():
    with zipfile.ZipFile(kit.ARCHIVE) as archive:
        return {name.partition("/")[2]: archive.read(name) for name in archive.namelist()}


class Contents(unittest.TestCase):
    def test_the_sums_are_those_of_the_files(self):
        lines = (kit.MADE / "SHA256SUMS").read_text(encoding="utf-8").splitlines()
        self.assertEqual([line.split()[1] for line in lines], [kit.INSTALLER.name, kit.ARCHIVE.name])
        for line in lines:
            found, name = line.split()
            self.assertEqual(hashlib.sha256((kit.MADE / name).read_bytes()).hexdigest(), found)

    def test_every_language_of_the_build_and_no_sample_is_in_it(self):
        names = set(archived())
        binaries = kit.ROOT / "build/release/bin"
        built = {path.relative_to(binaries).as_posix() for path in binaries.glob("resource/*/Kestrix.exe.mui")}
        self.assertEqual({name for name in names if name.startswith("resource/")}, built)
        self.assertEqual({name for name in names if name.endswith(".chm")},
                         {path.name for path in binaries.glob("vdhelp*.chm")})
        self.assertIn("resource/en-US/Kestrix.exe.mui", names)
        self.assertFalse([name for name in names if "sample" in name.lower() or name.endswith((".VLG", ".db"))])

    def test_the_guide_and_the_list_of_changes_are_in_it(self):
        for name, source in (("README.txt", "docs/installing.md"), ("CHANGELOG.txt", "CHANGELOG.md")):
            self.assertEqual(archived()[name], (kit.ROOT / source).read_bytes())

    def test_the_files_of_the_archive_have_the_day_of_the_version(self):
        changes = (kit.ROOT / "CHANGELOG.md").read_text(encoding="utf-8")
        day = re.search(r"^## .*\((\d+)-(\d+)-(\d+)\)$", changes, re.MULTILINE).groups()
        with zipfile.ZipFile(kit.ARCHIVE) as archive:
            self.assertEqual({entry.date_time for entry in archive.infolist()}, {(*map(int, day), 0, 0, 0)})

    def test_the_notices_name_every_part_of_others_with_its_terms(self):
        text = archived()["NOTICES.txt"].decode("utf-8")
        for part in ("SQLite 3.", "disclaims copyright", "GCC RUNTIME LIBRARY EXCEPTION", "MinGW-w64", "winpthreads",
                     "GNU GENERAL PUBLIC LICENSE"):
            self.assertIn(part, text)
        self.assertIn("MIT License", archived()["LICENSE.txt"].decode("utf-8"))

    def test_the_installer_has_the_files_of_the_archive_and_the_version(self):
        sizes = sorted((row["FileName"].rpartition("|")[2], int(row["FileSize"])) for row in table("File"))
        self.assertEqual(sizes, sorted((name.rpartition("/")[2], len(content)) for name, content in archived().items()))
        properties = {row["Property"]: row["Value"] for row in table("Property")}
        self.assertEqual(properties["ProductVersion"], kit.VERSION)
        self.assertEqual(properties["ALLUSERS"], "1")

    # By it a newer program takes the place of an older one, and none that is the same is copied again.
    def test_each_program_has_the_version_of_the_product_and_no_other_file_has_one(self):
        versions = {row["FileName"].rpartition("|")[2]: row["Version"] for row in table("File") if row["Version"]}
        programs = {name for name in archived() if name.endswith((".exe", ".dll"))}
        self.assertEqual(versions, {name: f"{kit.VERSION}.0" for name in programs})

    def test_an_upgrade_that_fails_brings_the_old_version_back(self):
        sequence = {row["Action"]: int(row["Sequence"]) for row in table("InstallExecuteSequence")}
        self.assertLess(sequence["InstallInitialize"], sequence["RemoveExistingProducts"])
        self.assertLess(sequence["RemoveExistingProducts"], sequence["ProcessComponents"])

    # Windows passes on nothing else to the part of its installer that has the rights; Wine passes on everything.
    def test_what_a_user_may_say_reaches_the_part_that_installs(self):
        properties = {row["Property"]: row["Value"] for row in table("Property")}
        passed_on = properties["SecureCustomProperties"].split(";")
        self.assertLessEqual({"INSTALLDIR", "DATADIR", "LANGUAGE", "PURGE"}, set(passed_on))

    # Wine's user speaks English, so that no other language is taken there.
    def test_a_user_who_says_no_language_gets_the_one_before_the_own_one_or_english(self):
        languages = {row["Action"]: row["Target"] for row in table("CustomAction") if row["Source"] == "LANGUAGE"}
        own = {"de-DE": (1031, 2055, 3079, 4103, 5127), "ja-JP": (1041,), "zh-CN": (2052, 4100)}
        expected = [("[FOUNDLANGUAGE]", "FOUNDLANGUAGE AND NOT LANGUAGE")]
        for language, numbers in own.items():
            users = " OR ".join(f"UserLanguageID={number}" for number in numbers)
            expected.append((language, f"NOT LANGUAGE AND ({users})"))
        expected.append(("en-US", "NOT LANGUAGE"))
        for sequence in ("InstallExecuteSequence", "InstallUISequence"):
            rows = sorted(table(sequence), key=lambda row: int(row["Sequence"]))
            self.assertEqual([(languages[row["Action"]], row["Condition"]) for row in rows
                              if row["Action"] in languages], expected)

    # What made the installer had given it another one each time.
    def test_the_same_files_make_an_installer_of_the_same_identifier(self):
        with tempfile.TemporaryDirectory() as folder:
            with zipfile.ZipFile(kit.ARCHIVE) as archive:
                archive.extractall(folder)
            again = pathlib.Path(folder) / "again"
            subprocess.run(["python3", "-B", "installer/make.py", f"{folder}/Kestrix-{kit.VERSION}", again, kit.VERSION,
                            "build/release/resource/art/kestrix.ico", "common/VdFrwk.idl"], cwd=kit.ROOT, check=True)
            self.assertEqual(identifier(again.with_suffix(".msi")), identifier(kit.INSTALLER))

    def test_only_the_data_and_the_purge_settings_are_open_to_all_users(self):
        rows = {(row["Table"], row["LockObject"]): row["SDDLText"] for row in table("MsiLockPermissionsEx")}
        created = {row["Directory_"] for row in table("CreateFolder")}
        values = {row["Registry"]: row["Name"] for row in table("Registry")}
        self.assertEqual({(name, values.get(item, item)) for name, item in rows},
                         {("CreateFolder", "DATADIR"), ("CreateFolder", "TRACEDIR"), ("Registry", "EventLogPurgeFre")})
        self.assertLessEqual({"DATADIR", "TRACEDIR"}, created)
        for (name, _), text in rows.items():
            # All that users (BU) get is to change files or to set values; to change who may what is not among it.
            granted = "0x1301bf" if name == "CreateFolder" else "0x2001b"
            everything = r"\(A;[OICI;]*;(FA|KA);;;(SY|BA)\)"
            self.assertRegex(text, rf"^D:P{everything}{everything}\(A;[OICI;]*;{granted};;;BU\)$")

    def test_a_removal_that_purges_takes_all_files_of_the_data_and_of_the_logs(self):
        rows = {(row["FileName"], row["DirProperty"]) for row in table("RemoveFile")}
        for folder in ("PURGEDATADIR", "PURGETRACEDIR", "PURGELOGDIR"):
            self.assertLessEqual({("*", folder), ("", folder)}, rows)
        conditions = {row["Action"]: row["Condition"] for row in table("InstallExecuteSequence")}
        for action, condition in conditions.items():
            if "PURGE" in action and action.endswith("DIR"):
                self.assertEqual(condition, 'PURGE="1" AND REMOVE="ALL"')


if __name__ == "__main__":
    unittest.main()
