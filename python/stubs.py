"""Writes the stubs of the module: what commands take, by type, from the session's own list. stubs.py FILE"""

import inspect
import re
import sys
import typing

from gattr import _errors, _model, _objects, _seen, _words

HEAD = '''# What the module offers, made of the session's list of commands. A class of objects says more of its members than its kind does.
# mypy: disable-error-code="override,import"
import enum
import os
from collections.abc import Callable, Iterator, Mapping, Sequence
from types import TracebackType
from typing import ContextManager, Generic, Literal, NamedTuple, TypedDict, TypeVar, overload

import gattr as _g
import numpy as _numpy
import numpy.typing as _typing
import pandas as _pandas

_R = TypeVar("_R", covariant=True)
_S = TypeVar("_S", contravariant=True)
_H = TypeVar("_H", bound=Handle)
_Progress = Callable[[int, int], object]
_Path = str | bytes | os.PathLike[str] | os.PathLike[bytes]
_Json = None | bool | int | float | str | Sequence["_Json"] | Mapping[str, "_Json"]

class _Member(Generic[_R, _S]):
    @overload
    def __get__(self, instance: None, owner: type[object]) -> _Member[_R, _S]: ...
    @overload
    def __get__(self, instance: object, owner: type[object]) -> _R: ...
    def __set__(self, instance: object, value: _S) -> None: ...

class Unset(enum.Enum):
    UNSET = "UNSET"

class Freed(enum.Enum):
    FREED = "FREED"

UNSET: Literal[Unset.UNSET]
FREED: Literal[Freed.FREED]

class State:
    @property
    def status(self) -> Status: ...
    @property
    def step(self) -> str: ...
'''

PLAIN = {"integer": "int", "number": "float", "text": "str", "boolean": "bool"}


def literal(texts):
    return "Literal[" + ", ".join(f'"{text}"' for text in texts) + "]"


def split(text):
    """The parts of a union, not those inside brackets."""
    parts, depth, part = [], 0, ""
    for piece in text.split(" | "):
        part = f"{part} | {piece}" if part else piece
        depth += piece.count("[") - piece.count("]")
        if depth == 0:
            parts.append(part)
            part = ""
    return parts


def union(*types):
    """The types one after the other, each once, None last."""
    seen = {part: None for text in types if text for part in split(text)}
    nothing = seen.pop("None", 0) is None
    return " | ".join([*seen, *(["None"] if nothing else [])])


def annotated(kind):
    """An annotation as it is written."""
    return kind if isinstance(kind, str) else kind.__forward_arg__ if isinstance(kind, typing.ForwardRef) else kind.__name__


def tuples():
    """The tuples that the module gives, as their classes declare them."""
    lines = []
    for told in (_model.Outcome, _model.Finding, _model.Conflict, _model.Merged, _words.ObjectChange, _words.StatusChange, _words.Change, _words.MemberDifference, _words.StepDifference,
                 _words.Difference, *_seen.TUPLES):
        lines.append(f"class {told.__name__}(NamedTuple):")
        lines += [f"    {name}: {annotated(kind)}" for name, kind in told.__annotations__.items()]
        lines.append("")
    return lines


def declared(function, indent="", alone=False):
    """A function as it declares itself; what is annotated in no way is not for users."""
    overloads = () if alone else typing.get_overloads(inspect.unwrap(function))
    if overloads:
        return [line for one in overloads for line in [f"{indent}@overload", *declared(one, indent, True)]]
    result = annotated(function.__annotations__.get("return", ""))
    if not result:
        return []
    if inspect.isgeneratorfunction(inspect.unwrap(function)):
        result = result.replace("Iterator", "ContextManager", 1)
    texts, star = [], False
    for known in inspect.signature(function).parameters.values():
        if known.kind is known.KEYWORD_ONLY and not star:
            star = True
            texts.append("*")
        text = known.name if known.annotation is known.empty else f"{known.name}: {annotated(known.annotation)}"
        texts.append(text if known.default is known.empty else f"{text} = {known.default!r}")
    return [f"{indent}def {function.__name__}({', '.join(texts)}) -> {result}: ..."]


