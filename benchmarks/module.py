"""What the Python module costs beside the session: each the fastest of several rounds. module.py [--check] ends with 1 where a bound is
missed."""

import json
import sys
import time

import gattr
import gattr_baseline

ATTRIBUTES, STEPS, ROUNDS = 10_000, 100, 7


def fastest(run):
    """Seconds of the fastest round; run tells its own, or is timed."""
    best = float("inf")
    for _ in range(ROUNDS):
        begin = time.perf_counter()
        told = run()
        best = min(best, told if isinstance(told, float) else time.perf_counter() - begin)
    return best


def built():
    """The same model in Python and in C++: its steps, its attributes, and in every tenth step an edit of each."""
    model, base = gattr.Model(), gattr_baseline.Baseline()
    for number in range(1, STEPS):
        model.StaticStep(name=f"Step-{number}", initialInc=0.1)
    model.Set(name="Region")
    for number in range(ATTRIBUTES):
        attribute = model.DisplacementBC(name=f"A-{number}", createStepName="Step-1", region="Region", u2=-1.0)
        for step in range(10 + number % 10, STEPS, 10):
            attribute[f"Step-{step}"].u2 = float(step)
    base.run([json.dumps(command) for command in model.journal])
    return model, base


def main():
    model, base = built()
    bounds = []

    def tell(what, taken, limit, unit, against):
        bounds.append(taken <= limit)
        print(f"{what:34} {taken:8.2f} {unit:3} (at most {limit:.2f}: {against})")

    edits = [{"command": "setValuesInStep", "boundaryCondition": f"A-{i}", "stepName": "Step-50", "u2": 0.5} for i in range(0, ATTRIBUTES, 5)]
    texts = [json.dumps(command) for command in edits]
    plain = fastest(lambda: base.run(texts)) / len(edits) * 1e6
    handles = [model.boundary_conditions[f"A-{i}"] for i in range(0, ATTRIBUTES, 5)]

    def by_method():
        for handle in handles:
            handle.setValuesInStep("Step-50", u2=0.5)

    def by_attribute():
        for handle in handles:
            handle["Step-50"].u2 = 0.5

    def by_execute():
        for command in edits:
            model.execute(command)

    for what, run in (("a command, as a method", by_method), ("by attribute", by_attribute), ("by execute", by_execute)):
        tell(what, fastest(run) / len(edits) * 1e6, 3 * plain, "us", f"3 times {plain:.2f} of the session")

    handle = handles[7]

    def read():
        for _ in range(100_000):
            handle["Step-50"].u2

    tell('handle["Step-50"].u2', fastest(read) * 10, 2.0, "us", "the loop included")
    filled = fastest(lambda: base.fill()[0]) * 1e3
    assert int(model.history().numpy().sum()) == base.fill()[1]
    tell("history().numpy()", fastest(lambda: [model.history().numpy(), None][1]) * 1e3, 2 * filled, "ms", f"2 times {filled:.2f} by runs")
    if "--check" in sys.argv and not all(bounds):
        sys.exit(1)


main()
