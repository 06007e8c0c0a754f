"""The archive, unpacked beside nothing."""

import pathlib
import shutil
import tempfile
import unittest
import zipfile

import install_test
import kit


class Archive(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def unpack(self, name):
        with zipfile.ZipFile(kit.ARCHIVE) as archive:
            archive.extractall(self.folder / name)
        return self.folder / name / f"Kestrix-{kit.VERSION}"

    def test_the_viewer_shows_a_daily_file_and_writes_nothing(self):
        programs = self.unpack("Ausgepackt 'hier' 解凍")
        day = kit.write_day(self.folder / "logs/20261120.VLG", "newest")
        registry, files = install_test.settled_registry(), install_test.settled_files()
        unpacked = kit.files(self.folder)
        kit.use_viewer(self, "ADailyFileIsShown", PROGRAM=programs / "Kestrix.exe", DAY=day)
        self.assertEqual(kit.files(self.folder), unpacked)
        self.assertEqual(install_test.settled_files(), files)
        self.assertEqual(install_test.settled_registry(), registry)

    def test_a_missing_language_folder_starts_in_english(self):
        programs = self.unpack("here")
        shutil.rmtree(programs / "resource")
        day = kit.write_day(self.folder / "20261120.VLG", "newest")
        kit.use_viewer(self, "ADailyFileIsShown", PROGRAM=programs / "Kestrix.exe", DAY=day)

    def test_the_import_fills_the_database_that_it_is_told(self):
        programs = self.unpack("here")
        kit.write_days(self.folder / "logs")
        tool = kit.windows_path(programs / "ImportLogs.exe")
        database = self.folder / "my events.db"
        status, text = kit.run(tool, "--database", kit.windows_path(database), kit.windows_path(self.folder / "logs"))
        self.assertEqual((status, text), (0, "3 of 3 files, 3 records are in the database\n"))
        self.assertTrue(database.exists())
        self.assertEqual(kit.run(tool, kit.windows_path(self.folder / "logs"))[0], 2)


if __name__ == "__main__":
    unittest.main()