def declared_members(of, read_only=False):
    """What a class declares of its own."""
    lines = []
    for name, kind in of.__dict__.get("__annotations__", {}).items():
        lines += ["    @property", f"    def {name}(self) -> {annotated(kind)}: ..."] if read_only else [f"    {name}: {annotated(kind)}"]
    for name, known in vars(of).items():
        if isinstance(known, property) and known.fget.__annotations__:
            lines += ["    @property", *declared(known.fget, "    ")]
        elif inspect.isfunction(known) and known.__name__ == name:  # not under its other names
            lines += declared(known, "    ")
    return lines


def plain_classes():
    """The classes and functions that have nothing to do with what commands there are."""
    lines = []
    for of in (_errors.Error, _errors.Refused, _errors.RefusedValue, _errors.RefusedKey, _errors.Gone, _errors.Busy, _errors.Unreadable):
        bases = ", ".join(base.__name__ for base in of.__bases__)
        lines += [f"class {of.__name__}({bases}):", *(declared_members(of) or ["    pass"]), ""]
    bases = {"Objects": "(Mapping[str, _H])", "Steps": "(Sequence[Step])"}
    for of in (_model.Subscription, _model.DryRun, _model.Objects, _model.Steps, _model.History):
        lines += [f"class {of.__name__}{bases.get(of.__name__, '')}:", *declared_members(of), ""]
    lines += ["class Handle:", *declared_members(_objects.Handle, True), ""]
    lines += ["class _Attribute(Handle):", *declared_members(_objects.Attribute, True), ""]
    return [*lines, *declared(_model.open), *declared(_model.load), *declared(_model.merge), *declared(_model.replay), ""]


def base(argument, given):
    """One value, as it is given or read."""
    if argument.kind == "choice":
        return literal(argument.permissible)
    words = literal(argument.permissible) if argument.permissible else ""
    if argument.refers:
        return union("str", _objects.class_name(argument.refers) if given else "", "" if given and argument.required else "None")
    if argument.kind == "object":
        return union(f"_{argument.class_name}" if argument.class_name else "str", "None")
    return union(PLAIN[argument.kind], words)


def value(argument, given):
    """The type of an argument, or of a member that is read."""
    carried = ("Unset | Freed | None" if given else "Freed | None") if argument.per_step else ""
    one = base(argument, given)
    for _ in range(argument.depth):
        inner = union(one, carried)
        one = f"Sequence[{inner}]" if given else f"list[{inner}]"
    nullable = not argument.required and argument.kind not in ("boolean", "choice") and not argument.of_state
    return union(one, carried, "None" if nullable else "")


def argument_text(known):
    taken = union(*(value(argument, True) for argument in known))
    if known[0].name == "stepName":  # every one of several
        taken = union(taken, "Sequence[str | Step]")
    required = known[0].required
    return f"{known[0].name}: {taken}" + ("" if required else " = ...")


def signature(arguments, positional=()):
    """self and the arguments: those that may stand by position first, the others by name alone."""
    first = [argument_text(known) for name, known in arguments.items() if name in positional]
    named = sorted((known for name, known in arguments.items() if name not in positional), key=lambda known: not known[0].required)
    texts = [argument_text(known) for known in named]
    return ", ".join(["self", *first, *(["*", *texts] if texts else [])])


def members(known_by_name, indent="    "):
    """Members as descriptors: what is read, what may be set."""
    lines = []
    for name, known in known_by_name.items():
        read = union(*(value(argument, False) for argument in known))
        given = union(*(value(argument, True) for argument in known))
        lines.append(f"{indent}{name}: _Member[{read}, {given}]")
    return lines


