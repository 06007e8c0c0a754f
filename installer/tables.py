"""The rows of the installer's tables that wixl does not write, as statements for msibuild.

A property that is set by an action has the type 51; 18 is a search for a value in the 64-bit registry; 2 deletes a file
when its component is removed.
"""

SET_PROPERTY = 51
SEARCH_64_BIT = 18
LOCAL_MACHINE = 2
ON_REMOVAL = 2

SUITE_KEY = r"Software\Veldrane\Zeptara"

# Users may change what is in the folder, and its files and folders get these rights too; administrators and the system
# may do all. In the registry: read, set values.
FOLDER_RIGHTS = "D:P(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;OICI;0x1301bf;;;BU)"
KEY_RIGHTS = "D:P(A;CI;KA;;;SY)(A;CI;KA;;;BA)(A;CI;0x2001b;;;BU)"

# What the suite writes into the data folder. A removal that purges takes all files, but not every system's installer
# knows "all"; these go everywhere.
DATA_FILES = ("EventLog.db", "EventLog.db-wal", "EventLog.db-shm", "Framework.dat", "Framework.new",
              "Framework.damaged", "Framework.log", "Framework.old.log", "FirstRules.txt", "UrlCategories.txt")

# The languages of the system's users, by the system's own numbers, and the language of the program that fits each.
USER_LANGUAGES = {
    "de-DE": (1031, 2055, 3079, 4103, 5127),
    "ja-JP": (1041,),
    "zh-CN": (2052, 4100),
}

# Where an installation before this one left something: the value, the property that carries it, and the one it sets.
FOLDERS = (("InstalledFolder", "FOUNDINSTALLDIR", "INSTALLDIR"), ("DataFolder", "FOUNDDATADIR", "DATADIR"),
           ("LangName", "FOUNDLANGUAGE", "LANGUAGE"))

SEARCH = 50            # the sequence numbers of what the installer does: the search, the first action that sets a
SET_FIRST = 60         # property by it, and what needs the folders
WITH_FOLDERS = 1010
REMOVE_OLD = 1501      # after the transaction has begun, so that a failure brings the old version back

# What a user may say on the command line of the system's installer, which passes on no other properties.
SAID_BY_USERS = ("INSTALLDIR", "DATADIR", "LANGUAGE", "PURGE")

SEQUENCES = ("InstallExecuteSequence", "InstallUISequence")


def quote(value):
    return str(value) if isinstance(value, int) else "'" + value.replace("'", "''") + "'"


def insert(table, **columns):
    names = ", ".join(f"`{name}`" for name in columns)
    values = ", ".join(quote(value) for value in columns.values())
    return f"INSERT INTO `{table}` ({names}) VALUES ({values})"


def search(key, value, found):
    yield insert("AppSearch", Property=found, Signature_="Find" + found)
    yield insert("RegLocator", Signature_="Find" + found, Root=LOCAL_MACHINE, Key=key, Name=value, Type=SEARCH_64_BIT)


class Actions:
    """Actions that set a property each, one after the other."""

    def __init__(self, first):
        self._next = first

    def set(self, name, value, condition, sequences=SEQUENCES):
        action = f"Set{self._next}.{name}"
        yield insert("CustomAction", Action=action, Type=SET_PROPERTY, Source=name, Target=value)
        for sequence in sequences:
            yield insert(sequence, Action=action, Condition=condition, Sequence=self._next)
        self._next += 1


def user_language(languages, helps, actions):
    """languages: those of the package; helps: the help files of those that have one of their own."""
    for language, numbers in USER_LANGUAGES.items():
        if language in languages:
            condition = " OR ".join(f"UserLanguageID={number}" for number in numbers)
            yield from actions.set("LANGUAGE", language, f"NOT LANGUAGE AND ({condition})")
    yield from actions.set("LANGUAGE", "en-US", "NOT LANGUAGE")
    yield insert("Property", Property="HELPFILE", Value="vdhelp.chm")
    for language, help_file in helps.items():
        yield from actions.set("HELPFILE", help_file, f'LANGUAGE="{language}"')


