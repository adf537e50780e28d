"""The Debian package: what it holds and wants, and its whole life on a system: in, started, out."""

import configparser
import email
import os
import pathlib
import subprocess
import tarfile
import tempfile
import unittest

from timer import DesktopTest, main
from tree import BUILD, FILES, ID, LINK, run


def icons(numbers):
    """The pictures of a _NET_WM_ICON property by their width: rows of 0xAARRGGBB."""
    found = {}
    while numbers:
        width, height, pixels = numbers[0], numbers[1], numbers[2:]
        found[width] = [pixels[row * width : (row + 1) * width] for row in range(height)]
        numbers = pixels[width * height :]
    return found


def setUpModule():
    global package
    folder = tempfile.TemporaryDirectory(prefix="package-")
    unittest.addModuleCleanup(folder.cleanup)
    run(os.environ["CPACK"], "--config", BUILD / "CPackConfig.cmake", "-B", folder.name)
    (package,) = pathlib.Path(folder.name).glob("*.deb")


class ContentTest(unittest.TestCase):
    def test_it_holds_what_is_installed_for_all_to_read(self):
        with subprocess.Popen(["dpkg-deb", "--fsys-tarfile", package], stdout=subprocess.PIPE) as content:
            with tarfile.open(fileobj=content.stdout, mode="r|") as tar:
                members = {member.name.removeprefix("./"): member for member in tar}
        self.assertEqual({name for name, m in members.items() if not m.isdir()}, {f"usr/{name}" for name in FILES})
        self.assertEqual({(m.uname, m.gname, m.uid, m.gid) for m in members.values()}, {("root", "root", 0, 0)})
        self.assertEqual(len({m.mtime for m in members.values()}), 1, "the time of the release is not everywhere")
        for name, member in members.items():
            runs = member.isdir() or name.endswith("bin/dwindledial")
            self.assertTrue(member.issym() or member.mode == (0o755 if runs else 0o644), f"{name}: {member.mode:o}")

    def test_it_wants_the_libraries_that_the_program_is_linked_to(self):
        fields = email.message_from_string(run("dpkg-deb", "--field", package))
        self.assertEqual((fields["Package"], fields["Version"]), ("dwindledial", os.environ["VERSION"]))
        for library in ("libqt6widgets6", "libqt6dbus6", "libavformat", "libcanberra0", "libxcb-screensaver0"):
            self.assertRegex(fields["Depends"], rf"\b{library}")
        self.assertIn("qt6-wayland", fields["Recommends"])


class LifeTest(DesktopTest):
    def dpkg(self, *arguments):
        """On a system in a folder of its own, where nothing else is installed. Wants no rights."""
        forced = "--force-not-root,depends"
        return run("dpkg", f"--root={self.root}", f"--log={os.devnull}", forced, *arguments)

    def new_system(self):
        self.root = pathlib.Path(self.stack.enter_context(tempfile.TemporaryDirectory(prefix="system-")))
        for folder in ("info", "updates", "triggers"):
            (self.root / "var/lib/dpkg" / folder).mkdir(parents=True)
        for file in ("status", "available"):
            (self.root / "var/lib/dpkg" / file).touch()

    def test_it_installs_starts_with_its_pictures_and_leaves_nothing(self):
        self.new_system()
        self.dpkg("--install", package)
        self.assertEqual(self.dpkg("--verify", "dwindledial"), "", "files differ from their checksums")
        timer = self.launch(path=self.root / "usr" / LINK)  # waits for a picture of its Resources
        entry = configparser.ConfigParser()
        entry.read(self.root / f"usr/share/applications/{ID}.desktop")
        self.assertEqual(timer.window.get_wm_class()[1], entry["Desktop Entry"]["StartupWMClass"])

        def sizes_of_icon():  # until the program sets its own, the window manager's stands there
            return set(icons(self.desktop.property("_NET_WM_ICON", timer.window)))

        self.wait_until(lambda: {16, 22, 24, 32, 48, 64, 128} <= sizes_of_icon(), "the window has its icon")
        shown = icons(self.desktop.property("_NET_WM_ICON", timer.window))
        self.assertEqual([shown[16][y][x] for x, y in ((0, 0), (6, 6), (11, 11))], [0, 0xFFFF0000, 0xFFFFFFFF])
        self.desktop.key("ctrl+q")
        self.assertEqual(timer.end(), (0, ""))
        self.dpkg("--purge", "dwindledial")
        self.assertEqual([path.name for path in self.root.iterdir()], ["var"])


if __name__ == "__main__":
    main()
