"""One model of a finite-element analysis: its steps, and all that depends on their sequence.

Everything is edited by commands, so everything is checked, journaled and can be undone::

    m = gattr.Model()
    m.StaticStep(name="Press", initialInc=0.1)
    m.Set(name="Top")
    bc = m.DisplacementBC(name="Punch", createStepName="Press", region="Top", u2=-10.0)
    bc["Press"].u2 = -12.0
    m.undo()
"""

from ._words import FREED, UNSET, Change, Difference, Freed, MemberDifference, ObjectChange, Status, StatusChange, StepDifference, Unset
from ._errors import Busy, Error, Gone, Refused, RefusedKey, RefusedValue, Unreadable
from ._model import Conflict, DryRun, Finding, History, Merged, Model, Objects, Outcome, State, Steps, Subscription, load, merge, open, replay
from ._objects import Handle, handles as _handles
from ._seen import Explanation, InForce, Link, MemberInForce, StepValues, Value

globals().update({_class.__name__: _class for _class in _handles})

__all__ = [
    "Busy", "Change", "Conflict", "Difference", "DryRun", "Error", "Explanation", "FREED", "Finding", "Freed", "Gone", "Handle",
    "History", "InForce", "Link", "MemberDifference", "MemberInForce", "Merged", "Model", "ObjectChange", "Objects", "Outcome", "Refused",
    "RefusedKey", "RefusedValue", "State", "Status", "StatusChange", "StepDifference", "StepValues", "Steps", "Subscription", "UNSET",
    "Unreadable", "Unset", "Value", "load", "merge", "open", "replay",
] + [_class.__name__ for _class in _handles]
