"""Readers that come from npm, installed by their names into a folder of the build."""

import pathlib
import shutil
import subprocess

HERE = pathlib.Path(__file__).resolve().parent


def install(folder):
    """Installs the npm readers; returns their node_modules."""
    folder.mkdir(parents=True, exist_ok=True)
    modules = folder / "node_modules"
    manifest = HERE / "package.json"
    copy = folder / "package.json"
    if not modules.is_dir() or not copy.is_file() or copy.read_bytes() != manifest.read_bytes():
        shutil.copyfile(manifest, copy)
        subprocess.run(["npm", "install", "--no-audit", "--no-fund"], cwd=folder, check=True)
    return modules
