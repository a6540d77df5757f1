"""The files that cmake --install and cpack install, checked by the desktop's own tools:
installed_program.py TABULON TABULON_CLI BUILD_FOLDER.

The files are valid, documents are recognized with and without their extension, other files are not, the message bus starts
the program, and the Debian package has its dependencies and the paths of its place.
"""

import functools
import json
import os
import plistlib
import shutil
import subprocess
import sys
import tempfile
import zipfile

from desktop_program import DEMO
from session import Failure, Session, check, end, run_session_tests, wait_for

TYPE = "application/x-tabulon-bookmarks"
ID = "com.tabulon.Tabulon"
EXTENSION = ["manifest.json", "background.js"]
SYSTEM_MANIFESTS = {
    "etc/chromium/native-messaging-hosts/com.tabulon.tabulon.json":
        ("allowed_origins", "chrome-extension://acmdlmfdkmlgnfaaobobgmmjabodbgde/"),
    "usr/lib/mozilla/native-messaging-hosts/com.tabulon.tabulon.json": ("allowed_extensions", "bridge@tabulon.com"),
}
SYSTEM_ARCHIVE = "usr/lib/mozilla/extensions/{ec8030f7-c20a-464f-9b0e-13a3a9e97384}/bridge@tabulon.com.xpi"
CORPUS = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "corpus")


def run(*command, **options):
    result = subprocess.run(command, capture_output=True, text=True, **options)
    if result.returncode != 0:
        raise Failure(f"{' '.join(command)}: {result.stdout}{result.stderr}")
    return result.stdout


@functools.lru_cache
def installed():
    """Returns the prefix of the installation for all tests here. It is removed at the end of the process."""
    folder = tempfile.TemporaryDirectory(prefix="tabulon-prefix-")
    installed.keep = folder
    run("cmake", "--install", sys.argv[3], "--prefix", folder.name)
    run("update-mime-database", os.path.join(folder.name, "share", "mime"))
    run("update-desktop-database", os.path.join(folder.name, "share", "applications"))
    return folder.name


def share(*parts):
    return os.path.join(installed(), "share", *parts)


def the_installed_files_are_valid(session):
    output = run("desktop-file-validate", share("applications", f"{ID}.desktop"))
    check(output == "", "the desktop entry is valid, without a hint")
    run("appstreamcli", "validate", "--no-net", share("metainfo", f"{ID}.metainfo.xml"))
    with open(share("dbus-1", "services", f"{ID}.service")) as file:
        service = file.read()
    program = os.path.join(installed(), "bin", "tabulon")
    check(f"Name={ID}\n" in service and f'Exec="{program}" --dbus-service\n' in service,
          "the message bus is given the program's path")
    check(run(program, "--version").startswith("tabulon "), "the installed program runs")
    for name in ["apps/" + ID, "mimetypes/application-x-tabulon-bookmarks"]:
        for path in [f"scalable/{name}.svg", f"48x48/{name}.png", f"128x128/{name}.png"]:
            check(os.path.getsize(share("icons", "hicolor", path)) > 100, f"there is an icon {path}")
    with open(share("applications", f"{ID}.desktop")) as file:
        check(f'Exec="{program}" %F\n' in file.read(), "and so is the desktop, in a place that is not searched for programs")
    for page in ["tabulon.1.gz", "tabulon-cli.1.gz"]:
        run("gzip", "-t", share("man", "man1", page))


def content_type(session, path):
    environment = dict(session.environment, XDG_DATA_HOME=share(), XDG_CURRENT_DESKTOP="GNOME")
    output = run("gio", "info", "-a", "standard::content-type", path, env=environment)
    found = output.split("standard::content-type: ")[1].strip()
    by_xdg = run("xdg-mime", "query", "filetype", path, env=environment).strip()
    check(by_xdg == found, f"gio and xdg-mime agree about {os.path.basename(path)}")
    return found


def sample(session, name, content):
    path = os.path.join(session.folder, name)
    with open(path, "wb") as file:
        file.write(content)
    return path


def large_document(session):
    tree = {"name": "Master", "folder": True,
            "children": [{"name": f"link {n}", "url": f"http://example.org/{n}"} for n in range(50000)]}
    path = os.path.join(session.folder, "large.tbln")
    subprocess.run([session.tool, "make", "-", "-o", path], input=json.dumps(tree), text=True, check=True)
    return path


