"""The tree that is looked at."""

import pathlib
import re
import subprocess

root = pathlib.Path(__file__).resolve().parents[3]

CODE = {".cpp", ".h"}


def files(*suffixes):
    """The files that git tracks or could, as paths from the root; outside git all there are."""
    if (root / ".git").exists():
        listed = subprocess.run(
            ["git", "ls-files", "--cached", "--others", "--exclude-standard", "-z"],
            cwd=root, check=True, capture_output=True).stdout.decode()
        paths = [pathlib.Path(name) for name in listed.split("\0") if name]
    else:
        paths = [path.relative_to(root) for path in sorted(root.rglob("*"))]
    return [path for path in paths
            if (not suffixes or path.suffix in suffixes) and (root / path).is_file()]


def text(path):
    return (root / path).read_text(encoding="utf-8")


def declared_classes(path):
    """The names of the classes that a header declares, as they are written."""
    return re.findall(r"^class (?:\w+_API )?(\w+)(?: final)?(?:\s*:[^;]*)?$", text(path), re.M)
