"""What a report costs: 5,000 conditions by 100 steps with three own records each, all on one region, so that each has a finding, too.
The file and the time to write it; in a headless browser the first picture, the table, and the longest frame while the table is scrolled
from end to end in so many frames. report.py [--check] ends with 1 where a bound is missed."""

import json
import os
import random
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(ROOT, "tests/browser"))
from browser import Browser, Page  # noqa: E402

GATTR = os.environ.get("GATTR_PROGRAM", os.path.join(ROOT, "build/release/bin/gattr"))
ATTRIBUTES, STEPS, ROUNDS = 5_000, 100, 3
SCROLL = """new Promise(done => { let last = performance.now(), longest = 0, frame = -1;
  const next = now => { if (frame++ >= 0) longest = Math.max(longest, now - last); last = now; if (frame > FRAMES) return done(longest);
    const part = frame / FRAMES; grid.scrollTop = part * (grid.scrollHeight - grid.clientHeight);
    if (ASIDE) grid.scrollLeft = part * (grid.scrollWidth - grid.clientWidth); requestAnimationFrame(next); };
  requestAnimationFrame(next); })"""


def commands():
    random_ = random.Random(4711)

    def values():
        return {member: round(random_.uniform(-100, 100), 3) for member in ("u1", "u2", "u3")}

    yield {"command": "Set", "name": "Region"}
    for number in range(1, STEPS):
        yield {"command": "StaticStep", "name": f"Step-{number}", "initialInc": 0.1}
    for number in range(ATTRIBUTES):
        create, change, off = sorted(random_.sample(range(1, STEPS), 3))
        name = f"Condition-{number}"
        yield {"command": "DisplacementBC", "name": name, "createStepName": f"Step-{create}", "region": "Region", **values()}
        yield {"command": "setValuesInStep", "boundaryCondition": name, "stepName": f"Step-{change}", **values()}
        yield {"command": "deactivate", "boundaryCondition": name, "stepName": f"Step-{off}"}


def main():
    missed = []

    def row(what, value, unit, bound=None):
        print(f"{what:<52}{value:>9.2f} {unit}" + (f"  (bound {bound})" if bound else ""))
        if bound and value > bound:
            missed.append(what)

    with tempfile.TemporaryDirectory() as folder:
        journal, model, page = (os.path.join(folder, name) for name in ("m.jsonl", "m.gadb", "m.html"))
        with open(journal, "w", encoding="utf-8") as out:
            out.writelines(json.dumps(command) + "\n" for command in commands())
        subprocess.run([GATTR, "replay", journal, "-o", model], check=True)
        taken = []
        for _ in range(ROUNDS):
            begin = time.perf_counter()
            subprocess.run([GATTR, "report", model, "-o", page], check=True, stdout=subprocess.DEVNULL)
            taken.append(time.perf_counter() - begin)
        row("the file", os.path.getsize(page) / 1e6, "MB", 3)
        row("writing it, the program's start and opening included", min(taken), "s")
        browser = Browser()
        try:
            first, table, frames = [], [], {}
            for _ in range(ROUNDS):
                shown = Page(browser, page)
                shown.settle()
                first.append(shown.run("performance.getEntriesByName('first-contentful-paint')[0].startTime"))
                table.append(shown.run("performance.getEntriesByName('drawn')[0].startTime"))
                for count in (100, 1000):
                    for aside in (False, True):
                        longest = shown.run(SCROLL.replace("FRAMES", str(count)).replace("ASIDE", str(aside).lower()))
                        frames.setdefault((count, aside), []).append(longest)
                shown.close()
            row("first picture", min(first) / 1e3, "s", 2)
            row("the table is there", min(table) / 1e3, "s", 2)
            for (count, aside), longest in frames.items():
                row(f"longest of {count} frames, {'down and aside' if aside else 'down'}", min(longest), "ms", 100)
        finally:
            browser.close()
    if "--check" in sys.argv and missed:
        sys.exit("missed: " + ", ".join(missed))


if __name__ == "__main__":
    main()
