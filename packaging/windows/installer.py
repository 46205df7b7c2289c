#!/usr/bin/env python3
"""Makes the installer of an installed tree: installer.py TREE VERSION EPOCH OUT.msi

wixl makes the package; what its language has no words for goes into the tables by msibuild. All
identities are drawn from names, so that the same tree gives the same package at any time.

Language files are what an administrator may change, and an upgrade must leave a changed one alone.
All that this installer brings carry one date, so a later one tells that somebody was there. Their
components are not registered: Windows neither replaces nor removes them on its own. An upgrade
passes over those that were changed, and the end of the product removes them by name.
"""

import hashlib
import os
import pathlib
import subprocess
import sys
import uuid
from xml.sax.saxutils import quoteattr

NAMES = uuid.UUID("6f0b6c1e-5d3c-4c5e-9d0c-2d1f3a7b9e10")
UPGRADE_CODE = "{A016E476-C10C-5142-8125-513C82A371A2}"  # for ever: by it versions find each other
PRODUCT_KEY = r"Software\tavenMorrel"
UNCHANGED = 946684800  # 1 January 2000, the date of language files as they are brought
CHANGED_FROM = (2000 - 1980) << 25 | 1 << 21 | 3 << 16  # two days later, for any time zone


def identity(name):
    return "{" + str(uuid.uuid5(NAMES, name)).upper() + "}"


def word(path):
    """An identifier for a path of the tree."""
    return "i" + hashlib.sha1(path.encode()).hexdigest()[:16]


def is_language(path):
    return path.startswith("config/Language/")


def feature_of(path):
    return "Library" if path.split("/")[0] in ("include", "lib") else "Tool"


def files_of(tree):
    return sorted(str(path.relative_to(tree)) for path in tree.rglob("*") if path.is_file())


def folders_of(paths):
    return sorted(
        {str(parent) for path in paths for parent in pathlib.PurePosixPath(path).parents} - {"."}
    )


# --- What wixl makes ---


def component(path):
    return (
        f'<Component Id="c{word(path)}" Guid="{identity(path)}" Win64="yes">'
        f'<File Id="f{word(path)}" Source={quoteattr(path)} KeyPath="yes"/></Component>'
    )


def directory(folder, folders, paths):
    """A folder with its files and folders."""
    inside = lambda path: str(pathlib.PurePosixPath(path).parent) == folder
    content = "".join(component(path) for path in paths if inside(path))
    for below in filter(inside, folders):
        name = pathlib.PurePosixPath(below).name
        content += f'<Directory Id="d{word(below)}" Name={quoteattr(name)}>'
        content += directory(below, folders, paths) + "</Directory>"
    return content


def remembered(name, value):
    """A component that is a value of the registry."""
    return (
        f'<Component Id="c{name}" Guid="{identity("registry " + name)}" Win64="yes">'
        f'<RegistryValue Root="HKLM" Key="{PRODUCT_KEY}" Name="{name}"'
        f' Type="string" Value="{value}"'
        f' KeyPath="yes"/></Component>'
    )


def feature(name, title, description, level, components):
    references = "".join(f'<ComponentRef Id="{entry}"/>' for entry in components)
    return (
        f'<Feature Id="{name}" Title={quoteattr(title)} Description={quoteattr(description)}'
        f' Level="{level}">{references}</Feature>'
    )


def description(paths, version, icon):
    of = lambda name: ["c" + word(path) for path in paths if feature_of(path) == name]
    features = (
        feature(
            "Tool",
            "tavenMorrel",
            "The tool, its texts and documents",
            1,
            of("Tool") + ["cInstallDir"],
        )
        + feature(
            "Path", "On the path", "Other programs find the tool by its name alone", 1000, ["cPath"]
        )
        + feature(
            "Library",
            "Libraries",
            "Libraries and headers, for programs of your own",
            1000,
            of("Library") + ["cLibrary"],
        )
    )
    return f"""<?xml version="1.0" encoding="utf-8"?>
<Wix xmlns="http://schemas.microsoft.com/wix/2006/wi">
<Product Id="{identity("product " + version)}" UpgradeCode="{UPGRADE_CODE}" Name="tavenMorrel"
  Language="1033" Version="{version}" Manufacturer="taven-kolve">
<Package InstallerVersion="500" Compressed="yes" InstallScope="perMachine"
  Description="tavenMorrel {version}"/>
<Media Id="1" Cabinet="tavenMorrel.cab" EmbedCab="yes"/>
<MajorUpgrade
  DowngradeErrorMessage="A newer version of tavenMorrel is installed. Remove it first."/>
<Icon Id="tavenMorrel.ico" SourceFile={quoteattr(icon)}/>
<Property Id="ARPPRODUCTICON" Value="tavenMorrel.ico"/>
<Directory Id="TARGETDIR" Name="SourceDir"><Directory Id="ProgramFiles64Folder">
<Directory Id="INSTALLDIR" Name="tavenMorrel">{directory(".", folders_of(paths), paths)}
{remembered("InstallDir", "[INSTALLDIR]")}{remembered("Path", "1")}{remembered("Library", "1")}
</Directory>
</Directory></Directory>
{features}
</Product></Wix>
"""


