"""What the tests of the module share."""

import os
import pathlib

import gattr

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ["GATTR_BUILD"])


def forming():
    """Two steps, and a punch that is pressed down in the first and further in the second."""
    model = gattr.Model()
    model.StaticStep(name="Press", initialInc=0.1)
    model.StaticStep(name="Form", initialInc=0.1)
    model.Set(name="Top")
    punch = model.DisplacementBC(name="Punch", createStepName="Press", region="Top", u1=0, u2=-10.0)
    punch["Form"].u2 = -12
    return model, punch
