"""Runs the tests of the package, all or those whose names hold one of the arguments, and prints their number."""

import pathlib
import sys
import unittest


def main(names):
    loader = unittest.TestLoader()
    loader.testNamePatterns = [f"*{name}*" for name in names] or None
    suite = loader.discover(str(pathlib.Path(__file__).parent), pattern="*_test.py")
    result = unittest.TextTestRunner(verbosity=2, stream=sys.stdout).run(suite)
    passed = result.testsRun - len(result.failures) - len(result.errors) - len(result.skipped)
    print(f"{passed} of {suite.countTestCases()} tests of the package passed, {len(result.skipped)} skipped")
    return 0 if result.wasSuccessful() and result.testsRun else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
