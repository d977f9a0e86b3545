#!/usr/bin/env python3
"""Proves from the include lines which folder knows which.

usage: includes.py [ROOT]     prints each line that breaks a rule; 1 if there is one
"""
import os
import re
import sys
from pathlib import Path

# A module is a folder or a file; a file is in the module with the longest name that leads to it.
ERRORS = ["platform/error.h", "platform/error.cpp", "platform/result.h"]
PLIST = ERRORS + ["platform/plist"]
FOUNDATION = PLIST + ["platform/foundation"]
PLATFORM = FOUNDATION + ["platform/archive", "platform/uikit", "platform/preferences",
                         "platform/services.h", "platform/localized_sort.h"]
CORE = PLATFORM + ["prefs/core"]
PREFS = CORE + ["prefs/profiles", "prefs/pages", "prefs/colorpicker"]
CLASSES = PREFS + ["prefs/core/quorvantisprefsListController.h"]
BUNDLE = CLASSES + ["prefs/resources"]
HOST = BUNDLE + ["host"]
SERVICES = PLATFORM + ["services"]
DEVICE = ["host/device.h", "host/device.cpp", "host/recording_device.h", "host/recording_device.cpp",
          "host/reporting_urls.h"]
DRIVE = ["host", "host/device.h", "host/recording_device.h"]
EVERYTHING = HOST + SERVICES + DEVICE + ["drive", "apps/cli", "apps/window", "tools", "tests",
                                         "benchmarks", "fuzz"]

# Which modules each module may include. A module always knows itself.
KNOWS = {
    "platform/error.h": [],
    "platform/error.cpp": ERRORS,
    "platform/result.h": ERRORS,
    "platform/plist": PLIST,
    "platform/archive": PLIST,
    "platform/foundation": FOUNDATION,
    "platform/uikit": FOUNDATION,
    "platform/services.h": FOUNDATION,
    "platform/localized_sort.h": FOUNDATION + ["platform/services.h"],
    "platform/preferences": PLATFORM,
    "prefs/core": CORE,
    "prefs/core/quorvantisprefsListController.h": CORE,
    "prefs/core/quorvantisprefsListController.cpp": CLASSES,
    "prefs/profiles": CORE,
    "prefs/pages": CORE + ["prefs/profiles"],
    "prefs/colorpicker": CORE,
    "prefs/resources": BUNDLE,
    "host": HOST,
    # The one place where services and pages meet.
    "host/device.h": HOST + SERVICES + DEVICE,
    "host/device.cpp": HOST + SERVICES + DEVICE,
    "host/recording_device.h": HOST + SERVICES + DEVICE,
    "host/recording_device.cpp": HOST + SERVICES + DEVICE,
    "host/reporting_urls.h": SERVICES,
    "drive": DRIVE,
    "services": SERVICES,
    "apps/cli": ["host", "host/device.h", "drive"],
    "apps/window": ["host", "host/device.h"],
    "tools": BUNDLE + SERVICES,
    "tests": EVERYTHING,
    "benchmarks": EVERYTHING,
    "fuzz": EVERYTHING,
}

# Headers that the build writes, and the module that each counts as part of.
GENERATED = {"prefs/keys.h": "prefs/core"}

# Headers that are not part of the project, by the kind of thing they bring in.
KINDS = {
    "process": r"sys/auxv\.h",
    "posix": r"(unistd|fcntl|dirent|poll|signal|spawn|dlfcn|pwd|termios|pthread|glob|ftw)\.h"
             r"|(stdio|stdlib|time)\.h|(sys|linux|netinet|arpa)/[\w/]+\.h",
    "qt": r"Q[A-Z]\w*|Qt[A-Z]\w*/\w+|qpa/\w+\.h|qqml\w*\.h",
    "icu": r"unicode/\w+\.h",
    "glib": r"glib(-object|-unix)?\.h|glib/\w+\.h|gio/\w+\.h",
    "systemd": r"systemd/sd-[\w-]+\.h",
    "expat": r"expat\.h",
    "vcard": r"libebook-contacts/[\w-]+\.h",
    "gstreamer": r"gst/[\w/]+\.h",
    "json": r"nlohmann/\w+\.hpp",
    "gtest": r"g(test|mock)/[\w-]+\.h",
    "sqlite": r"sqlite3\.h",
    "c": r"(malloc|stddef|stdint)\.h",
    "libplist": r"plist/plist\.h",
    "gnustep": r"Foundation/\w+\.h|objc/[\w-]+\.h",
}
ALL_KINDS = list(KINDS)

