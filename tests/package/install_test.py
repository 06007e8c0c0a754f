"""The installer in the prefix: what it brings, what a user does with it, what it leaves.

A test begins and ends without an installed product. What Wine's installer cannot do is told where it is missed.
"""

import pathlib
import shutil
import sqlite3
import subprocess
import unittest
import zipfile

import kit

# What changes by itself while programs run, and what Wine's installer never takes away again: empty keys of its lists.
RESTLESS = ("\\NetworkCards", "\\CurrentControlSet\\", "\\Windows NT\\CurrentVersion", "\\Prefetcher",
            "HKEY_LOCAL_MACHINE\\Hardware", "HKEY_LOCAL_MACHINE\\HARDWARE")
WINES_LISTS = ("\\Installer\\Features", "\\Installer\\Products", "\\Installer\\UpgradeCodes",
               "\\UserData\\S-1-5-18\\Components", "\\UserData\\S-1-5-18\\Products")
TRACE_KEY = kit.SUITE_KEY + r"\17\DebugLog\InteractiveSession"
SERVICE_TRACE_KEY = kit.SUITE_KEY + r"\17\DebugLog\ServiceSession"
FIREWALL_KEY = kit.SUITE_KEY + r"\17\Installer"
DAYS = [20261118, 20261119, 20261120]
# What the programs write into the data folder, or what people write there for them.
DATA_FILES = ("EventLog.db", "EventLog.db-wal", "EventLog.db-shm", "Framework.dat", "Framework.new",
              "Framework.damaged", "Framework.log", "Framework.old.log", "FirstRules.txt", "UrlCategories.txt")
WINES_FILES = ("windows/Installer", "windows/temp", "users/", "windows/system32")


def settled_registry():
    """Every key of the machine and its values, without what changes by itself."""
    return {key: values for key, values in kit.registry("HKEY_LOCAL_MACHINE").items()
            if not any(part in key for part in RESTLESS) and not (key.endswith(WINES_LISTS) and not values)}


def settled_files():
    return {name for name in kit.files(kit.DRIVE) if not name.startswith(WINES_FILES)}


class Installed(unittest.TestCase):
    def setUp(self):
        self.addCleanup(self.clear)
        self.clear()

    def clear(self):
        for package in (kit.INSTALLER, kit.OLDER):
            if kit.entries():
                kit.remove(package)
        for folder in (kit.PROGRAMS.parent, kit.DATA.parent):
            shutil.rmtree(folder, ignore_errors=True)

    def import_days(self, programs=kit.PROGRAMS):
        kit.write_days(programs / "Log")
        status, text = kit.run(kit.windows_path(programs / "ImportLogs.exe"), kit.windows_path(programs / "Log"))
        self.assertEqual((status, text), (0, "3 of 3 files, 3 records are in the database\n"))

    def database(self, folder=kit.DATA):
        """The days of the virus log."""
        with sqlite3.connect(folder / "EventLog.db") as database:
            return [day for day, in database.execute("SELECT DISTINCT day FROM events WHERE kind = 2 ORDER BY day")]

    def sizes(self):
        return {name: facts and facts[0] for name, facts in kit.files(kit.PROGRAMS).items()}

    def expect_user_at_work(self):
        folder = kit.DRIVE / "exports"
        folder.mkdir()
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        kit.use_viewer(self, "TheStartMenuShowsTheVirusLogWhichIsExportedAndDeletedInPart",
                       START_ENTRY=kit.start_entry(), TARGET=folder / "export.csv")
        exported, = folder.iterdir()
        self.assertIn("newest", exported.read_bytes().decode("utf-16"))
        shutil.rmtree(folder)

    def expect_nothing_left(self, registry, files, but=()):
        self.assertEqual(kit.entries(), [])
        after = settled_registry()
        self.assertEqual({key: values for key, values in after.items() if registry.get(key) != values}, {})
        self.assertEqual(set(registry) - set(after), set())
        self.assertEqual(settled_files() - files, set(but))


