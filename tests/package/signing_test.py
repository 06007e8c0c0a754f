"""Programs and installer signed with a key that the test makes itself."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

import kit

PASSWORD = "a b'c"


def openssl(*arguments):
    subprocess.run(["openssl", *arguments], check=True, capture_output=True)


class Signing(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.key, cls.certificate = cls.folder / "key.pem", cls.folder / "certificate.pem"
        openssl("req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=Kestrix test",
                "-addext", "extendedKeyUsage=codeSigning", "-keyout", cls.key, "-out", cls.certificate)

    def sign(self, key, files, **environment):
        """As ./package --sign does."""
        script = 'source tools/lib.sh && source tools/release.sh && sign_files "$@"'
        done = subprocess.run(["bash", "-c", script, "package", key, *files], cwd=kit.ROOT, capture_output=True,
                              text=True, check=False, env={**os.environ, **environment})
        return done.returncode, done.stderr

    def copies(self, *paths):
        for path in paths:
            shutil.copy(path, self.folder / path.name)
        return [self.folder / path.name for path in paths]

    def verified(self, path):
        return subprocess.run(["osslsigncode", "verify", "-CAfile", self.certificate, "-in", path], capture_output=True,
                              text=True, check=False).returncode == 0

    def test_programs_language_files_and_installer_verify_until_they_are_changed(self):
        binaries = kit.ROOT / "build/release/bin"
        files = self.copies(binaries / "Kestrix.exe", binaries / "VdFrwkPs.dll",
                            binaries / "resource/en-US/Kestrix.exe.mui", kit.INSTALLER)
        pem = self.folder / "both.pem"
        pem.write_bytes(self.key.read_bytes() + self.certificate.read_bytes())
        self.assertEqual([self.verified(path) for path in files], [False] * len(files))
        self.assertEqual(self.sign(pem, files), (0, ""))
        for path in files:
            with self.subTest(path.name):
                self.assertTrue(self.verified(path))
                content = bytearray(path.read_bytes())
                content[len(content) // 2] ^= 1
                path.write_bytes(content)
                self.assertFalse(self.verified(path))

    def test_a_key_with_a_password_is_opened_with_the_one_of_the_environment_alone(self):
        store = self.folder / "store.pfx"
        openssl("pkcs12", "-export", "-inkey", self.key, "-in", self.certificate, "-out", store, "-passout",
                "pass:" + PASSWORD)
        file, = self.copies(kit.ROOT / "build/release/bin/VdDbg64.dll")
        before = file.read_bytes()
        status, text = self.sign(store, [file], KESTRIX_SIGN_PASSWORD="wrong")
        self.assertEqual(status, 1)
        self.assertIn("could not be signed", text)
        self.assertEqual(file.read_bytes(), before)
        self.assertEqual(self.sign(store, [file], KESTRIX_SIGN_PASSWORD=PASSWORD), (0, ""))
        self.assertTrue(self.verified(file))


if __name__ == "__main__":
    unittest.main()
