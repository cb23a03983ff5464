"""docs/python.md, line by line, and the examples."""

import doctest
import os
import subprocess
import sys
import unittest

from support import ROOT


class Pages(unittest.TestCase):
    def test_the_page_tells_what_happens(self):
        result = doctest.testfile(str(ROOT / "docs" / "python.md"), module_relative=False, optionflags=doctest.NORMALIZE_WHITESPACE)
        self.assertEqual(result.failed, 0)
        self.assertGreater(result.attempted, 40)

    def test_the_examples_run(self):
        for name, last in (("forming_study", "20 variants, of one job that is as it was: -25.0"), ("edit_model", "gattr.FREED")):
            run = subprocess.run([sys.executable, ROOT / "examples" / f"{name}.py"], capture_output=True, text=True, env=os.environ)
            self.assertEqual((run.returncode, run.stderr, run.stdout.splitlines()[-1:]), (0, "", [last]), name)


if __name__ == "__main__":
    unittest.main()
