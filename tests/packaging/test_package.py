"""The Debian package on a system in a folder of its own: in, judged by the desktop's validators, started, out."""

import configparser
import os
import pathlib
import re
import subprocess
import tempfile

from timer import DesktopTest

ID = os.environ["DWINDLEDIAL_ID"]


def run(*command):
    """What the command says; an error that tells it all if it fails."""
    command = [str(part) for part in command]
    done = subprocess.run(command, text=True, umask=0o022, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT)
    if done.returncode:
        raise AssertionError(f"{' '.join(command)} ended with {done.returncode}:\n{done.stdout}")
    return done.stdout


class PackageTest(DesktopTest):
    def test_it_installs_passes_the_validators_starts_with_its_icon_and_leaves_nothing(self):
        folder = pathlib.Path(self.stack.enter_context(tempfile.TemporaryDirectory(prefix="package-")))
        run(os.environ["CPACK"], "--config", os.environ["BUILD"] + "/CPackConfig.cmake", "-B", folder / "made")
        symbols, package = sorted((folder / "made").glob("*.deb"))
        for library in ("libqt6widgets6", "libavformat", "libcanberra0", "libxcb-screensaver0"):
            self.assertIn(library, run("dpkg-deb", "--field", package, "Depends"))

        root, usr = folder / "root", folder / "root/usr"
        for name in ("info", "updates", "triggers"):
            (root / "var/lib/dpkg" / name).mkdir(parents=True)
        for name in ("status", "available"):
            (root / "var/lib/dpkg" / name).touch()
        dpkg = "dpkg", f"--root={root}", f"--log={os.devnull}", "--force-not-root,depends"
        run(*dpkg, "--install", package, symbols)
        self.assertEqual(run(*dpkg, "--verify"), "", "files differ from their checksums")
        for path in usr.rglob("*"):
            runs = path.is_dir() or path.name == "dwindledial"
            self.assertEqual(path.stat().st_mode & 0o777, 0o755 if runs else 0o644, path)

        for program in (usr / "libexec/dwindledial/bin").iterdir():
            told = run("readelf", "--wide", "--sections", "--notes", program)
            self.assertNotIn(".comment", told)
            build_id = re.search("Build ID: (..)(.*)", told)
            self.assertIn(".debug_info", run("readelf", "--wide", "--sections",
                                             usr / f"lib/debug/.build-id/{build_id[1]}/{build_id[2]}.debug"))

        # Not the hint that a menu may show it twice, in Education and in Utilities.
        self.assertEqual(run("desktop-file-validate", "--no-hints", usr / f"share/applications/{ID}.desktop"), "")
        run("appstreamcli", "validate-tree", "--no-net", root)
        (folder / "dwindledial.1").write_text(run("gzip", "-dc", usr / "share/man/man1/dwindledial.1.gz"))
        self.assertEqual(run("mandoc", "-T", "lint", "-W", "style", folder / "dwindledial.1"), "")

        timer = self.launch(path=usr / "bin/dwindledial")
        entry = configparser.ConfigParser()
        entry.read(usr / f"share/applications/{ID}.desktop")
        self.assertEqual(timer.window.get_wm_class()[1], entry["Desktop Entry"]["StartupWMClass"])
        # In seven sizes; until the program sets its own, a small one of the window manager's is there.
        icon = lambda: self.desktop.property("_NET_WM_ICON", timer.window)
        self.wait_until(lambda: len(icon()) > 128 * 128 + 64 * 64, "the window has its icon")
        self.desktop.key("ctrl+q")
        self.assertEqual(timer.end(), (0, ""))
        run(*dpkg, "--purge", "dwindledial", "dwindledial-dbgsym")
        self.assertEqual([path.name for path in root.iterdir()], ["var"])