class Installation(Installed):
    def test_a_user_installs_imports_deletes_purges_exports_and_removes_and_the_database_alone_stays(self):
        registry, files = settled_registry(), settled_files()
        self.assertEqual(kit.install(), 0)
        self.import_days()
        self.expect_user_at_work()
        self.assertEqual(self.database(), [20261120])
        self.assertEqual(kit.value(kit.LOG_KEY, "EventLogPurgeFre"), 7)
        self.assertEqual(kit.remove(), 0)
        self.assertIsNone(kit.start_entry())
        self.assertEqual(self.database(), [20261120])
        logs = {"Program Files/Veldrane", "Program Files/Veldrane/Kestrix", "Program Files/Veldrane/Kestrix/Log"}
        logs |= {f"Program Files/Veldrane/Kestrix/Log/{day}.VLG" for day in DAYS}
        data = {"ProgramData/Veldrane", "ProgramData/Veldrane/Kestrix"}
        data |= {name for name in settled_files() if name.startswith("ProgramData/Veldrane/Kestrix/")}
        self.expect_nothing_left(registry, files, but=logs | data)

    def test_the_list_of_programs_has_name_maker_version_size_icon_and_place_and_offers_no_change(self):
        self.assertEqual(kit.install(), 0)
        entry, = kit.entries()
        self.assertEqual((entry["DisplayName"], entry["Publisher"], entry["DisplayVersion"]),
                         ("Kestrix Log Viewer", "Veldrane", kit.VERSION))
        self.assertEqual(int(entry["NoModify"]), 1)
        self.assertEqual(entry["InstallLocation"], kit.windows_path(kit.PROGRAMS) + "\\")
        self.assertGreater(int(entry["Size"]), 5_000)  # KB; Windows works out an EstimatedSize as well
        self.assertTrue(list((kit.DRIVE / "windows/Installer").glob("*/kestrix.ico")))

    def test_the_rows_register_what_the_service_would_register_itself(self):
        def classes():
            return {key: values for key, values in kit.registry(r"HKEY_LOCAL_MACHINE\Software\Classes").items()
                    if "\\CLSID\\" in key or "\\Interface\\" in key}
        before = classes()
        self.assertEqual(kit.install(), 0)
        by_rows = {key: values for key, values in classes().items() if before.get(key) != values}
        service = kit.windows_path(kit.PROGRAMS / "VdFrwkSvc.exe")
        self.assertEqual(kit.run(service, "/UnregServer")[0], 0)
        self.assertEqual(kit.run(service, "/RegServer")[0], 0)
        by_service = {key: values for key, values in classes().items() if before.get(key) != values}
        self.assertGreater(len(by_rows), 20)
        self.assertEqual(by_rows, by_service)

    def test_the_registry_has_what_the_programs_read(self):
        self.assertEqual(kit.install(), 0)
        suite = kit.registry(kit.SUITE_KEY)
        self.assertEqual(suite[kit.SUITE_KEY], {
            "InstalledFolder": kit.windows_path(kit.PROGRAMS) + "\\", "DataFolder": kit.windows_path(kit.DATA) + "\\",
            "LangName": "en-US", "ProductName": "Zeptara Security"})
        self.assertEqual(suite[kit.LOG_KEY], {"MaxLogCount": 14, "EventLogPurgeFre": 30, "EventLogPurgeFlag": 0})
        self.assertEqual(suite[kit.SUITE_KEY + r"\17\UIFramework\OLH"], {"Files": "vdhelp.chm"})
        self.assertEqual(suite[FIREWALL_KEY], {"FirewallAP": 1})
        for key in (TRACE_KEY, SERVICE_TRACE_KEY):
            self.assertEqual(suite[key], {
                "Enable": 0, "Level": 256, "LogProcess": 0, "LogUnitType": 0,
                "LogFolder": kit.windows_path(kit.DATA / "Trace") + "\\", "LogPrefix": "zpt", "LogFile": "Kestrix",
                "LogExtension": "log", "Robust": 0, "Debugger": 0})

    def test_a_removal_that_purges_takes_the_database_too(self):
        registry, files = settled_registry(), settled_files()
        self.assertEqual(kit.install(), 0)
        self.import_days()
        for name in DATA_FILES:
            (kit.DATA / name).touch()
        # Wine's installer knows no "*"; the installer names the files of the data one by one, but not the daily ones.
        shutil.rmtree(kit.PROGRAMS / "Log")
        self.assertEqual(kit.remove(kit.INSTALLER, "PURGE=1"), 0)
        self.expect_nothing_left(registry, files)

    def test_the_language_is_the_one_that_is_asked_for_and_an_unknown_one_starts_in_english(self):
        self.assertEqual(kit.install(kit.INSTALLER, "LANGUAGE=xx-XX"), 0)
        self.assertEqual(kit.value(kit.SUITE_KEY, "LangName"), "xx-XX")
        self.import_days()
        kit.use_viewer(self, "TheStartMenuShowsTheVirusLog", START_ENTRY=kit.start_entry())

    def test_each_language_of_the_package_can_be_installed_with_its_help(self):
        with zipfile.ZipFile(kit.ARCHIVE) as archive:
            names = [pathlib.PurePosixPath(name) for name in archive.namelist()]
        languages = sorted(name.parts[2] for name in names if name.parts[1] == "resource")
        self.assertIn("en-US", languages)
        for language in languages:
            with self.subTest(language):
                self.assertEqual(kit.install(kit.INSTALLER, f"LANGUAGE={language}"), 0)
                self.assertEqual(kit.value(kit.SUITE_KEY, "LangName"), language)
                help_file = "vdhelp.chm" if language == "en-US" else f"vdhelp.{language}.chm"
                self.assertEqual(kit.value(kit.SUITE_KEY + r"\17\UIFramework\OLH", "Files"), help_file)
                self.assertTrue((kit.PROGRAMS / help_file).exists())
                self.assertEqual(kit.remove(), 0)

    def test_a_missing_language_folder_starts_in_english(self):
        self.assertEqual(kit.install(), 0)
        self.import_days()
        shutil.rmtree(kit.PROGRAMS / "resource")
        kit.use_viewer(self, "TheStartMenuShowsTheVirusLog", START_ENTRY=kit.start_entry())


