#!/usr/bin/env python3
"""Says what is inside each program and library: contents.py BUILD STAGE VERSION.

The linker's maps under BUILD/maps tell which library of others gave code or data to which file; the system's
package manager tells of which version it is. From both come, in the folder STAGE beside the files that they
speak of, contents.spdx.json (an SPDX 2.3 document) and NOTICES.txt (the licences, in full).
A library that is not known here stops the packaging: somebody has to look at its licence first.
"""

import functools
import hashlib
import json
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
COMMON = pathlib.Path("/usr/share/common-licenses")
DOCUMENTATION = pathlib.Path("/usr/share/doc")

# A section that was kept, its size and the object it comes from; the name may stand on the line before.
KEPT = re.compile(r"^ +(?:[.\w]\S* +)?0x[0-9a-f]+ +0x([0-9a-f]+) (/\S+?\.(?:a|o))(?:\(.*\))?$")

# Parts of others that may be linked: name, licence, whose copyright, pattern of the archives' names, and further
# licence texts to the package's own.
PARTS = [
    ("GCC runtime libraries", "GPL-3.0-or-later WITH GCC-exception-3.1", "Free Software Foundation, Inc.",
     r"lib(gcc|gcc_eh|stdc\+\+|ssp|ssp_nonshared)\.a|crt(begin|end)\.o", ["GPL-3"]),
    ("winpthreads", "MIT AND BSD-3-Clause", "the mingw-w64 project", r"lib(win)?pthread\.a", []),
    ("SQLite", "blessing", "NONE", r"libsqlite3\.a", []),
    # Last, as it takes what else lies in the compiler's folders.
    ("mingw-w64 runtime", "ZPL-2.1", "the mingw-w64 project", r"lib\w+\.a|(dll)?crt2(u)?\.o", []),
]


def run(*command):
    return subprocess.run([str(word) for word in command], check=True, capture_output=True,
                          text=True).stdout


@functools.cache
def owner(archive):
    """The distribution's package, and its version, that a library comes from."""
    stamp = archive.parent.parent / "stamp"
    if archive.name == "libsqlite3.a" and stamp.exists():
        return "libsqlite3-dev", stamp.read_text().split()[1]
    package = run("dpkg", "-S", archive).split(":")[0]
    return package, run("dpkg-query", "-W", "-f", "${Version}", package)


def part_of(archive):
    for part in PARTS:
        if re.fullmatch(part[3], archive.name):
            return part
    sys.exit(f"contents.py: nobody has looked at the licence of {archive}")


def linked(link_map):
    """The libraries of others that gave something to the file of a linker's map."""
    archives = set()
    text = link_map.read_text(encoding="utf-8", errors="replace")
    for line in text.split("Linker script and memory map", 1)[1].splitlines():
        match = KEPT.match(line)
        if match and int(match[1], 16) > 0:
            archives.add(pathlib.Path(match[2]).resolve())
    return archives


class Contents:
    """Which parts are in which files."""

    def __init__(self, build, stage):
        self.files = sorted(path for path in stage.iterdir() if path.suffix in (".exe", ".dll"))
        self.archives = {}  # part's name to archives
        self.inside = {}  # file's name to parts' names
        for file in self.files:
            found = linked(build / "maps" / f"{file.stem}.map")
            if not found:
                sys.exit(f"contents.py: the map of {file.name} names no library")
            for archive in found:
                name = part_of(archive)[0]
                self.archives.setdefault(name, set()).add(archive)
                self.inside.setdefault(file.name, set()).add(name)

    def parts(self):
        return [part for part in PARTS if part[0] in self.archives]

    def owners(self, part):
        return sorted({owner(archive) for archive in self.archives[part[0]]})

    def version(self, part):
        return ", ".join(sorted({version for _, version in self.owners(part)}))


def reference(name):
    return "SPDXRef-" + re.sub(r"[^A-Za-z0-9.]+", "-", name)


def relation(source, kind, target):
    return {"spdxElementId": source, "relationshipType": kind, "relatedSpdxElement": target}