def keyed_archive(class_name):
    return plistlib.dumps({
        "$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": plistlib.UID(1)},
        "$objects": ["$null", {"$class": plistlib.UID(2)}, {"$classname": class_name, "$classes": [class_name]}],
    }, fmt=plistlib.FMT_BINARY, sort_keys=False)


def documents_are_recognised_and_nothing_else(session):
    small = session.document("small.tbln")
    large = large_document(session)
    with open(os.path.join(CORPUS, "classic", "one-link", "input"), "rb") as file:
        classic = file.read()
    with open(os.path.join(CORPUS, "archive", "plain", "input"), "rb") as file:
        foreign = file.read()
    with open(os.path.join(CORPUS, "archive", "xml", "input"), "rb") as file:
        xml = file.read()
    empty = os.path.join(session.folder, "empty.tbln")
    subprocess.run([session.tool, "make", "-", "-o", empty], input="{}", text=True, check=True)
    ours = {
        "a small document": small, "a large document": large, "an empty document": empty,
        "a small one without extension": session.document("small", small),
        "a large one without extension": session.document("large", large),
        "an empty one without extension": session.document("empty", empty),
        "another writer's document": sample(session, "foreign", foreign),
        "a classic document": sample(session, "classic", classic),
        "a document in XML with extension": sample(session, "xml.tbln", xml),
    }
    for what, path in ours.items():
        found = content_type(session, path)
        check(found == TYPE, f"{what} is {found}")
    others = {
        "a binary property list": sample(session, "plist", plistlib.dumps({"a": 1}, fmt=plistlib.FMT_BINARY)),
        "somebody else's keyed archive": sample(session, "archive", keyed_archive("Library")),
        "a keyed archive of one's own by extension": sample(session, "a.archive", keyed_archive("Preferences")),
        "zeros": sample(session, "zeros", bytes(4096)),
        "a picture": sample(session, "picture", b"\x89PNG\r\n\x1a\n" + bytes(200)),
        "an icon": sample(session, "icon", b"\0\0\1\0\1\0\x10\x10" + bytes(range(256))),
        "a font": sample(session, "font", b"\0\1\0\0\0\x0c\0\x80\0\3\0\x40OS/2" + b"\x80" * 200),
        "numbers": sample(session, "numbers", b"".join(n.to_bytes(4, "big") for n in range(1000))),
    }
    for what, path in others.items():
        found = content_type(session, path)
        check(found != TYPE, f"{what} is {found}")
    check(content_type(session, sample(session, "b.html", open(DEMO, "rb").read())) == "application/x-mozilla-bookmarks",
          "a browser's bookmark file is what it was, and the desktop entry names it")


def the_message_bus_starts_the_program(session):
    a, b, c = (session.document(f"{name}.tbln") for name in "abc")
    environment = session.environment
    run("gapplication", "launch", ID, a, env=environment)
    session.wait_for_titles("a – Tabulon")
    run("gio", "launch", share("applications", f"{ID}.desktop"), b, env=environment)
    session.wait_for_titles("a – Tabulon", "b – Tabulon")
    run("gio", "open", c, env=dict(environment, XDG_DATA_HOME=share()))
    session.wait_for_titles("a – Tabulon", "b – Tabulon", "c – Tabulon")
    run("gapplication", "action", ID, "new-document", env=environment)
    session.wait_for_titles("a – Tabulon", "b – Tabulon", "c – Tabulon", "Untitled – Tabulon")
    check(True, "gapplication, gio launch, gio open and the action all reach one program")
    check(session.second(a)[0] == 0, "and so does a start by hand")
    session.wait_for_front("a – Tabulon")
    while session.titles():
        session.press("ctrl+w")
    wait_for("the end", lambda: not session.bus_name_is_owned())
    run("gapplication", "launch", ID, env=environment)
    session.wait_for_titles("Untitled – Tabulon")
    check(session.bus_name_is_owned(), "started anew by the bus without files, it shows an empty document")


def a_service_that_nobody_asks_anything_ends(session):
    process = session.launch("--dbus-service")
    wait_for("the name", session.bus_name_is_owned)
    check(session.second("--dbus-service")[0] == 0, "a second service leaves the field")
    check(process.wait(timeout=20) == 0 and not session.titles(), "a service that is not asked ends without a window")


