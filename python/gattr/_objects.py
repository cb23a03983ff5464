"""The methods of models and the classes of handles, made of the session's own list of commands."""

from __future__ import annotations

import inspect

from . import _errors, _gattr, _seen
from ._words import FREED, UNSET, Change, ObjectChange, Status, StatusChange

commands = _gattr.commands()
kinds = [kind.kind for kind in _gattr.kinds()]
mappings = {}  # name of the model's property: number of the kind


def snake(name):
    """boundary_conditions of boundaryConditions"""
    return "".join("_" + letter.lower() if letter.isupper() else letter for letter in name)


# the commands that set members, of the object and in a step
SET = next(info.name for info in commands if info.members == "all")
SET_IN_STEP = next(info.name for info in commands if info.members == "state")

for _number, _kind in enumerate(_gattr.kinds()):
    mappings[snake(_kind.member)] = _number


def class_name(kind):
    """BoundaryCondition of boundaryCondition"""
    return kind[0].upper() + kind[1:]


# ---- what a method takes

_KEYWORD, _EITHER = inspect.Parameter.KEYWORD_ONLY, inspect.Parameter.POSITIONAL_OR_KEYWORD


def told(argument):
    """A line of help."""
    line = f"    {argument.name}: {argument.meaning}"
    notes = [argument.type, "per step" if argument.per_step else "", argument.unit]
    if argument.permissible:
        notes.append(", ".join(argument.permissible))
    return f"{line} ({'; '.join(note for note in notes if note)})"


def documented(function, name, meaning, arguments, self_of, positional=()):
    """Gives a method the name, the help and the signature of its command."""
    function.__name__ = name
    function.__qualname__ = f"{self_of}.{name}"
    lines = [meaning[0].upper() + meaning[1:] + "."]
    if arguments:
        lines += ["", *(told(argument) for argument in arguments)]
    function.__doc__ = "\n".join(lines)
    parameters = [inspect.Parameter("self", inspect.Parameter.POSITIONAL_ONLY)]
    empty = inspect.Parameter.empty
    for argument in sorted(arguments, key=lambda one: one.name not in positional):
        first = argument.name in positional
        parameters.append(
            inspect.Parameter(argument.name, _EITHER if first else _KEYWORD, default=empty if argument.required else argument.preset)
        )
    function.__signature__ = inspect.Signature(parameters)
    return function


def constructions():
    """The commands that make an object."""
    return [info for info in commands if info.makes]


CONTEXTS = ("transaction",)  # a block of commands: `with m.transaction():`


def session_commands():
    """The commands on the model itself that are methods."""
    return [info for info in commands if not info.makes and not info.kinds and info.name not in CONTEXTS]


def object_commands(kind):
    """The commands on objects of the kind that all of them know."""
    return [info for info in commands if kind in info.kinds and not info.only_class]


def of_class(kind):
    """The constructions of a kind by the class that they make, where one alone does."""
    made = {}
    for info in constructions():
        if info.makes == kind and info.class_name:
            made.setdefault(info.class_name, []).append(info)
    return {name: infos[0] for name, infos in made.items() if len(infos) == 1}


def members_of(kind, infos=None):
    """The members of the objects that the constructions make, each once, and those of their states."""
    own, state = {}, {}
    for info in infos if infos is not None else constructions():
        if info.makes != kind:
            continue
        for argument in info.arguments:
            if argument.of_object or argument.of_state:
                (state if argument.of_state else own).setdefault(argument.name, []).append(argument)
    return own, state


state_members = frozenset(name for kind in kinds for name in members_of(kind)[1])


def with_members(info, kind, infos=None):
    """The arguments of a command on objects of the kind, and the members of the object that are arguments too."""
    arguments = {argument.name: [argument] for argument in info.arguments if argument.name != "previous" or kind == "step"}
    if info.members:
        own, state = members_of(kind, infos)
        for name, known in {**(own if info.members != "state" else {}), **state}.items():
            arguments.setdefault(name, []).extend(known)
    return arguments


def construction(info):
    """The method of a model that is a construction command."""
    command, kind = info.name, kinds.index(info.makes)
    carried = frozenset(argument.name for argument in info.arguments if argument.per_step)

    def make(self, *, name, **arguments):
        return self._make(command, kind, name, arguments, carried)

    return documented(make, command, info.meaning, info.arguments, "Model")


def session_command(info):
    """The method of a model that is a command on the model itself."""
    command = info.name

    def run(self, **arguments):
        arguments["command"] = command
        self._execute(arguments)

    return documented(run, command, info.meaning, info.arguments, "Model")


