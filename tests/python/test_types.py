"""The stubs: what type checkers accept, and refuse."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import gattr
from support import BUILD, ROOT

BEGIN = '''import gattr
m = gattr.Model()
bc = m.DisplacementBC(name="Punch", createStepName="Press", region="Top", u2=-10.0)
'''

# What is wrong in one way each, and what is said of it.
WRONG = (
    ('m.DisplacementBC(name="P", createStepName="A", region="T", u9=1.0)', "u9"),
    ('bc.deactivate(None)', "deactivate"),
    ('m.DisplacementBC(name="P", region="T", u1=1.0)', "createStepName"),
    ('m.DisplacementBC("P", createStepName="A")', "positional"),
    ('m.DisplacementBC(name="P", createStepName="A", u1="deep")', "u1"),
    ('m.StaticStep(name="A", nlgeom="MAYBE")', "nlgeom"),
    ('m.StaticSetp(name="A")', "StaticSetp"),
    ('bc["Press"].u2 = "deep"', "assignment"),
    ('bc["Press"].u7', "u7"),
    ('bc[1].u2', "int"),
    ('bc.deactivate()', "stepName"),
    ('bc.move("Press")', "toStepName"),
    ('bc.set("Press", temperature=1.0)', "set"),
    ('bc.colour = "red"', "colour"),
    ('depth: float = bc["Press"].u2', "assignment"),
    ('m.loads["Punch"]["Press"].nothing = 1.0', "nothing"),
    ('m.undo(2)', "undo"),
    ('m.steps["Press"].initialInc = None if bc.suppressed else "x"', "assignment"),
    ('gattr.open(3)', "open"),
)
RIGHT = '''
own: bool = bc.show(at=0.5)[1].members["u2"].own
kinds: list[str] = [link.kind for link in bc.explain("Press", "u2").links]
gone: list[str] = [told.name for told in m.inforce("Press", still=False) if told.what == "gone"]
status: gattr.Status = m.attribute("load:Push").explain("Press").status
m.StaticStep(name="A", nlgeom="ON", previous=m.steps[-1])
bc["Press"].u2 = gattr.FREED
bc["Press"].u2 = None
bc.set("Press", u2=3, amplitude=gattr.UNSET)
bc.set(region="Top", u2=1.5)
bc.deactivate(["Press", m.steps["A"]])
depth = bc["Press"].u2
if isinstance(depth, float):
    depth += 1
again: gattr.DisplacementBC = bc.copy("Again")
again.deactivate(stepName=m.steps["A"])
m.boundary_conditions["Punch"]["Press"].u2 = -3
names: list[str] = [step.name for step in m.steps if step.initialInc]
total: float = float(m.history().values("u2").sum())
with m.dry_run() as tried:
    bc.delete()
print(tried.history.frame(), [finding.id for finding in tried.findings])
'''


class Types(unittest.TestCase):
    def test_checkers_take_what_is_right_and_refuse_each_mistake(self):
        with tempfile.TemporaryDirectory() as folder:
            for number, (line, _) in enumerate(WRONG):
                pathlib.Path(folder, f"wrong_{number}.py").write_text(BEGIN + line + "\n")
            pathlib.Path(folder, "right.py").write_text(BEGIN + RIGHT)
            files = [*sorted(pathlib.Path(folder).glob("*.py")), *sorted((ROOT / "examples").glob("*.py"))]
            run = subprocess.run(
                [sys.executable, "-m", "mypy", "--strict", "--no-error-summary", "--scripts-are-modules", "--cache-dir", BUILD / "mypy", *files],
                env={**os.environ, "MYPYPATH": str(BUILD / "python")}, cwd=folder, capture_output=True, text=True,
            )
        told = run.stdout.splitlines()
        for number, (line, word) in enumerate(WRONG):
            mine = [text for text in told if text.startswith(f"wrong_{number}.py:4: error:")]
            self.assertTrue(mine and word in mine[0], (line, mine))
        self.assertEqual([text for text in told if ": error:" in text and not text.startswith("wrong_")], [], run.stderr)

    def test_stubs_say_no_any_and_no_rest_of_what_methods_take(self):
        for line in (BUILD / "python" / "gattr" / "__init__.pyi").read_text().splitlines():
            self.assertNotRegex(line, r"\bAny\b|\*\*|\*[a-z]")

    def test_stubs_have_all_names_that_the_module_has(self):
        text = (BUILD / "python" / "gattr" / "__init__.pyi").read_text()
        for name in gattr.__all__:
            self.assertRegex(text, rf"(?m)^(class |def )?{name}\b", name)
        for owner in (gattr.Model, gattr.DisplacementBC, gattr.Step, gattr.Region, gattr.ContactExp, gattr.History, gattr.Objects):
            for name in vars(owner):
                if not name.startswith("_"):
                    self.assertRegex(text, rf"(?m)^    def {name}\(", (owner, name))


if __name__ == "__main__":
    unittest.main()