class Folders(Installed):
    def test_folders_with_spaces_quotes_and_other_scripts(self):
        programs = kit.DRIVE / "Ein 'Ordner' & mehr/プログラム Журнал ü"
        data = kit.DRIVE / "Daten 'der' Suite/数据"
        for folder in (programs, data):
            self.addCleanup(shutil.rmtree, folder.parent, ignore_errors=True)
        self.assertEqual(kit.install(kit.INSTALLER, f"INSTALLDIR={kit.windows_path(programs)}",
                                     f"DATADIR={kit.windows_path(data)}"), 0)
        self.import_days(programs)
        self.expect_user_at_work()
        self.assertEqual(self.database(data), [20261120])
        self.assertEqual(kit.repair(), 0)
        self.assertEqual(kit.value(kit.SUITE_KEY, "InstalledFolder"), kit.windows_path(programs) + "\\")
        self.assertEqual(kit.remove(), 0)
        self.assertFalse((programs / "Kestrix.exe").exists())
        self.assertEqual(self.database(data), [20261120])

    def test_a_data_folder_that_is_read_only_takes_no_import_and_the_viewer_shows_nothing_of_it(self):
        self.assertEqual(kit.install(), 0)
        self.import_days()
        kept = {path.name: path.read_bytes() for path in kit.DATA.glob("EventLog.db*")}
        with kit.disk(kit.DATA, "8m") as mounted:
            if not mounted:
                self.skipTest("a disk can only be mounted by root")
            for name, content in kept.items():
                (kit.DATA / name).write_bytes(content)
            subprocess.run(["mount", "-o", "remount,ro", kit.DATA], check=True)
            status, text = kit.run(kit.windows_path(kit.PROGRAMS / "ImportLogs.exe"),
                                   kit.windows_path(kit.PROGRAMS / "Log"))
            self.assertEqual(status, 1, text)
            self.assertIn("cannot write the database", text)
            self.assertIn("that you may write there", text)
            kit.use_viewer(self, "TheStartMenuShowsNothingOfADatabaseThatCannotBeRead", START_ENTRY=kit.start_entry())
        self.assertEqual(self.database(), DAYS)

    # Windows works out what the files need and refuses; Wine's installer goes on with empty files and says nothing.
    def test_what_a_full_disk_has_left_is_made_whole_by_a_repair_and_goes_with_a_removal(self):
        registry = settled_registry()
        folder = kit.DRIVE / "Small disk"
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        with kit.disk(folder, "3m") as mounted:
            if not mounted:
                self.skipTest("a disk can only be mounted by root")
            kit.install(kit.INSTALLER, f"INSTALLDIR={kit.windows_path(folder)}")
            subprocess.run(["mount", "-o", "remount,size=30m", folder], check=True)
            self.assertEqual(kit.repair() if kit.entries() else
                             kit.install(kit.INSTALLER, f"INSTALLDIR={kit.windows_path(folder)}"), 0)
            self.import_days(folder)
            kit.use_viewer(self, "TheStartMenuShowsTheVirusLog", START_ENTRY=kit.start_entry())
            self.assertEqual(kit.remove(), 0)
            logs = {f"Log/{day}.VLG" for day in DAYS}
            self.assertEqual(set(kit.files(folder)), {"Log"} | logs)
        self.assertEqual(settled_registry(), registry)