def method(info, owner, kind):
    """The method of a handle that is a command on its object."""
    command = info.name
    names = tuple(argument.name for argument in info.arguments if argument.required)
    copies = command == "copy"

    def run(self, *positional, **arguments):
        if positional:
            if len(positional) > len(names):
                raise TypeError(f"{command}() takes at most {len(names)} positional arguments")
            for name, value in zip(names, positional):
                if name in arguments:
                    raise TypeError(f"{command}() got two values for {name!r}")
                arguments[name] = value
        told = self._do(command, arguments)
        return self._again(arguments["newName"]) if copies else told or None

    arguments = [known[0] for known in with_members(info, kind).values()]
    return documented(run, command, info.meaning, arguments, owner, names)


class Handle(_gattr.Handle):
    """An object of a model, by its name: follows when it is renamed and when that is undone."""

    __slots__ = ()
    # what the compiled part has
    name: str
    model: Model
    exists: bool
    kind: str

    def set(self, **members):
        """Sets members of the object; of an attribute, its own and those of its create step."""
        self._do(SET, members)

    def __repr__(self):
        return f"<{type(self).__name__} {self.name!r}>"

    def __dir__(self):
        return [*super().__dir__(), *(self._members(False) if self.exists else ())]


class Attribute(Handle):
    """An object whose values depend on the steps."""

    __slots__ = ()

    __getitem__ = _gattr.Handle._in

    def __iter__(self):
        raise TypeError(f"{type(self).__name__} is not iterable; history() tells of all steps")

    def set(self, stepName=None, /, **members):
        """Sets members from a step on; without one the object's own and those of its create step."""
        if stepName is None:
            self._do(SET, members)
        else:
            self._do(SET_IN_STEP, {"stepName": stepName, **members})

    def history(self) -> list[Status]:
        """What it does in each step, in their order."""
        return self._statuses()

    def show(self, *, at: float | None = None) -> list[StepValues]:
        """What its members are in each step, and which step said so; at a time after the beginning of each step, too."""
        return _seen.shown(self._show(at))

    def explain(self, stepName: str | Step, member: str | None = None) -> Explanation:
        """Why it, or a member of it, is in a step what it is."""
        return _seen.explained(self._explain(stepName if isinstance(stepName, str) else stepName.name, member or ""))

    @property
    def command(self) -> str:
        """The command that makes such an attribute."""
        return self._command()

    @property
    def suppressed(self) -> bool:
        """Whether it is taken out of the analysis as a whole."""
        return self._suppressed()


def _members_doc(kind, infos):
    own, state = members_of(kind, infos)
    lines = []
    for title, members in (("Its members:", own), ("What it says in a step:", state)):
        if members:
            lines += ["", title, "", *(told(known[0]) for known in members.values())]
    return lines


def _classes():
    """The classes of handles: one per kind, and one per class of objects."""
    made, table = [], {}
    for number, kind in enumerate(kinds):
        infos = [info for info in constructions() if info.makes == kind]
        has_steps = any(argument.of_state for info in infos for argument in info.arguments)
        name = class_name(kind)
        body = {"__slots__": (), "__module__": "gattr"}
        body["__doc__"] = "\n".join([f"A {kind} of a model.", *_members_doc(kind, infos if len(infos) == 1 else [])])
        for info in object_commands(kind):
            body[info.name] = method(info, name, kind)
        base = type(name, (Attribute if has_steps else Handle,), body)
        made.append(base)
        table[kind] = base
        for known, info in of_class(kind).items():
            own = {"__slots__": (), "__module__": "gattr", "__doc__": "\n".join([f"What {info.name} makes.", *_members_doc(kind, [info])])}
            for more in commands:
                if more.only_class == known:
                    own[more.name] = method(more, info.name, kind)
            if info.name == name:  # the only class of its kind
                table[kind, known] = base
                continue
            made.append(type(info.name, (base,), own))
            table[kind, known] = made[-1]
    return made, table


handles, _table = _classes()
_gattr.define({
    "unset": UNSET,
    "freed": FREED,
    "status": Status,
    "handles": _table,
    "refused": _errors.refused,
    "gone": _errors.Gone,
    "busy": _errors.Busy,
    "unreadable": _errors.Unreadable,
    "no_attribute": _errors.no_attribute,
    "change": Change,
    "object_change": ObjectChange,
    "status_change": StatusChange,
})