def methods(infos, kind, makers, name):
    lines = []
    for info in infos:
        arguments = _objects.with_members(info, kind, makers)
        positional = [argument.name for argument in info.arguments if argument.required]
        result = {"copy": name, "report": "str | None"}.get(info.name, "None")
        lines.append(f"    def {info.name}({signature(arguments, positional)}) -> {result}: ...")
    return lines


def state_class(name, state):
    return [f"class {name}(State):", *members(state), ""] if state else []


def setter(own, state):
    """The method set, with what may be given."""
    if not state:
        return [f"    def set({signature(own)}) -> None: ..."]
    both = {**own}
    for name, known in state.items():
        both[name] = both.get(name, []) + known
    given = signature(both).removeprefix("self")
    carried = signature(state).removeprefix("self")
    return [
        "    @overload",
        f"    def set(self, stepName: str | Step | Sequence[str | Step], /{carried}) -> None: ...",
        "    @overload",
        f"    def set(self{given}) -> None: ...",
    ]


def handle_classes():
    lines = []
    for kind in _objects.kinds:
        makers = [info for info in _objects.constructions() if info.makes == kind]
        own, state = _objects.members_of(kind, makers)
        name = _objects.class_name(kind)
        lines += state_class(f"_{name}State", state)
        lines.append(f"class {name}({'_Attribute' if state else 'Handle'}):")
        lines += members(own)
        if state:
            lines.append(f"    def __getitem__(self, step: str | Step) -> _{name}State: ...")
        lines += setter(own, state)
        lines += methods(_objects.object_commands(kind), kind, makers, name)
        lines.append("")
        for known, info in _objects.of_class(kind).items():
            if info.name == name:
                continue
            own, state = _objects.members_of(kind, [info])
            lines += state_class(f"_{info.name}State", state)
            lines.append(f"class {info.name}({name}):")
            if state:
                lines.append(f"    def __getitem__(self, step: str | Step) -> _{info.name}State: ...")
            lines += setter(own, state)
            with_members = [command for command in _objects.object_commands(kind) if command.members and command.members != "procedure"]
            copies = [command for command in _objects.object_commands(kind) if command.name == "copy"]
            lines += methods(with_members, kind, [info], info.name)
            lines += methods(copies, kind, [info], info.name)
            lines += methods([more for more in _objects.commands if more.only_class == known], kind, [info], info.name)
            lines.append("")
    return lines


def made_by(info):
    known = _objects.of_class(info.makes).get(info.class_name)
    return known.name if known is not None and known.name == info.name else _objects.class_name(info.makes)


def value_classes():
    lines = []
    for one in _objects._gattr.classes():
        lines.append(f"class _{one.name}(TypedDict, total=False):")
        lines += [f"    {member.name}: {value(member, True)}" for member in one.members] or ["    pass"]
        lines.append("")
    return lines


def model():
    lines = ["class Model:", *declared_members(_model.Model, True)]
    for name, number in _objects.mappings.items():
        if number:
            lines += ["    @property", f"    def {name}(self) -> Objects[{_objects.class_name(_objects.kinds[number])}]: ..."]
    for info in [*_objects.constructions(), *_objects.session_commands()]:
        arguments = {argument.name: [argument] for argument in info.arguments}
        result = made_by(info) if info.makes else "None"
        lines.append(f"    def {info.name}({signature(arguments)}) -> {result}: ...")
    names = "|".join(_class.__name__ for _class in _objects.handles)
    return [outside(line, names) for line in lines]


def outside(line, names):
    """A line of the class Model, in which commands have the names of classes."""
    return re.sub(rf'(?<!def )(?<!["._])\b({names})\b(?!["(])', r"_g.\1", line)


def status():
    return ["class Status(enum.IntEnum):", *(f"    {text} = {number}" for number, text in enumerate(_objects._gattr.statuses())), ""]


with open(sys.argv[1], "w", encoding="utf-8") as file:
    file.write("\n".join([HEAD, *tuples(), *plain_classes(), *status(), *value_classes(), *handle_classes(), *model()]) + "\n")
