"""Packs the module as a wheel, from the build tree and nothing else. wheel.py BUILD VERSION FOLDER"""

import base64
import hashlib
import pathlib
import subprocess
import sys
import sysconfig
import tempfile
import zipfile

NAME = "gattr"


def line(name, data):
    """A file's line in RECORD."""
    digest = base64.urlsafe_b64encode(hashlib.sha256(data).digest()).rstrip(b"=").decode()
    return f"{name},sha256={digest},{len(data)}\n"


def main(build, version, folder):
    python = f"cp{sys.version_info.major}{sys.version_info.minor}"
    tag = f"{python}-{python}-{sysconfig.get_platform().replace('-', '_').replace('.', '_')}"
    info = f"{NAME}-{version}.dist-info"
    with tempfile.TemporaryDirectory() as stage:
        command = ["cmake", "--install", build, "--component", "python", "--prefix", stage]
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
        root = pathlib.Path(stage)
        files = {str(path.relative_to(root)): path.read_bytes() for path in sorted(root.rglob("*")) if path.is_file()}
    files[f"{info}/METADATA"] = (
        f"Metadata-Version: 2.1\nName: {NAME}\nVersion: {version}\n"
        "Summary: Steps, boundary conditions, loads, interactions and their per-step histories\n"
        f"Requires-Python: =={sys.version_info.major}.{sys.version_info.minor}.*\n"
    ).encode()
    files[f"{info}/WHEEL"] = f"Wheel-Version: 1.0\nGenerator: {NAME}\nRoot-Is-Purelib: false\nTag: {tag}\n".encode()
    record = "".join(line(name, data) for name, data in files.items()) + f"{info}/RECORD,,\n"
    files[f"{info}/RECORD"] = record.encode()
    wheel = pathlib.Path(folder, f"{NAME}-{version}-{tag}.whl")
    wheel.parent.mkdir(parents=True, exist_ok=True)
    with zipfile.ZipFile(wheel, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, data in files.items():
            entry = zipfile.ZipInfo(name, (1980, 1, 1, 0, 0, 0))  # the same wheel of the same files
            entry.external_attr = (0o755 if ".so" in name else 0o644) << 16
            archive.writestr(entry, data, zipfile.ZIP_DEFLATED)
    print(wheel)


main(*sys.argv[1:])
