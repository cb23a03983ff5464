"""The wheel, alone in a fresh environment outside the tree."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

from support import BUILD, ROOT

SCRIPT = '''
import sys, gattr
m = gattr.Model()
m.StaticStep(name="Press", initialInc=0.1)
m.Set(name="Top")
bc = m.DisplacementBC(name="Punch", createStepName="Press", region="Top", u2=-10.0)
m.save("m.gadb")
with gattr.open("m.gadb") as n:
    n.boundary_conditions["Punch"]["Press"].u2 = -12
print(gattr.open("m.gadb").boundary_conditions["Punch"]["Press"].u2)
print(m.history()._repr_html_()[:7], gattr.load(m.dump()).check(), "numpy" in sys.modules or "pandas" in sys.modules)
try:
    m.history().numpy()
except ImportError as error:
    print(error.name)
for line in open("/proc/self/maps"):
    if "DDB_" in line or "ZLK" in line or "_gattr" in line:
        print("LIB", line.split()[-1])
'''


class Wheel(unittest.TestCase):
    def test_a_fresh_environment_needs_nothing_but_the_wheel(self):
        with tempfile.TemporaryDirectory() as folder:
            folder = os.path.realpath(folder)
            run = lambda *command: subprocess.run(  # noqa: E731
                command, cwd=folder, check=True, capture_output=True, text=True, env={"PATH": os.environ["PATH"], "HOME": folder}
            ).stdout
            wheel = run(sys.executable, ROOT / "python" / "wheel.py", BUILD, os.environ["GATTR_VERSION"], folder).strip()
            run(sys.executable, "-m", "venv", "fresh")
            run("fresh/bin/python", "-m", "pip", "install", "--no-index", "--disable-pip-version-check", wheel)
            told = run("fresh/bin/python", "-I", "-c", SCRIPT).splitlines()
            self.assertEqual(told[:3], ["-12.0", "<iframe [] False", "numpy"])
            libraries = {line.split()[1] for line in told[3:]}
            self.assertGreater(len(libraries), 5)
            for library in libraries:
                self.assertTrue(library.startswith(str(pathlib.Path(folder, "fresh"))), library)
            listed = run("fresh/bin/python", "-m", "pip", "show", "-f", "gattr")
            for name in ("__init__.pyi", "py.typed"):
                self.assertIn(name, listed)


if __name__ == "__main__":
    unittest.main()
