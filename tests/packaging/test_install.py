"""The installed tree, anywhere: what is in it, and what the desktop's validators say of it."""

import configparser
import os
import pathlib
import struct
import tempfile
import unittest
import xml.etree.ElementTree

from tree import BUILD, FILES, ID, LINK, PROGRAM, files, run


class InstallTest(unittest.TestCase):
    def install(self, prefix):
        """Gives the prefix where it really is."""
        folder = tempfile.TemporaryDirectory(prefix="install-")
        self.addCleanup(folder.cleanup)
        run(os.environ["CMAKE"], "--install", BUILD, "--prefix", prefix, DESTDIR=folder.name)
        return pathlib.Path(folder.name + prefix)

    def test_any_prefix_takes_all_of_it(self):
        tree = self.install("/opt/a folder")
        self.assertEqual(files(tree), FILES)
        self.assertEqual((tree / LINK).resolve(), (tree / PROGRAM).resolve())

    def test_validators_find_no_fault(self):
        tree = self.install("/usr")
        self.assertEqual(run("desktop-file-validate", tree / f"share/applications/{ID}.desktop"), "")
        run("appstreamcli", "validate-tree", "--no-net", tree.parent)
        page = tree.parent / "dwindledial.1"
        page.write_text(run("gzip", "-dc", tree / "share/man/man1/dwindledial.1.gz"))
        self.assertEqual(run("mandoc", "-T", "lint", "-W", "style", page), "")

    def test_all_names_meet_in_one_id(self):
        share = self.install("/usr") / "share"
        entry = configparser.ConfigParser()
        entry.read(share / f"applications/{ID}.desktop")
        self.assertEqual(entry["Desktop Entry"]["Icon"], ID)
        self.assertEqual(entry["Desktop Entry"]["Exec"], LINK.split("/")[-1])
        info = xml.etree.ElementTree.parse(share / f"metainfo/{ID}.metainfo.xml")
        self.assertEqual((info.findtext("id"), info.findtext("launchable")), (ID, f"{ID}.desktop"))
        self.assertEqual(info.find("releases/release").get("version"), os.environ["VERSION"])

    def test_icons_are_of_the_size_of_their_folder(self):
        icons = self.install("/usr") / "share/icons/hicolor"
        sizes = {path.parts[-3]: struct.unpack(">2I", path.read_bytes()[16:24]) for path in icons.rglob("*.png")}
        self.assertEqual(sizes, {f"{width}x{height}": (width, height) for width, height in sizes.values()})


if __name__ == "__main__":
    unittest.main()
