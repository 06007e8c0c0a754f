"""No file is longer than a reader takes in."""

import lint

LONGEST = 400
ENDINGS = lint.CODE + (".idl", ".py", ".sh", ".cmake", "CMakeLists.txt")
COMMANDS = ("run", "test", "bench", "fuzz", "package")
TOOLS = "tools/"  # scripts, whose names may have no ending


def main():
    root = lint.root_argument()
    findings = lint.Findings()
    for path in lint.files(root):
        is_tool = path.startswith(TOOLS) and "." not in path
        if is_tool or path.endswith(ENDINGS) or path in COMMANDS:
            lines = len(lint.read(root, path).splitlines())
            if lines > LONGEST:
                findings.add(path, LONGEST + 1, f"{lines} lines; split the file along what it does, into parts of at "
                                                f"most {LONGEST}")
    findings.finish()


if __name__ == "__main__":
    main()
