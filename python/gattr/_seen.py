"""What members are in steps, where that comes from, and what is in force: as the session tells it."""

import typing

from ._words import Status


class Value(typing.NamedTuple):
    """A member in a step: how it stands, whether the step itself says it, the step that did, and what an amplitude makes of it at a time."""

    value: object
    standing: 'Literal["unset", "set", "freed", "default"]'
    own: bool
    step: "str | None"
    at: object = None


class StepValues(typing.NamedTuple):
    """An attribute in a step, with the members of which something is said."""

    step: str
    procedure: str
    status: Status
    inForce: bool
    members: "dict[str, Value]"


class Link(typing.NamedTuple):
    """A link of an explanation: the steps that it is of, the step that it names as the cause, what they say of members."""

    kind: str
    steps: "list[str]"
    step: "str | None"
    said: "dict[str, object]"
    sentence: str


class Explanation(typing.NamedTuple):
    """Why an attribute, or a member of it, is in a step what it is."""

    sentence: str
    step: str
    status: Status
    inForce: bool
    links: "list[Link]"
    members: "dict[str, Value]"

    def __str__(self):
        return self.sentence


class MemberInForce(typing.NamedTuple):
    """A member in a step beside the step before; was is the value there of one that is changed or gone."""

    what: 'Literal["new", "changed", "gone", "still"]'
    value: object
    was: object
    own: bool
    step: "str | None"
    at: object = None


class InForce(typing.NamedTuple):
    """An attribute in a step beside the step before, with what it says there and what it is in all steps."""

    step: str
    what: 'Literal["new", "changed", "gone", "still"]'
    kind: str
    name: str
    type: str
    status: Status
    members: "dict[str, MemberInForce]"
    object: "dict[str, object]"


TUPLES = (Value, StepValues, Link, Explanation, MemberInForce, InForce)


def _values(members):
    return {name: Value(**told) for name, told in members.items()}


def shown(told):
    """The steps of an attribute."""
    return [StepValues(**{**step, "status": Status(step["status"]), "members": _values(step["members"])}) for step in told["steps"]]


def explained(told):
    """An explanation; of one member it has no others."""
    links = [Link(link["kind"], link["steps"], link["step"], link.get("said", {}), link["sentence"]) for link in told["links"]]
    return Explanation(
        told["sentence"], told["step"], Status(told["status"]), told["inForce"], links, _values(told.get("members", {}))
    )


def in_force(walk):
    """One after the other, each made when it is asked for."""
    while (told := walk.next()) is not None:
        members = {name: MemberInForce(**{"was": None, **member}) for name, member in told["members"].items()}
        yield InForce(**{**told, "status": Status(told["status"]), "members": members})