# Which of them each module may include; what isn't named here has the C++ standard library alone.
TAKES = {
    "platform/plist": ["process"],
    "platform/foundation": ["posix"],
    "services": ["posix", "icu", "glib", "systemd", "expat", "vcard", "gstreamer"],
    "drive": ["json"],
    "apps/cli": ["posix"],
    "apps/window": ["posix", "qt"],
    "tools": ["posix", "expat"],
    "tests": ALL_KINDS,
    "benchmarks": ALL_KINDS,
    "fuzz": ALL_KINDS,
}

STANDARD = set("""
algorithm any array atomic barrier bit bitset charconv chrono codecvt compare complex concepts
condition_variable coroutine deque exception execution filesystem format forward_list fstream
functional future initializer_list iomanip ios iosfwd iostream istream iterator latch limits list
locale map memory memory_resource mutex new numbers numeric optional ostream queue random ranges
ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept
stop_token streambuf string string_view syncstream system_error thread tuple type_traits typeindex
typeinfo unordered_map unordered_set utility valarray variant vector version
cassert cctype cerrno cfenv cfloat cinttypes climits clocale cmath csetjmp csignal cstdarg cstddef
cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype
""".split())

SOURCES = {".h", ".hpp", ".c", ".cc", ".cpp", ".cxx", ".m", ".mm", ".inc", ".ipp"}
INCLUDE = re.compile(r"^\s*(?:#|%:)\s*(?:include|import|include_next)\b\s*(.*)")
MODULE = re.compile(r"^\s*(?:export\s+)?import\s+[\w<\":][^;]*;")
NAMED = re.compile(r'^(?:"([^"]+)"|<([^>]+)>)')


def module_of(path):
    """The module of a path relative to the root, or None outside all modules."""
    parts = path.split("/")
    for length in range(len(parts), 0, -1):
        name = "/".join(parts[:length])
        if name in KNOWS:
            return name
    return None


def kind_of(header):
    return next((kind for kind, names in KINDS.items() if re.fullmatch(names, header)), None)


def fault_of(root, path, module, target):
    """What is wrong with one include of a file, or None."""
    named = NAMED.match(target)
    if not named:
        return "an include must name its file"
    quoted, header = named[1] is not None, named[1] or named[2]
    # moc's output stands beside the class that it completes.
    if module in ("apps/window", "tests") and quoted and header == Path(path).stem + ".moc":
        return None
    if quoted:
        return project_fault(root, module, header)
    if (root / header).is_file():
        return "a file of the project is written in quotes"
    if header in STANDARD:
        return None
    kind = kind_of(header)
    if kind is None:
        return "unknown: neither the project's nor the standard library's nor a library that it takes"
    if kind not in TAKES.get(module, []):
        return f"{module} may not include {kind} headers"
    return None


def project_fault(root, module, header):
    if os.path.normpath(header) != header:
        return "written from the root, without dots"
    if header not in GENERATED and not (root / header).is_file():
        return "unknown: no such file below the root"
    if Path(header).suffix not in SOURCES:
        return "unknown: not a source file, so nothing checks what it includes"
    other = GENERATED.get(header) or module_of(header)
    if other is None:
        return "outside all modules"
    if other != module and other not in KNOWS[module]:
        return f"{module} may not know {other}"
    return None


def source_files(root):
    """Every file that counts, relative to the root."""
    for folder, folders, files in os.walk(root):
        top = Path(folder) == root
        folders[:] = sorted(f for f in folders if not (f == ".git" or (top and f == "build")))
        for name in sorted(files):
            path = Path(folder, name)
            if path.suffix in SOURCES or path.suffix == ".qml":
                yield path.relative_to(root).as_posix()


def faults_in(root, path):
    module = module_of(path)
    if module is None:
        yield f"{path}: stands outside all modules"
        return
    if path.endswith(".qml"):
        if module not in ("apps/window", "benchmarks", "tests"):
            yield f"{path}: {module} may not hold QML"
        return
    text = (root / path).read_text(encoding="utf-8", errors="replace").replace("\\\n", "")
    for number, line in enumerate(text.split("\n"), 1):
        include = INCLUDE.match(line)
        if include:
            fault = fault_of(root, path, module, include[1].strip())
        else:
            fault = "a module import, which no rule covers" if MODULE.match(line) else None
        if fault:
            yield f"{path}:{number}: {line.strip()}: {fault}"


def faults(root):
    root = Path(root).resolve()
    return [fault for path in source_files(root) for fault in faults_in(root, path)]


def main():
    found = faults(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parents[2])
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
