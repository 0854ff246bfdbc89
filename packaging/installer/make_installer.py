#!/usr/bin/env python3
"""Makes the Windows installer: make_installer.py FILES ICON BITS VERSION RESULT.

FILES is the folder with what is installed, BITS 64 or 32. wixl compiles product.wxs and packs the files; its
tables are then taken out, completed with what wixl cannot express, put in order, and written into a
new database by msibuild. wixl itself writes its tables in an order that changes from run to run, under a new
identifier and with the time of day; this way the same files give the same installer.
"""

import hashlib
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import uuid

HERE = pathlib.Path(__file__).resolve().parent
# Everything that Windows knows this product by is made from this one.
FAMILY = uuid.UUID("7d1c2a4e-52f0-4c58-9a0e-3b6f6f0a8d21")
COMPONENTS = ("uadmin help readme licence notices contents vardex vardexctl kvh_util sample").split()
NEWER_FOUND = "Une version plus récente est déjà installée."
UTF8 = 65001
FRENCH = 1036

# Custom actions' types: to set a property; to run an installed program as the user, without
# regard to how it ends, when the installation is carried out; the same with the installer's rights.
SET_PROPERTY = 51
RUN_AS_USER = 18 + 64 + 1024
RUN_AS_SYSTEM = RUN_AS_USER + 2048
# Attributes of an upgrade: migrate the features; only detect.
MIGRATE, DETECT_ONLY = 1, 2
ON_REMOVAL = 2

MEMORY = "Software\\User Administration"
CONTEXT, USER, MACHINE = -1, 1, 2  # roots of the registry; the first is either, as the installation is
WHOLE_VALUE = 2

# The folder is the one that was asked for, else the one where an installation of the same kind lies (an
# update and a repair stay where the user put it), else the usual one.
FOLDER_CHOICE = [
    ("AppSearch", "", 50),
    ("FolderOfMachine", "MACHINEFOLDER AND ALLUSERS=1 AND NOT APPFOLDER", 730),
    ("FolderOfUser", "USERFOLDER AND NOT ALLUSERS=1 AND NOT APPFOLDER", 740),
    ("UsualFolderOfMachine", "ALLUSERS=1 AND NOT APPFOLDER", 750),
]
EARLY = [
    ("FindRelatedProducts", "", 25),
    ("LaunchConditions", "", 100),
    ("MigrateFeatureStates", "", 1200),
]
LEAVING = "?vardexctl=3 AND $vardexctl=2 AND NOT UPGRADINGPRODUCTCODE"

ADDED = {
    "CustomAction": [
        ("FolderOfMachine", SET_PROPERTY, "APPFOLDER", "[MACHINEFOLDER]"),
        ("FolderOfUser", SET_PROPERTY, "APPFOLDER", "[USERFOLDER]"),
        ("UsualFolderOfMachine", SET_PROPERTY, "APPFOLDER", "[{programs}]{folder}"),
        ("Location", SET_PROPERTY, "ARPINSTALLLOCATION", "[APPFOLDER]"),
        ("UnregisterForUser", RUN_AS_USER, "vardexctl.exe", "unregister --user"),
        ("UnregisterForMachine", RUN_AS_SYSTEM, "vardexctl.exe", "unregister"),
    ],
    "InstallExecuteSequence": EARLY + FOLDER_CHOICE + [
        ("Location", "NOT Installed", 1010),
        ("RemoveExistingProducts", "", 1510),
        ("RemoveRegistryValues", "", 2600),
        ("UnregisterForUser", LEAVING, 3300),
        ("UnregisterForMachine", f"ALLUSERS=1 AND {LEAVING}", 3310),
        ("WriteRegistryValues", "", 5000),
    ],
    "InstallUISequence": EARLY + FOLDER_CHOICE,
    "AppSearch": [("USERFOLDER", "userfolder"), ("MACHINEFOLDER", "machinefolder")],
    "RegLocator": [
        ("userfolder", USER, MEMORY, "Folder{bits}", WHOLE_VALUE),
        ("machinefolder", MACHINE, MEMORY, "Folder{bits}", "{locator}"),
    ],
    "Registry": [("folder", CONTEXT, MEMORY, "Folder{bits}", "[APPFOLDER]", "uadmin")],
    "Upgrade": [
        ("{upgrade}", "", "{version}", "", MIGRATE, "", "OLDERFOUND"),
        ("{upgrade}", "{version}", "", "", DETECT_ONLY, "", "NEWERFOUND"),
    ],
    "LaunchCondition": [("Installed OR NOT NEWERFOUND", NEWER_FOUND)],
    # The folder goes with the last file, where nothing of somebody else's is in it. The one around it is the
    # system's own place for a user's programs.
    "RemoveFile": [("folder", "uadmin", "", "APPFOLDER", ON_REMOVAL)],
    "Property": [("SecureCustomProperties", "APPFOLDER;MACHINEFOLDER;NEWERFOUND;OLDERFOUND;USERFOLDER")],
}


def identifier(*words):
    return "{" + str(uuid.uuid5(FAMILY, "/".join(words))).upper() + "}"


