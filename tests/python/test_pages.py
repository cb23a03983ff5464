"""docs/python.md, line by line, and the examples."""

import doctest
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import gattr
from support import BUILD, ROOT


class Pages(unittest.TestCase):
    def test_the_page_tells_what_happens(self):
        result = doctest.testfile(str(ROOT / "docs" / "python.md"), module_relative=False, optionflags=doctest.NORMALIZE_WHITESPACE)
        self.assertEqual(result.failed, 0)
        self.assertGreater(result.attempted, 40)

    def test_the_examples_run(self):
        for name, last in (("forming_study", "20 variants, of one job that is as it was: -25.0"), ("edit_model", "gattr.FREED")):
            run = subprocess.run([sys.executable, ROOT / "examples" / f"{name}.py"], capture_output=True, text=True, env=os.environ)
            self.assertEqual((run.returncode, run.stderr, run.stdout.splitlines()[-1:]), (0, "", [last]), name)

    def test_the_script_of_a_model_makes_it_again(self):
        tried = 0
        for journal in sorted((ROOT / "examples").glob("*.jsonl")):
            model = gattr.replay(journal)
            with tempfile.TemporaryDirectory() as folder:
                path = pathlib.Path(folder, "m.gattr.json")
                model.save(path)
                written = subprocess.run([BUILD / "bin" / "gattr", "journal", path, "--python"], capture_output=True, text=True)
            self.assertEqual((written.returncode, written.stderr), (0, ""), journal.name)
            made = {}
            exec(compile(written.stdout, journal.name, "exec"), made)
            self.assertEqual(made["m"].dump(), model.dump(), journal.name)
            tried += 1
        self.assertGreater(tried, 10)


if __name__ == "__main__":
    unittest.main()
