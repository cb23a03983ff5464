"""A parameter study: twenty variants of the forming job, from shallow to deep and from a slack holder to a tight one, compared as a frame.

    PYTHONPATH=build/release/python /usr/bin/python3 examples/forming_study.py
"""

import pathlib

import pandas  # type: ignore[import]

import gattr

DEPTHS = (-18.0, -21.0, -25.0, -28.0, -32.0)
HOLDERS = (-0.2, -0.3, -0.4, -0.5)


def variant(job: gattr.Model, depth: float, holder: float) -> gattr.Model:
    """The job with another depth of the second stroke, the first one in proportion, and another way of the blank holder."""
    model = job.copy()  # shares everything that is not edited
    punch = model.boundary_conditions["Punch"]
    with model.transaction():
        punch["Draw-1"].u2 = 0.48 * depth
        punch["Draw-2"].u2 = depth
        model.boundary_conditions["Holder"]["Close"].u2 = holder
    return model


def main() -> None:
    job = gattr.replay(pathlib.Path(__file__).with_name("forming.jsonl"))
    rows = {}
    for depth in DEPTHS:
        for holder in HOLDERS:
            model = variant(job, depth, holder)
            travel = model.history().frame("u2").loc["boundaryCondition"]
            rows[depth, holder] = {
                "first stroke": travel.at["Punch", "Draw-1"],
                "second stroke": travel.at["Punch", "Draw-2"],
                "at rest": travel.at["Punch", "Dwell"],
                "way back": travel.at["Punch", "Retract"] - travel.at["Punch", "Dwell"],
                "clamped by": travel.at["Holder", "Draw-2"],
                "findings": len(model.check()),
            }
    study = pandas.DataFrame.from_dict(rows, orient="index")
    study.index.names = ["depth", "holder"]
    print(study.to_string())
    print(f"\n{len(study)} variants, of one job that is as it was: {job.boundary_conditions['Punch']['Draw-2'].u2}")


if __name__ == "__main__":
    main()