class Versions(Installed):
    def test_an_upgrade_keeps_data_folders_and_settings_and_has_one_entry(self):
        programs = kit.DRIVE / "Old place"
        self.addCleanup(shutil.rmtree, programs, ignore_errors=True)
        self.assertEqual(kit.install(kit.OLDER, f"INSTALLDIR={kit.windows_path(programs)}", "LANGUAGE=xx-XX"), 0)
        self.assertEqual([entry["DisplayVersion"] for entry in kit.entries()], ["0.9.0"])
        self.import_days(programs)
        kit.set_value(kit.LOG_KEY, "EventLogPurgeFre", 60)
        kit.set_value(kit.LOG_KEY, "EventLogPurgeFlag", 1)
        kit.set_value(FIREWALL_KEY, "FirewallAP", 0)
        kit.set_value(TRACE_KEY, "Enable", 1)
        self.assertEqual(kit.install(), 0)
        self.assertEqual([entry["DisplayVersion"] for entry in kit.entries()], [kit.VERSION])
        self.assertEqual(kit.registry(kit.LOG_KEY)[kit.LOG_KEY],
                         {"MaxLogCount": 14, "EventLogPurgeFre": 60, "EventLogPurgeFlag": 1})
        self.assertEqual(kit.value(FIREWALL_KEY, "FirewallAP"), 0)
        self.assertEqual(kit.value(TRACE_KEY, "Enable"), 1)
        self.assertEqual(kit.value(kit.SUITE_KEY, "LangName"), "xx-XX")
        self.assertEqual(kit.value(kit.SUITE_KEY, "InstalledFolder"), kit.windows_path(programs) + "\\")
        self.assertEqual(self.database(), DAYS)
        self.assertEqual(len(list((programs / "Log").iterdir())), 3)
        kit.set_value(kit.LOG_KEY, "EventLogPurgeFlag", 0)  # the service would follow it
        kit.set_value(TRACE_KEY, "Enable", 0)
        kit.use_viewer(self, "TheStartMenuShowsTheVirusLog", START_ENTRY=kit.start_entry())

    def test_an_older_version_over_a_newer_one_is_refused_and_changes_nothing(self):
        self.assertEqual(kit.install(), 0)
        before = kit.files(kit.PROGRAMS), kit.registry(kit.SUITE_KEY)
        self.assertNotEqual(kit.install(kit.OLDER), 0)
        self.assertEqual([entry["DisplayVersion"] for entry in kit.entries()], [kit.VERSION])
        self.assertEqual((kit.files(kit.PROGRAMS), kit.registry(kit.SUITE_KEY)), before)

    def test_a_repair_brings_back_files_and_settings_and_keeps_what_users_set(self):
        self.assertEqual(kit.install(), 0)
        whole = self.sizes()
        self.import_days()
        kit.set_value(kit.LOG_KEY, "EventLogPurgeFre", 60)
        for name in ("Kestrix.exe", "resource/en-US/Kestrix.exe.mui"):
            (kit.PROGRAMS / name).unlink()
        kit.run("reg", "delete", kit.SUITE_KEY + r"\17\UIFramework", "/f")
        self.assertEqual(kit.repair(), 0)
        self.assertEqual({name: size for name, size in self.sizes().items() if "Log/" not in name}, whole)
        self.assertEqual(kit.value(kit.SUITE_KEY + r"\17\UIFramework\OLH", "Files"), "vdhelp.chm")
        self.assertEqual(kit.value(kit.LOG_KEY, "EventLogPurgeFre"), 60)
        self.assertEqual(self.database(), DAYS)


if __name__ == "__main__":
    unittest.main()
