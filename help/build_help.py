#!/usr/bin/env python3
"""Builds the compiled help file: build_help.py SOURCES PICTURES WORK RESULT.

The pages are written in UTF-8 and compiled in the code page that the help viewer reads, 1252.
chmcmd compiles them; the topic numbers it would write with the absolute path of each page, which
no viewer finds, so the project is compiled without them and they are added by context_ids.
"""

import pathlib
import re
import shutil
import subprocess
import sys

import context_ids

CODE_PAGE = "cp1252"


def copy_in_code_page(source, target):
    text = source.read_text(encoding="utf-8")
    text = text.replace('<meta charset="utf-8">',
                        '<meta http-equiv="Content-Type" content="text/html; charset=windows-1252">')
    target.write_text(text, encoding=CODE_PAGE, newline="\r\n")


def project_sections(project):
    """The project file's sections, name to lines."""
    sections = {}
    for line in project.read_text(encoding="utf-8").splitlines():
        heading = re.fullmatch(r"\[(.+)\]", line)
        if heading:
            lines = sections.setdefault(heading[1], [])
        elif line:
            lines.append(line)
    return sections


def topics(sections):
    """Topic number to page name, as the project's ALIAS and MAP sections say."""
    pages = dict(line.split("=", 1) for line in sections["ALIAS"])
    numbers = (line.split()[1:] for line in sections["MAP"])
    return {int(number): pages[name] for name, number in numbers}


def write_project(sections, target):
    kept = (name for name in sections if name not in ("ALIAS", "MAP"))
    text = "\n\n".join("\n".join([f"[{name}]", *sections[name]]) for name in kept)
    target.write_text(text + "\n", encoding=CODE_PAGE, newline="\r\n")


def compile_project(work, project, chmcmd):
    done = subprocess.run([chmcmd, project], cwd=work, capture_output=True, text=True)
    messages = done.stdout + done.stderr
    if done.returncode != 0 or re.search(r"^(Error|Warning)", messages, re.MULTILINE):
        sys.exit(f"{chmcmd} failed ({done.returncode}):\n{messages}")


def main(sources, pictures, work, result, chmcmd, chmls):
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    for source in [*sources.glob("pages/*"), *sources.glob("*.hhc"), *sources.glob("*.hhk")]:
        copy_in_code_page(source, work / source.name)
    for picture in pictures.glob("*.png"):
        shutil.copy(picture, work)
    project = next(sources.glob("*.hhp"))
    sections = project_sections(project)
    write_project(sections, work / project.name)
    compile_project(work, project.name, chmcmd)
    compiled = work / project.with_suffix(".chm").name
    strings = work / "strings"
    subprocess.run([chmls, "extract", compiled, "/#STRINGS", strings], check=True,
                   capture_output=True)
    context_ids.add(compiled, strings.read_bytes(), topics(sections))
    shutil.copy(compiled, result)


if __name__ == "__main__":
    main(*map(pathlib.Path, sys.argv[1:5]), *sys.argv[5:7])