def product_package(version):
    return {"SPDXID": "SPDXRef-Product", "name": "User Administration", "versionInfo": version,
            "licenseConcluded": "MIT", "licenseDeclared": "MIT", "downloadLocation": "NOASSERTION",
            "copyrightText": "Copyright (c) 2026 the User Administration authors", "filesAnalyzed": False}


def part_package(contents, part):
    name, licence, holder = part[:3]
    archives = ", ".join(sorted(path.name for path in contents.archives[name]))
    return {"SPDXID": reference(name), "name": name, "versionInfo": contents.version(part),
            "licenseConcluded": licence, "licenseDeclared": licence,
            "downloadLocation": "NOASSERTION", "copyrightText": holder, "filesAnalyzed": False,
            "sourceInfo": "Debian package " + ", ".join(f"{name} {version}" for name, version
                                                        in contents.owners(part)),
            "comment": f"linked statically from {archives}"}


def file_entry(path):
    sums = [{"algorithm": name.upper(), "checksumValue": hashlib.new(name, path.read_bytes()).hexdigest()}
            for name in ("sha1", "sha256")]
    return {"SPDXID": reference(path.name), "fileName": f"./{path.name}", "checksums": sums,
            "fileTypes": ["BINARY"], "licenseConcluded": "NOASSERTION", "copyrightText": "NOASSERTION"}


def document(contents, version):
    files = [file_entry(path) for path in contents.files]
    relations = [relation("SPDXRef-DOCUMENT", "DESCRIBES", "SPDXRef-Product")]
    for path in contents.files:
        relations.append(relation("SPDXRef-Product", "CONTAINS", reference(path.name)))
        relations += [relation(reference(path.name), "STATIC_LINK", reference(name))
                      for name in sorted(contents.inside[path.name])]
    digest = hashlib.sha256(json.dumps(files).encode()).hexdigest()
    return {"spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT",
            "name": f"UserAdministration-{version}",
            "documentNamespace": f"urn:user-administration:{version}:{digest}",
            # A time of making would make each packaging another one.
            "creationInfo": {"created": "2000-01-01T00:00:00Z", "creators": ["Tool: contents.py"]},
            "packages": [product_package(version)] +
                        [part_package(contents, part) for part in contents.parts()],
            "files": files, "relationships": relations}


def own_licence_text(contents, part):
    texts = []
    for package, _ in contents.owners(part):
        text = (DOCUMENTATION / package / "copyright").read_text(encoding="utf-8", errors="replace")
        exception = re.search(r"^GCC RUNTIME LIBRARY EXCEPTION$.*?license of GCC\.$", text, re.M | re.S)
        if part[0].startswith("GCC") and not exception:
            sys.exit("contents.py: the runtime library exception is not where it was")
        texts.append(exception[0] if part[0].startswith("GCC") else text)
    return sorted(set(texts))


def notices(contents):
    line = "=" * 78
    blocks = ["Parts of others in the programs and libraries of this folder, and their licences. Which part is\n"
              "in which file is told by contents.spdx.json."]
    common = set()
    for part in contents.parts():
        files = [name for name in sorted(contents.inside) if part[0] in contents.inside[name]]
        blocks.append(f"{line}\n{part[0]} {contents.version(part)}\nLicence: {part[1]}\n"
                      f"In: {', '.join(files)}\n{line}")
        blocks += own_licence_text(contents, part)
        common.update(part[4])
    for name in sorted(common):
        blocks.append(f"{line}\nThe text of {name}\n{line}\n\n{(COMMON / name).read_text(encoding='utf-8')}")
    return "\n\n".join(block.strip("\n") for block in blocks) + "\n"


def main(build, stage, version):
    contents = Contents(build, stage)
    text = json.dumps(document(contents, version), indent=2, ensure_ascii=False) + "\n"
    (stage / "contents.spdx.json").write_text(text, encoding="utf-8", newline="\r\n")
    (stage / "NOTICES.txt").write_text(notices(contents), encoding="utf-8-sig", newline="\r\n")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3])