class Edition:
    """What tells the installers of one version and bitness from others."""

    def __init__(self, bits, version):
        self.bits = bits
        self.version = version
        self.locator = str(WHOLE_VALUE + (16 if bits == "64" else 0))  # 16: of the 64-bit registry
        self.platform = "x64" if bits == "64" else "Intel"
        self.win64 = "yes" if bits == "64" else "no"
        mark = "" if bits == "64" else " (32 bits)"
        self.name = "Admin Utilisateurs" + mark
        self.folder = "User Administration" + mark
        self.programs = "ProgramFiles64Folder" if bits == "64" else "ProgramFilesFolder"
        self.product = identifier(bits, "product", version)
        self.upgrade = identifier(bits, "upgrade")
        self.components = {name: identifier(bits, "component", name) for name in COMPONENTS}

    def variables(self, icon):
        return {"ProductCode": self.product, "UpgradeCode": self.upgrade, "Name": self.name,
                "Version": self.version, "Folder": self.folder, "Win64": self.win64, "Icon": icon,
                **self.components}


def run(*command, folder=None):
    done = subprocess.run([str(word) for word in command], cwd=folder, capture_output=True)
    if done.returncode != 0 or b"failed" in done.stderr:
        sys.exit(f"{command[0]} failed:\n{done.stdout.decode()}{done.stderr.decode()}")
    return done.stdout


def compile_product(files, icon, edition, target):
    variables = []
    for name, value in edition.variables(os.path.relpath(icon, files)).items():
        variables += ["-D", f"{name}={value}"]
    arch = ["-a", "x64"] if edition.win64 == "yes" else []
    run("wixl", *arch, *variables, "-o", target, HERE / "product.wxs", folder=files)


class Tables:
    """The tables of a database: name to three lines of heading, and rows of texts."""

    # What a table holds besides texts (the icon) is left as files in the folder given.
    def __init__(self, database, work):
        self.heads, self.rows = {}, {}
        for table in run("msiinfo", "tables", database).decode().split():
            if not table.startswith("_"):
                lines = run("msiinfo", "export", database, table, folder=work).decode().split("\r\n")
                self.heads[table] = lines[:3]
                self.rows[table] = [line.split("\t") for line in lines[3:] if line]

    def add(self, table, row):
        """Adds a row, in the place of one that has the same key."""
        texts = [str(value) for value in row]
        texts += [""] * (len(self.heads[table][0].split("\t")) - len(texts))
        keys = len(self.heads[table][2].split("\t")) - 1
        self.rows[table] = [old for old in self.rows[table] if old[:keys] != texts[:keys]]
        self.rows[table].append(texts)

    def write(self, folder):
        for table, rows in self.rows.items():
            lines = self.heads[table] + sorted("\t".join(row) for row in rows)
            (folder / f"{table}.idt").write_bytes(("\r\n".join(lines) + "\r\n").encode())


def complete(tables, edition):
    for table, rows in ADDED.items():
        for row in rows:
            tables.add(table, [str(value).format(**vars(edition)) for value in row])
    for row in tables.rows["File"]:
        if row[0].endswith((".exe", ".dll")):
            row[4:6] = edition.version + ".0", str(FRENCH)
    # A file is known by its version or, where it has none, by its hash.
    versioned = {row[0] for row in tables.rows["File"] if row[4]}
    tables.rows["MsiFileHash"] = [row for row in tables.rows["MsiFileHash"] if row[0] not in versioned]
    for row in tables.rows["Shortcut"]:
        row[10] = "7"  # the console starts minimised


def summary(edition, package):
    """The properties that Windows reads before it opens the database, as a table."""
    rows = [(1, UTF8), (2, "Installation Database"), (3, f"{edition.name} {edition.version}"),
            (4, "User Administration"), (5, "Installer"), (7, f"{edition.platform};{FRENCH}"),
            (9, package), (14, 500), (15, 2), (18, "wixl, msibuild"), (19, 2)]
    head = ["PropertyId\tValue", "i2\tl255", "_SummaryInformation\tPropertyId"]
    return "\r\n".join(head + [f"{key}\t{value}" for key, value in rows]) + "\r\n"


def contents_identifier(files, work):
    """An identifier of the package that is another one as soon as anything in it is."""
    digest = hashlib.sha256()
    for path in sorted(work.glob("*.idt")) + sorted(files.iterdir()) + [work / "Icon/Icon.program.ico"]:
        digest.update(path.name.encode() + b"\0" + hashlib.sha256(path.read_bytes()).digest())
    return identifier("package", digest.hexdigest())


def write_database(files, raw, tables, edition, work, result):
    tables.write(work)
    (work / "_ForceCodepage.idt").write_bytes(f"\r\n\r\n{UTF8}\t_ForceCodepage\r\n".encode())
    (work / "cab1.cab").write_bytes(run("msiinfo", "extract", raw, "cab1.cab"))
    package = contents_identifier(files, work)
    (work / "_SummaryInformation.idt").write_bytes(summary(edition, package).encode())
    first = ["_ForceCodepage.idt", "_SummaryInformation.idt"]
    names = first + sorted(path.name for path in work.glob("*.idt") if path.name not in first)
    run("msibuild", result, "-i", *names, folder=work)
    run("msibuild", result, "-a", "cab1.cab", "cab1.cab", folder=work)


def main(files, icon, bits, version, result):
    edition = Edition(bits, version)
    with tempfile.TemporaryDirectory() as scratch:
        work = pathlib.Path(scratch)
        raw = work / "raw.msi"
        compile_product(files, icon, edition, raw)
        tables = Tables(raw, work)
        complete(tables, edition)
        made = work / "made.msi"
        write_database(files, raw, tables, edition, work, made)
        shutil.copy(made, result)


if __name__ == "__main__":
    paths = [pathlib.Path(word).resolve() for word in (*sys.argv[1:3], sys.argv[5])]
    main(paths[0], paths[1], sys.argv[3], sys.argv[4], paths[2])