# --- What goes into the tables afterwards ---


def insert(table, **row):
    columns = ", ".join(f"`{name}`" for name in row)
    values = ", ".join(
        str(value) if isinstance(value, int) else f"'{value}'" for value in row.values()
    )
    return f"INSERT INTO `{table}` ({columns}) VALUES ({values})"


def update(table, key, **row):
    """The first column has the table's name, and is its key."""
    values = ", ".join(f"`{name}`='{value}'" for name, value in row.items())
    return f"UPDATE `{table}` SET {values} WHERE `{table}`='{key}'"


def action(name, kind, source, target, sequence, condition=""):
    """A custom action and its place in the sequence."""
    row = {"Action": name, "Sequence": sequence}
    if condition:
        row["Condition"] = condition
    return [
        insert("CustomAction", Action=name, Type=kind, Source=source, Target=target),
        insert("InstallExecuteSequence", **row),
    ]


def short_names(paths):
    """Names in the old short form go in front of long ones."""
    for path in paths:
        name = pathlib.PurePosixPath(path).name
        stem, _, extension = name.rpartition(".") if "." in name else (name, "", "")
        if len(stem) > 8 or len(extension) > 3 or "." in stem:
            short = f"{word(path)[1:8].upper()}.{extension[:3].upper()}".rstrip(".")
            yield f"UPDATE `File` SET `FileName`='{short}|{name}' WHERE `File`='f{word(path)}'"
    for folder in folders_of(paths):
        name = pathlib.PurePosixPath(folder).name
        if len(name) > 8:
            yield (
                f"UPDATE `Directory` SET `DefaultDir`='{word(folder)[1:8].upper()}|{name}'"
                f" WHERE `Directory`='d{word(folder)}'"
            )
    yield update("Directory", "INSTALLDIR", DefaultDir="TAVENM~1|tavenMorrel")


def versions(paths, version):
    """Programs replace older ones by their version, and have no checksum beside it."""
    for path in paths:
        if path.endswith(".exe"):
            yield update("File", "f" + word(path), Version=version + ".0", Language="1033")
            yield f"DELETE FROM `MsiFileHash` WHERE `File_`='f{word(path)}'"


def earlier_choices():
    """Where the last version lies, and what was chosen then, goes for the next one as well."""
    yield insert("InstallExecuteSequence", Action="AppSearch", Sequence=50)
    for name, kind in (("InstallDir", 16), ("Path", 18), ("Library", 18)):
        yield insert(
            "RegLocator", Signature_="last" + name, Root=2, Key=PRODUCT_KEY, Name=name, Type=kind
        )
        yield insert("AppSearch", Property="LAST" + name.upper(), Signature_="last" + name)
    yield from action(
        "TakeLastPlace",
        51,
        "INSTALLDIR",
        "[LASTINSTALLDIR]",
        60,
        "LASTINSTALLDIR AND NOT INSTALLDIR",
    )
    # In another folder the changed language files would be missed, and the old ones stay behind.
    yield from action("WritePlace", 51, "PLACE", "[INSTALLDIR]\\", 65)
    yield from action(
        "SayMoved",
        51,
        "MOVED",
        "1",
        70,
        "LASTINSTALLDIR AND NOT (LASTINSTALLDIR ~= INSTALLDIR OR LASTINSTALLDIR ~= PLACE)",
    )
    yield insert(
        "LaunchCondition",
        Condition="Installed OR NOT MOVED",
        Description="tavenMorrel lies in [LASTINSTALLDIR]. Remove it before you move it.",
    )
    yield (
        "CREATE TABLE `Condition` (`Feature_` CHAR(38) NOT NULL, `Level` INT NOT NULL,"
        " `Condition` CHAR(255) PRIMARY KEY `Feature_`, `Level`)"
    )
    for name in ("Path", "Library"):
        yield insert("Condition", Feature_=name, Level=1, Condition="LAST" + name.upper())


def path_entry():
    yield (
        "CREATE TABLE `Environment` (`Environment` CHAR(72) NOT NULL,"
        " `Name` CHAR(255) NOT NULL LOCALIZABLE,"
        " `Value` CHAR(255) LOCALIZABLE, `Component_` CHAR(72) NOT NULL PRIMARY KEY `Environment`)"
    )
    yield insert(
        "Environment",
        Environment="path",
        Name="=-*PATH",
        Value="[~];[INSTALLDIR]bin",
        Component_="cPath",
    )
    yield insert("InstallExecuteSequence", Action="WriteEnvironmentStrings", Sequence=5200)
    yield insert("InstallExecuteSequence", Action="RemoveEnvironmentStrings", Sequence=3300)


