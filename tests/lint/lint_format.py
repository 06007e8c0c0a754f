"""Every C++ file stands as clang-format writes it."""

import re
import shutil
import subprocess
import sys

import lint

# The version matters: others break lines differently.
FORMATTER = "clang-format-14"


def main():
    root = lint.root_argument()
    if not shutil.which(FORMATTER):
        sys.exit(f"{FORMATTER} is missing. Install it: apt-get install {FORMATTER}")
    findings = lint.Findings()
    sources = lint.files(root, lint.CODE)
    if sources:
        result = subprocess.run([FORMATTER, "--dry-run", "-Werror", *sources], cwd=root, capture_output=True, text=True)
        rows = re.findall(r"^(.+?):(\d+):\d+: error: code should be clang-formatted", result.stderr, re.MULTILINE)
        for path, line in rows:
            findings.add(path, int(line), f"not formatted; {FORMATTER} -i {path}")
        if result.returncode and not rows:
            sys.exit(f"{FORMATTER} failed:\n{result.stderr}")
    findings.finish()


if __name__ == "__main__":
    main()