def keep(kept):
    """What is found of an installation before: folders, language and the values that a user changes."""
    actions = Actions(SET_FIRST)
    for value, found, name in FOLDERS:
        yield from search(SUITE_KEY, value, found)
        yield from actions.set(name, f"[{found}]", f"{found} AND NOT {name}")
    for key, value, name, default in kept:
        yield from search(key, value, "FOUND" + name)
        yield insert("Property", Property=name, Value=default)
        yield from actions.set(name, f"[FOUND{name}]", "FOUND" + name)
    return actions


def remove(component, rows):
    for i, (name, folder) in enumerate(rows):
        file = {"FileName": name} if name else {}
        yield insert("RemoveFile", FileKey=f"Purge{i}", Component_=component, DirProperty=folder,
                     InstallMode=ON_REMOVAL, **file)


def purge():
    """With PURGE=1 a removal takes the data and the daily files too: the properties that name their folders are set
    then alone, and rows without a folder do nothing."""
    actions = Actions(WITH_FOLDERS)
    for name, folder in (("PURGETRACEDIR", "TRACEDIR"), ("PURGEDATADIR", "DATADIR"), ("PURGELOGDIR", "LOGDIR")):
        yield from actions.set(name, f"[{folder}]", 'PURGE="1" AND REMOVE="ALL"', SEQUENCES[:1])
    yield from actions.set("ARPINSTALLLOCATION", "[INSTALLDIR]", "NOT Installed", SEQUENCES[:1])
    yield from remove("Component.Data", [("*", "PURGETRACEDIR"), ("", "PURGETRACEDIR"),
                                         *((name, "PURGEDATADIR") for name in DATA_FILES), ("*", "PURGEDATADIR"),
                                         ("", "PURGEDATADIR"), ("*", "PURGELOGDIR"), ("", "PURGELOGDIR")])


def folders(created):
    """Folders that go when nothing is left in them, the inner ones first."""
    for folder, component in created:
        yield insert("CreateFolder", Directory_=folder, Component_=component)


def rights(registry_rows):
    yield ("CREATE TABLE `MsiLockPermissionsEx` (`MsiLockPermissionsEx` CHAR(72) NOT NULL, "
           "`LockObject` CHAR(72) NOT NULL, `Table` CHAR(32) NOT NULL, `SDDLText` LONGCHAR NOT NULL, "
           "`Condition` CHAR(255) PRIMARY KEY `MsiLockPermissionsEx`)")
    objects = [("DATADIR", "CreateFolder", FOLDER_RIGHTS), ("TRACEDIR", "CreateFolder", FOLDER_RIGHTS)]
    objects += [(row, "Registry", KEY_RIGHTS) for row in registry_rows]
    for i, (lock_object, table, text) in enumerate(objects):
        yield insert("MsiLockPermissionsEx", MsiLockPermissionsEx=f"Rights{i}", LockObject=lock_object, Table=table,
                     SDDLText=text)


def versions(version, programs):
    """Of the programs, by which a newer one replaces an older one."""
    for file in programs:
        yield f"UPDATE `File` SET `Version` = '{version}.0', `Language` = '1033' WHERE `File` = '{file}'"


def frame():
    """What stands in tables that wixl has made."""
    for sequence in SEQUENCES:
        yield insert(sequence, Action="AppSearch", Sequence=SEARCH)
    yield f"UPDATE `InstallExecuteSequence` SET `Sequence` = {REMOVE_OLD} WHERE `Action` = 'RemoveExistingProducts'"
    said = ";".join(("WIX_DOWNGRADE_DETECTED", "WIX_UPGRADE_DETECTED") + SAID_BY_USERS)
    yield f"UPDATE `Property` SET `Value` = '{said}' WHERE `Property` = 'SecureCustomProperties'"


def statements(kept, languages, helps, shared_registry_rows, created):
    yield from frame()
    yield from folders(created)
    actions = yield from keep(kept)
    yield from user_language(languages, helps, actions)
    yield from purge()
    yield from rights(shared_registry_rows)