def browsers_find_the_extension(session, package, root):
    for path, (member, extension) in SYSTEM_MANIFESTS.items():
        with open(os.path.join(root, path)) as file:
            manifest = json.load(file)
        check((manifest["name"], manifest["path"], manifest["type"], manifest[member])
              == ("com.tabulon.tabulon", "/usr/bin/tabulon-host", "stdio", [extension]), f"/{path} names the host and the extension")
        check(os.access(os.path.join(root, manifest["path"][1:]), os.X_OK), "which is in the package")
    with zipfile.ZipFile(os.path.join(root, SYSTEM_ARCHIVE)) as archive:
        check(sorted(archive.namelist()) == sorted(EXTENSION), "the archive for Firefox has the files of the extension")
        for name in EXTENSION:
            with open(os.path.join(root, "usr/share/tabulon/extension", name), "rb") as plain, \
                    open(os.path.join(root, "usr/share/chromium/extensions/tabulon", name), "rb") as chromium:
                check(archive.read(name) == plain.read() == chromium.read(), f"{name} is the same in each place")
        check({member.date_time for member in archive.infolist()} == {(2000, 1, 1, 0, 0, 0)}, "with fixed times")
    control = os.path.join(session.folder, "control")
    run("dpkg-deb", "-e", package, control)
    with open(os.path.join(control, "conffiles")) as file:
        check(file.read().split() == [f"/{path}" for path in SYSTEM_MANIFESTS if path.startswith("etc/")],
              "files in /etc are configuration files of the package")


def the_package_is_what_debian_expects(session):
    run("cpack", "-G", "DEB", "-B", session.folder, cwd=sys.argv[3])
    packages = [name for name in os.listdir(session.folder) if name.endswith(".deb")]
    check(len(packages) == 1, "cpack makes one package")
    package = os.path.join(session.folder, packages[0])
    depends = run("dpkg-deb", "-f", package, "Depends")
    for library in ["libc6 (>=", "libqt6widgets6 (>=", "libqt6svg6", "libicu"]:
        check(library in depends, f"it depends on {library.strip(' (>=')}")
    root = os.path.join(session.folder, "root")
    run("dpkg-deb", "-x", package, root)
    with open(os.path.join(root, "usr/share/dbus-1/services", f"{ID}.service")) as file:
        check('Exec="/usr/bin/tabulon" --dbus-service\n' in file.read(), "its service names the place that it is unpacked to")
    with open(os.path.join(root, "usr/share/applications", f"{ID}.desktop")) as file:
        check("Exec=tabulon %F\n" in file.read(), "its desktop entry needs no path")
    names = {os.path.relpath(os.path.join(folder, name), root) for folder, _, files in os.walk(root) for name in files}
    plain = {os.path.join("usr", os.path.relpath(os.path.join(folder, name), installed()))
             for folder, _, files in os.walk(installed()) for name in files}
    caches = {name for name in plain if "/mime/" in name and "/packages/" not in name} | {"usr/share/applications/mimeinfo.cache"}
    for_all_users = set(SYSTEM_MANIFESTS) | {SYSTEM_ARCHIVE} | {f"usr/share/chromium/extensions/tabulon/{name}" for name in EXTENSION}
    check(names == (plain - caches) | for_all_users,
          "it has the same files as an installation, and those that browsers read for all users")
    browsers_find_the_extension(session, package, root)
    modes = {oct(os.stat(os.path.join(root, name)).st_mode & 0o7777) for name in names if not name.startswith("usr/bin/")}
    check(modes == {"0o644"}, "and their modes are those of any package")
    if shutil.which("lintian"):
        output = run("lintian", "--fail-on", "error", "--suppress-tags", "initial-upload-closes-no-bugs", package)
        check("E:" not in output, "lintian has no error to report")


def make_session(program, tool, folder):
    return Session(program, tool, folder, data_folders=[share()])


if __name__ == "__main__":
    run_session_tests([
        the_installed_files_are_valid,
        documents_are_recognised_and_nothing_else,
        the_message_bus_starts_the_program,
        a_service_that_nobody_asks_anything_ends,
        the_package_is_what_debian_expects,
    ], needed=["desktop-file-validate", "update-desktop-database", "update-mime-database", "appstreamcli", "gio", "gapplication",
               "gdbus", "xdg-mime", "cpack", "dpkg-deb", "dpkg-shlibdeps", "gzip"], make_session=make_session)
