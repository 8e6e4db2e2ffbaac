#!/usr/bin/python3
"""Installs, uses, repairs and removes, on a drive C of its own: installer_test.py BUILD_FOLDER x86|x64

What is compared before and after: all files and folders of the drive but temporary ones, and both Software parts of the
registry. The installer is made of the build's files as they are.
"""
import contextlib
import os
import pathlib
import shutil
import subprocess
import sys
import time

build, bits = pathlib.Path(sys.argv[1]).resolve(), sys.argv[2]
root = pathlib.Path(__file__).resolve().parents[2]
work = build / "installer-test"
drive = work / "drive" / "drive_c"
name = "Lumarin 64-bit" if bits == "x64" else "Lumarin 32-bit"
entry = r"Software\Microsoft\Windows\CurrentVersion\Uninstall" + "\\" + name
os.environ["WINEPREFIX"] = str(drive.parent)
if "DISPLAY" in os.environ:
    os.environ.pop("QT_QPA_PLATFORM", None)  # the one that agents see

# What Wine writes when it likes, such as the network's devices.
OF_THE_SYSTEM = "\\software\\wine\\", "\\software\\microsoft\\windows nt\\"
HOLD = """Set job = CreateObject("QorLumarin.clsLumarin")
WScript.Echo "held"
MsgBox "The test ends this program."
"""


def command(*arguments):
    return [root / "scripts/windows/wine.sh", bits, *arguments]


def run(*arguments, expected=0):
    with open(work / "said.txt", "w+", errors="replace") as said:  # a pipe would wait for what Wine leaves running
        done = subprocess.run(command(*arguments), stdout=said, stderr=subprocess.STDOUT, timeout=60)
        said.seek(0)
        text = said.read()
    assert done.returncode == expected, (arguments, done.returncode, text)
    return text


def wait_until(condition, what):
    for _ in range(300):
        if condition():
            return
        time.sleep(0.1)
    raise AssertionError("not in 30 s: " + what)


def exported(key):
    run("reg", "export", key, r"C:\windows\temp\part.reg", "/y")
    return (drive / "windows/temp/part.reg").read_text("utf-16")


@contextlib.contextmanager
def classes(hive, before):
    """Wine looks for classes among the machine's alone; so it finds the user's there meanwhile."""
    if hive == "HKLM":
        yield
        return
    lines = exported(r"HKCU\Software\Classes").replace("HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE").splitlines()
    ours = ["[-" + line[1:] for line in lines if line.startswith("[") and 2 * line.lower() not in before]
    file = drive / "windows/temp/classes.reg"
    for text in lines, lines[:1] + ours:
        file.write_text("\r\n".join(text) + "\r\n", "utf-16", newline="")
        run("reg", "import", r"C:\windows\temp\classes.reg")
        if text is lines:
            yield


def state():
    found = set()
    for folder, folders, files in os.walk(drive):
        folders[:] = [each for each in folders if each.lower() != "temp"]
        found |= {os.path.join(folder, each) for each in folders}
        found |= {f"{os.path.join(folder, each)} {os.path.getsize(os.path.join(folder, each))}" for each in files}
    for part in ("HKLM", "HKCU"):
        key = ""
        for line in exported(part + r"\Software").splitlines():
            key = line if line.startswith("[") else key
            found.add((key + line).lower())
    return found


def prepare():
    shutil.rmtree(work, ignore_errors=True)
    subprocess.run(["cmake", "--install", build, "--component", "program", "--prefix", work], check=True, capture_output=True)
    folder = work / "bin"
    (folder / "docs").mkdir()
    shutil.copy(root / "docs/user-guide.md", folder / "docs")
    make = root / "scripts/windows/installer/compile.sh"
    subprocess.run([make, bits, folder, work / "lumarin.exe", "QUICK"], check=True)
    run("wineboot", "--init")
    shutil.copy(build / "bin/bcryptprimitives.dll", drive / "windows/system32")  # Wine lacks it
    # The example as nobody has to answer it.
    lines = (root / "examples/script/host.vbs").read_text().splitlines(keepends=True)
    (drive / "host.vbs").write_text("".join(line for line in lines if not line.startswith("MsgBox")))
    (drive / "hold.vbs").write_text(HOLD)
    # What Windows has from the start, and what the system writes at first use.
    run("reg", "add", r"HKCU\Software\Classes\none", "/f")
    run("reg", "delete", r"HKCU\Software\Classes\none", "/f")
    (drive / "nothing.vbs").write_text("")
    run("cscript", "//nologo", r"C:\nothing.vbs")


def check_works(hive, before):
    with classes(hive, before):
        said = run("cscript", "//nologo", r"C:\host.vbs", "C:\\windows\\temp\\")
    assert said.split() == ["tool", "False", "tool", "True"], said


def check_refuses_while_used(setup, uninstaller):
    said = work / "held.txt"
    with said.open("w") as output:
        script = subprocess.Popen(command("cscript", "//nologo", r"C:\hold.vbs"), stdout=output)
    try:
        wait_until(lambda: "held" in said.read_text(), "the script holds the library")
        run(*setup, expected=3)
        in_place = "_?=" + uninstaller.rpartition("\\")[0]
        run(uninstaller, "/S", *in_place.split(" "), expected=3)  # blanks in it may not make it quoted
    finally:
        script.kill()
        script.wait()


def unix_path(path):
    return drive / path.removeprefix("C:\\").replace("\\", "/")


def check(scope, hive, options):
    setup = [work / "lumarin.exe", "/S", scope]
    before = state()
    run(*setup, *options)
    entries = run("reg", "query", hive + "\\" + entry, "/v", "UninstallString")
    uninstaller = entries.split("REG_SZ")[1].strip().strip('"')
    folder = unix_path(uninstaller).parent
    check_works(hive, before)
    if options:
        assert "--demo" in run(folder / "lumarin-host.exe", "--help")

    with classes(hive, before):
        check_refuses_while_used(setup, uninstaller)
    check_works(hive, before)

    run("reg", "delete", hive + r"\Software\Classes\QorLumarin.clsLumarin", "/f")
    next(folder.glob("Qt6Core.dll")).write_bytes(b"damaged")
    run(*setup)
    check_works(hive, before)
    assert (folder / "lumarin-host.exe").exists() == bool(options), "a repair keeps what was chosen"

    kept = set()
    if options:
        (folder / "notes.txt").write_text("somebody's own")
        kept = {str(folder), f"{folder}/notes.txt 14"}
    run(uninstaller, "/S")  # goes on in a copy
    wait_until(lambda: not unix_path(uninstaller).exists(), "removed")
    wait_until(lambda: entry.lower() not in exported(hive + r"\Software\Microsoft\Windows\CurrentVersion").lower(), "forgotten")
    wait_until(lambda: folder.exists() == bool(kept), "gone")
    left = {line for line in state() ^ before if not any(each in line for each in OF_THE_SYSTEM)}
    assert left == kept, "\n".join(sorted(left ^ kept))


prepare()
try:
    check("/CurrentUser", "HKCU", [])
    check("/AllUsers", "HKLM", ["/Host"])
finally:
    with contextlib.suppress(subprocess.TimeoutExpired):
        subprocess.run(command("wineboot", "--kill"), timeout=30)
