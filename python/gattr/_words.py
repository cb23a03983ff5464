"""What values may be beside themselves, and what attributes do in steps."""

import enum
import typing

from . import _gattr


class Unset(enum.Enum):
    """Nothing is said: None sets the same."""

    UNSET = "UNSET"

    def __repr__(self):
        return "gattr.UNSET"

    __str__ = __repr__


class Freed(enum.Enum):
    """What earlier steps say is given up from this one on."""

    FREED = "FREED"

    def __repr__(self):
        return "gattr.FREED"

    __str__ = __repr__


UNSET = Unset.UNSET
FREED = Freed.FREED
Status = enum.IntEnum("Status", [(text, number) for number, text in enumerate(_gattr.statuses())], module="gattr")
Status.__doc__ = "What an attribute does in a step, by number."


class ObjectChange(typing.NamedTuple):
    """What has become of one object: "created", "changed", "renamed" or "deleted"."""

    change: 'Literal["created", "changed", "renamed", "deleted"]'
    kind: str
    name: str
    before: "str | None"
    steps: "list[str]"


class StatusChange(typing.NamedTuple):
    """A run of steps in which an attribute does something else than before; None where there is no such step."""

    kind: str
    name: str
    firstStep: str
    lastStep: str
    before: "Status | None"
    after: "Status | None"


class Change(typing.NamedTuple):
    """What one whole edit has changed; its cause is "command", "undo", "redo", or "switch" to another branch."""

    cause: 'Literal["command", "undo", "redo", "switch"]'
    label: str
    objects: "list[ObjectChange]"


class MemberDifference(typing.NamedTuple):
    """A member in which two models differ; None where one says nothing."""

    member: str
    before: "_Json"
    now: "_Json"


class StepDifference(typing.NamedTuple):
    """In what two models differ in a step of an attribute; movedFrom is the step that said all this before."""

    step: str
    before: 'Literal["nothing", "values", "creation", "creation off", "off"]'
    now: 'Literal["nothing", "values", "creation", "creation off", "off"]'
    movedFrom: "str | None"
    members: "list[MemberDifference]"


class Difference(typing.NamedTuple):
    """In what two models differ in an object."""

    change: 'Literal["created", "changed", "renamed", "deleted"]'
    kind: str
    name: str
    nameBefore: "str | None"
    typeBefore: "str | None"
    type: "str | None"
    previous: "str | None"
    members: "list[MemberDifference]"
    steps: "list[StepDifference]"
