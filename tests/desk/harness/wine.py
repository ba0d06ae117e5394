"""Wine: the Windows program's names for files, and a Windows installation for each reader."""
import os
import re
import shutil
import subprocess

PROGRAM = os.environ.get("NORVASET_PROGRAM", "")
ON_WINE = PROGRAM.endswith(".exe")
TEMPLATE = os.environ.get("WINE_TEMPLATE", "")  # a Wine prefix that scripts/wine has made
# Those that the harness stands in for; by itself Wine prefers /usr/bin/open where it is installed.
OPENERS = """
[Software\\\\Wine\\\\WineBrowser]
"Browsers"="xdg-open"
"Mailers"="xdg-email"
"""
# Of an address and of a file for which Wine has no program, as the setup of one would register it.
OPENED_BY = '\n@="\\"C:\\\\windows\\\\system32\\\\winebrowser.exe\\" \\"%1\\""\n'
PROGRAMS = f"""
[Software\\\\Classes\\\\tel]
"URL Protocol"=""

[Software\\\\Classes\\\\tel\\\\shell\\\\open\\\\command]{OPENED_BY}
[Software\\\\Classes\\\\.mp3]
@="Song"

[Software\\\\Classes\\\\Song\\\\shell\\\\open\\\\command]{OPENED_BY}"""


def shown_path(path, on_wine=ON_WINE):
    """A file's name as the program shows and stores it."""
    return "Z:" + path.replace("/", "\\") if on_wine else path


def address_path(path):
    """A file's name as it stands after file:// in an address."""
    return "/Z:" + path if ON_WINE else path


def found_path(name):
    """The file of a name that the program has stored."""
    return name[2:].replace("\\", "/") if ON_WINE and name[:2].upper() == "Z:" else name


def make_prefix(folder, dots_per_inch):
    """A Wine prefix of a reader's own: the system's files are links, the registry is a copy."""
    os.makedirs(os.path.join(folder, "dosdevices"))
    os.symlink("../drive_c", os.path.join(folder, "dosdevices", "c:"))
    os.symlink("/", os.path.join(folder, "dosdevices", "z:"))
    subprocess.run(["cp", "-as", os.path.join(TEMPLATE, "drive_c"), folder], check=True)
    for name in ("system.reg", "user.reg", "userdef.reg", ".update-timestamp"):
        shutil.copy(os.path.join(TEMPLATE, name), folder)
    _set_resolution(os.path.join(folder, "user.reg"), dots_per_inch)
    for registry, text in (("user.reg", OPENERS), ("system.reg", PROGRAMS)):
        with open(os.path.join(folder, registry), "a", encoding="ascii") as file:
            file.write(text)


def give_prefix(folder, user):
    """Wine runs only in a prefix of its user's own."""
    os.chown(folder, user, user)
    for place, folders, files in os.walk(folder):
        for name in folders + files:
            os.chown(os.path.join(place, name), user, user, follow_symlinks=False)


def _set_resolution(registry, dots_per_inch):
    with open(registry, encoding="utf-8", errors="surrogateescape") as file:
        text = file.read()
    line = f'"LogPixels"=dword:{dots_per_inch:08x}\n'
    text = re.sub(r'"LogPixels"=.*\n', "", text)
    text = re.sub(r"(\[Control Panel\\\\Desktop\][^\n]*\n(?:#[^\n]*\n)*)",
                  lambda match: match[1] + line, text)
    with open(registry, "w", encoding="utf-8", errors="surrogateescape") as file:
        file.write(text)


def wine_environment(prefix):
    return {"WINEPREFIX": prefix, "WINEDEBUG": "-all",
            "WINEDLLOVERRIDES": "mscoree,mshtml=;winemenubuilder.exe=d"}


def end_prefix(prefix, variables):
    """Ends what runs in this prefix, and nothing else."""
    subprocess.run([shutil.which("wineserver") or "/usr/lib/wine/wineserver64", "-k"],
                   env=variables | wine_environment(prefix), check=False,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