def upgrade_order():
    """The last version goes after the next one has come, so that what they share stays."""
    moved = "UPDATE `InstallExecuteSequence` SET `Sequence`=5950 WHERE `Action`='{}'"
    yield moved.format("RemoveExistingProducts")
    yield insert("InstallExecuteSequence", Action="InstallExecute", Sequence=5900)


def language_files(paths):
    yield (
        "CREATE TABLE `DrLocator` (`Signature_` CHAR(72) NOT NULL, `Parent` CHAR(72),"
        " `Path` CHAR(255),"
        " `Depth` INT PRIMARY KEY `Signature_`, `Parent`, `Path`)"
    )
    for path in filter(is_language, paths):
        name = word(path).upper()
        folder = str(pathlib.PurePosixPath(path).parent)
        yield insert(
            "Signature",
            Signature="changed" + name,
            FileName=pathlib.PurePosixPath(path).name,
            MinDate=CHANGED_FROM,
        )
        yield insert(
            "DrLocator",
            Signature_="changed" + name,
            Parent="lastInstallDir",
            Path=folder.replace("/", "\\"),
            Depth=0,
        )
        yield insert("AppSearch", Property="CHANGED" + name, Signature_="changed" + name)
        yield (
            f"UPDATE `Component` SET `ComponentId`='', `Condition`='NOT CHANGED{name}'"
            f" WHERE `Component`='c{word(path)}'"
        )
        yield insert(
            "RemoveFile",
            FileKey="r" + word(path),
            Component_="cInstallDir",
            FileName=pathlib.PurePosixPath(path).name,
            DirProperty="d" + word(folder),
            InstallMode=2,
        )
    for folder in folders_of(paths):
        yield insert(
            "RemoveFile",
            FileKey="r" + word(folder),
            Component_="cInstallDir",
            DirProperty="d" + word(folder),
            InstallMode=2,
        )
    yield insert(
        "RemoveFile",
        FileKey="rRoot",
        Component_="cInstallDir",
        DirProperty="INSTALLDIR",
        InstallMode=2,
    )


def secure_properties(paths):
    """Those that the part of the installer with more rights may take from the other."""
    names = [
        "WIX_DOWNGRADE_DETECTED",
        "WIX_UPGRADE_DETECTED",
        "INSTALLDIR",
        "MOVED",
        "PLACE",
        "LASTINSTALLDIR",
        "LASTPATH",
        "LASTLIBRARY",
    ]
    names += ["CHANGED" + word(path).upper() for path in filter(is_language, paths)]
    yield update("Property", "SecureCustomProperties", Value=";".join(names))


def run(epoch, *command, **options):
    """At a time that stands still."""
    moment = subprocess.run(
        ["date", "-u", "-d", f"@{epoch}", "+%F %T"], capture_output=True, text=True, check=True
    )
    subprocess.run(
        ["faketime", "-f", moment.stdout.strip(), *command],
        check=True,
        env={**os.environ, "NO_FAKE_STAT": "1", "TZ": "UTC"},
        **options,
    )


def main():
    tree, version, epoch, out = (
        pathlib.Path(sys.argv[1]),
        sys.argv[2],
        int(sys.argv[3]),
        os.path.abspath(sys.argv[4]),
    )
    paths = files_of(tree)
    for path in paths:
        moment = UNCHANGED if is_language(path) else epoch
        os.utime(tree / path, (moment, moment))
    source = pathlib.Path(out).with_suffix(".wxs")
    # wixl takes no path from the root.
    icon = os.path.relpath(pathlib.Path(__file__).parent / "tavenMorrel.ico", tree)
    source.write_text(description(paths, version, icon), encoding="utf-8")
    run(epoch, "wixl", "-a", "x64", "-o", out, str(source), cwd=tree)
    source.unlink()
    statements = [
        *short_names(paths),
        *versions(paths, version),
        *earlier_choices(),
        *path_entry(),
        *upgrade_order(),
        *language_files(paths),
        *secure_properties(paths),
    ]
    run(epoch, "msibuild", out, *(part for statement in statements for part in ("-q", statement)))
    content = hashlib.sha256("".join(statements).encode())
    for path in paths:
        content.update(path.encode() + (tree / path).read_bytes())
    run(
        epoch,
        "msibuild",
        out,
        "-s",
        f"tavenMorrel {version}",
        "taven-kolve",
        "x64;1033",
        identity(content.hexdigest()),
    )


if __name__ == "__main__":
    main()
