"""What stands where once the program is installed."""

import os
import pathlib
import subprocess

BUILD, ID = pathlib.Path(os.environ["BUILD"]), os.environ["DWINDLEDIAL_ID"]
LINK, PROGRAM = "bin/dwindledial", "lib/dwindledial/bin/dwindledial"
FILES = {
    LINK,
    PROGRAM,
    f"lib/dwindledial/bin/dwindledial_movies-{os.environ['VERSION']}.so",
    *(f"lib/dwindledial/Resources/{picture.name}" for picture in (BUILD / "Resources").iterdir()),
    f"share/applications/{ID}.desktop",
    f"share/metainfo/{ID}.metainfo.xml",
    *(f"share/icons/hicolor/{size}x{size}/apps/{ID}.png" for size in (16, 22, 24, 32, 48, 64, 128, 256)),
    f"share/icons/hicolor/scalable/apps/{ID}.svg",
    f"share/icons/hicolor/symbolic/apps/{ID}-symbolic.svg",
    "share/man/man1/dwindledial.1.gz",
    "share/doc/dwindledial/changelog.gz",
    "share/doc/dwindledial/copyright",
}


def run(*command, **environment):
    """What the command says; an error that tells it all if it fails."""
    done = subprocess.run([str(part) for part in command], env=os.environ | environment, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, umask=0o022)
    if done.returncode:
        raise AssertionError(f"{' '.join(done.args)} ended with {done.returncode}:\n{done.stdout}")
    return done.stdout


def files(folder):
    """All that is not a folder, by its path from there."""
    return {f"{path.relative_to(folder)}" for path in folder.rglob("*") if path.is_symlink() or not path.is_dir()}
