"""Checks who includes whom: check_includes.py ROOT TARGETS

Of the project's own headers a source includes those of its target, of the targets that this one links, and the ports
that it declares. Headers of other libraries need the library to be linked; the component has none: it includes
itself and the standard library. The operating system's own headers stand in platform/system.
"""
import os
import re
import sys

# Headers of other libraries, and what a target that includes them must link.
LIBRARIES = [
    (r"QtTest/|QTest$", r"Qt6::Test$"), (r"Qt$|Qt?[A-Z]", r"Qt6::"), (r"vips/", r"PkgConfig::VIPS_CPP"),
    (r"g(lib|module)\.h", r"PkgConfig::GMODULE"), (r"qpdf/", r"PkgConfig::QPDF"), (r"tiff", r"PkgConfig::TIFF"),
    (r"zlib\.h", r"PkgConfig::ZLIB"), (r"zip\.h", r"PkgConfig::LIBZIP"), (r"curl/", r"PkgConfig::CURL"),
    (r"j(peglib|error)\.h", r"PkgConfig::JPEG"), (r"sane/", r"PkgConfig::SANE"),
    (r"sqlite3\.h", r"SQLite::SQLite3"), (r"httplib\.h", r"PkgConfig::HTTPLIB"),
    (r"Qor(Lumarin|VelCommon|ToolBar)\.h", r"lumarin_automation_types"),
]
STANDARD = re.compile(r"[a-z_0-9]+$")  # no ending, no folder
SYSTEM = re.compile(
    r"(dirent|unistd|fcntl|windows|winsock2|ole2|oleauto|dispex|initguid|htmlhelp|shellapi|shlobj|wincodec)\.h$|(sys|wrl)/")
# Folders that may.
ASKS_SYSTEM = re.compile(r"(automation|platform/system|platform/windows|host/automation|host/drive|host/pdf)(/|$)")
INCLUDE = re.compile(r'\s*#\s*include\s*(["<])([^">]+)')


class Target:
    def __init__(self, line):
        self.name, self.folder, sources, declared = line.rstrip("\n").split("|")
        self.stems = {os.path.splitext(source)[0] for source in sources.split(";")}
        self.declared = set(filter(None, declared.split(";")))


def stem_in(target, path):
    return os.path.splitext(os.path.relpath(path, target.folder))[0]


def owner_of(path, targets):
    """The target of the nearest folder above; where that folder has several, the one with a source of this name."""
    folder = os.path.dirname(path)
    while folder:
        here = [target for target in targets if target.folder == folder]
        if here:
            return next((target for target in here if stem_in(target, path) in target.stems), here[-1])
        folder = os.path.dirname(folder)
    return None


def is_left_out(path, target, targets):
    """Whether a file is of a part that this system does not have: nothing of its folder is built, or not this source."""
    if path.startswith("src/"):
        return False
    part = "/".join(path.split("/")[:2]) + "/"
    if not any((other.folder + "/").startswith(part) for other in targets):
        return True
    return target is not None and path.endswith(".cpp") and stem_in(target, path) not in target.stems


def fault_of(target, kind, header, root, targets):
    """What is wrong with an include; None when nothing is."""
    if kind == '"':
        path = next((path for path in (header, "src/" + header) if os.path.exists(os.path.join(root, path))), None)
        if path is None:
            return None if header.endswith(".moc") else "there is no such header"
        owner = owner_of(path, targets)
        if owner in (None, target) or {owner.name, header} & target.declared:
            return None
        return f"it is of {owner.name}, which {target.name} does not link"
    if STANDARD.match(header):
        return None
    if target.folder.startswith("src"):
        return "it is not of the standard library"
    library = next((library for name, library in LIBRARIES if re.match(name, header)), None)
    if library is None:
        if not SYSTEM.match(header):
            return "it is of no library that is known here"
        return None if ASKS_SYSTEM.match(target.folder) else "the operating system is asked in platform/system"
    if any(re.match(library, declared) for declared in target.declared):
        return None
    return f"{target.name} does not link its library"


def main(root, list_of_targets):
    with open(list_of_targets, encoding="utf-8") as lines:
        targets = [Target(line) for line in lines if line.strip()]
    checked, faults = 0, []
    for top in ("src", "platform", "host", "automation"):
        for folder, _, names in os.walk(os.path.join(root, top)):
            for path in (os.path.join(folder, name) for name in names if name.endswith((".h", ".cpp"))):
                relative = os.path.relpath(path, root)
                target = owner_of(relative, targets)
                if is_left_out(relative, target, targets):
                    continue
                with open(path, encoding="utf-8") as lines:
                    includes = [(number, *found.groups()) for number, line in enumerate(lines, 1)
                                if (found := INCLUDE.match(line))]
                for number, kind, header in includes:
                    fault = "its folder has no target" if target is None else fault_of(target, kind, header, root,
                                                                                       targets)
                    if fault:
                        faults.append(f"{relative}:{number}: {header}: {fault}")
                checked += len(includes)
    print("\n".join(sorted(faults)) or f"{checked} includes of {len(targets)} targets")
    return 1 if faults or checked == 0 else 0


sys.exit(main(*sys.argv[1:]))
