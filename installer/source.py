"""Writes the source of the installer, as wixl takes it: files, registry, start menu and the list of programs."""

import os
import pathlib
import re
import xml.etree.ElementTree as tree

import product

START_ENTRY = "LocalLog%|1%|%|%|%|0"  # the virus log of the database
MAIN_PROGRAM = "Kestrix.exe"
KILOBYTE = 1024
# The folders around the package, the inner ones first, with the components that they go with.
OUTER_FOLDERS = (("INSTALLDIR", "Component.Settings"),
                 (f"ProgramFiles64Folder.{product.FOLDER[0]}", "Component.Settings"),
                 (f"CommonAppDataFolder.{product.FOLDER[0]}", "Component.Data"))


def identifier(kind, name):
    """A name as the installer's tables take it."""
    return kind + "." + re.sub(r"[^A-Za-z0-9.]", "_", name)


def folder_identifier(folder):
    return "INSTALLDIR" if folder == "." else identifier("Folder", folder)


def add(parent, tag, **attributes):
    return tree.SubElement(parent, tag, {name: str(value) for name, value in attributes.items()})


def add_folders(parent, names, identifier_of_last):
    """Folders in each other; returns the innermost."""
    for i, name in enumerate(names):
        last = i + 1 == len(names)
        parent = add(parent, "Directory", Id=identifier_of_last if last else f"{parent.get('Id')}.{name}", Name=name)
    return parent


class Source:
    """files: names in the package, with the paths that they are taken from; they reach the installer's maker from the
    folder of the source, since it takes no absolute ones."""

    def __init__(self, path, version, files, icon):
        self._path = path
        self._files = files
        self._root = tree.Element("Wix", xmlns="http://schemas.microsoft.com/wix/2006/wi")
        self._product = add(self._root, "Product", Id=product.product_code(version), Name=product.NAME, Language=1033,
                            Version=version, Manufacturer=product.MAKER, UpgradeCode=product.UPGRADE_CODE)
        add(self._product, "Package", Id="*", InstallerVersion=500, Compressed="yes",
            InstallScope="perMachine", Description=f"{product.NAME} {version}", Manufacturer=product.MAKER,
            Languages=1033)
        add(self._product, "Media", Id=1, Cabinet="files.cab", EmbedCab="yes")
        refusal = f"A newer version of {product.NAME} is installed. Remove it before you install {version}."
        add(self._product, "MajorUpgrade", DowngradeErrorMessage=refusal)
        add(self._product, "Icon", Id="kestrix.ico", SourceFile=self._relative(icon))
        for name, value in self._properties():
            add(self._product, "Property", Id=name, Value=value)
        self._target = add(self._product, "Directory", Id="TARGETDIR", Name="SourceDir")
        self._feature = add(self._product, "Feature", Id="All", Title=product.NAME, Level=1)
        self._folders = {}

    def _relative(self, path):
        return os.path.relpath(path, self._path.parent)

    def _properties(self):
        size = sum(path.stat().st_size for path in self._files.values())
        return (("ARPPRODUCTICON", "kestrix.ico"), ("ARPNOMODIFY", "1"), ("ARPSIZE", -(-size // KILOBYTE)))

    def _component(self, folder, name):
        component = add(folder, "Component", Id=identifier("Component", name),
                        Guid=product.identifier("component", name), Win64="yes")
        add(self._feature, "ComponentRef", Id=component.get("Id"))
        return component

    def _folder(self, path):
        if path not in self._folders:
            parent = self._folder(str(pathlib.PurePosixPath(path).parent))
            self._folders[path] = add(parent, "Directory", Id=folder_identifier(path),
                                      Name=pathlib.PurePosixPath(path).name)
        return self._folders[path]

    def add_program_folder(self):
        programs = add(self._target, "Directory", Id="ProgramFiles64Folder")
        self._folders["."] = add_folders(programs, product.FOLDER, "INSTALLDIR")
        for name, path in self._files.items():
            pure = pathlib.PurePosixPath(name)
            component = self._component(self._folder(str(pure.parent)), name)
            add(component, "File", Id=identifier("File", name), Name=pure.name, Source=self._relative(path),
                KeyPath="yes")
            if name == MAIN_PROGRAM:
                add(component, "Shortcut", Id="StartMenu", Directory="ProgramMenuFolder", Name=product.NAME,
                    Target="[INSTALLDIR]" + MAIN_PROGRAM, Arguments=START_ENTRY, WorkingDirectory="INSTALLDIR",
                    Icon="kestrix.ico", Description="Shows what the suite has recorded")
        add(self._target, "Directory", Id="ProgramMenuFolder")
        logs = add(self._folders["."], "Directory", Id="LOGDIR", Name="Log")
        add(self._component(logs, "Log"), "CreateFolder")

    def add_data_folder(self):
        data = add_folders(add(self._target, "Directory", Id="CommonAppDataFolder"), product.FOLDER, "DATADIR")
        add(self._component(data, "Data"), "CreateFolder")
        add(self._component(add(data, "Directory", Id="TRACEDIR", Name="Trace"), "Trace"), "CreateFolder")

    def add_registry(self, name, root, rows):
        """rows: (identifier, key, name of the value, value) each; the first is what a repair looks for."""
        component = self._component(self._folders["."], name)
        for i, (row, key, value_name, value) in enumerate(rows):
            names = {"Name": value_name} if value_name else {}
            kind = "integer" if value.startswith("#") else "string"
            add(component, "RegistryValue", Id=row, Root=root, Key=key, Type=kind, Value=value.removeprefix("#"),
                KeyPath="yes" if i == 0 else "no", **names)

    def write(self):
        tree.indent(self._root)
        tree.ElementTree(self._root).write(self._path, encoding="utf-8", xml_declaration=True)
