"""Models, their tables and their files. What is annotated is what the stubs say."""

from __future__ import annotations

import collections.abc
import contextlib
import html
import os
import typing
import weakref
from collections.abc import Callable, Iterator, Mapping, Sequence
from types import TracebackType

from . import _gattr, _objects, _seen
from ._gattr import State
from ._words import Difference, MemberDifference, ObjectChange, Status, StatusChange, StepDifference


class Outcome(typing.NamedTuple):
    """What became of a command."""

    changed: bool
    message: str
    history: dict[str, list[Status]]
    report: str
    changes: list[ObjectChange]
    statuses: list[StatusChange]


class Finding(typing.NamedTuple):
    """Something that a person should know of a model."""

    id: str
    severity: str
    kind: str
    name: str
    step: str
    member: str
    module: str
    code: int
    text: str
    detail: str
    hint: str
    suppressed: bool


class Conflict(typing.NamedTuple):
    """What two people have made of a model and cannot both have; its text tells all of it."""

    kind: str
    name: str
    step: str
    member: str
    base: _Json
    ours: _Json
    theirs: _Json
    text: str


class Merged(typing.NamedTuple):
    """What two people have made of a model: where there are conflicts the model is ours; findings are warnings that neither had."""

    model: Model
    conflicts: list[Conflict]
    findings: list[Finding]


class Objects(collections.abc.Mapping):
    """The objects of a kind by name."""

    __slots__ = ("_model", "_kind")

    def __init__(self, model, kind):
        self._model, self._kind = model, kind

    def __getitem__(self, name: str) -> _H:
        if not self._model._has(self._kind, name):
            raise KeyError(name)
        return self._model._handle(self._kind, name)

    def __contains__(self, name):
        return self._model._has(self._kind, name)

    def __iter__(self) -> Iterator[str]:
        return iter(self._model._names(self._kind))

    def __len__(self) -> int:
        return len(self._model._names(self._kind))

    def __repr__(self):
        return f"<{len(self)} {_objects.mappings_by_number[self._kind]}>"


class Steps(Objects, collections.abc.Sequence):
    """The steps in their order: by name, or by position; iterating gives their handles."""

    __slots__ = ()

    @typing.overload
    def __getitem__(self, key: str) -> Step: ...
    @typing.overload
    def __getitem__(self, key: int) -> Step: ...
    @typing.overload
    def __getitem__(self, key: slice) -> list[Step]: ...
    def __getitem__(self, key):
        if isinstance(key, str):
            return super().__getitem__(key)
        names = self._model._names(self._kind)
        if isinstance(key, slice):
            return [self._model._handle(self._kind, name) for name in names[key]]
        return self._model._handle(self._kind, names[key])

    def __contains__(self, step):
        return super().__contains__(step) if isinstance(step, str) else step in list(self)

    def __iter__(self):
        return iter([self._model._handle(self._kind, name) for name in self._model._names(self._kind)])

    def __reversed__(self):
        return reversed(list(self))

    def __len__(self) -> int:
        return super().__len__()

    def keys(self) -> list[str]:
        """The names in their order."""
        return self._model._names(self._kind)

    def values(self) -> list[Step]:
        """The handles in their order."""
        return list(self)

    def items(self) -> list[tuple[str, Step]]:
        """Names and handles in their order."""
        return list(zip(self.keys(), self))

    def index(self, step, start=0, stop=None):
        """The position of a step, which may be a name."""
        name = step if isinstance(step, str) else step.name
        names = self.keys()
        return names.index(name, start, len(names) if stop is None else stop)

    def count(self, step):
        """One where there is the step."""
        return int(step in self)

    __eq__ = object.__eq__
    __hash__ = object.__hash__


class History:
    """The statuses of all attributes in all steps, at one time."""

    __slots__ = ("_table",)

    def __init__(self, table):
        self._table = table

    @property
    def shape(self) -> tuple[int, int]:
        """The number of attributes and that of steps."""
        return self._table.shape

    @property
    def steps(self) -> list[str]:
        """The names of the steps, a column each."""
        return self._table.steps

    @property
    def attributes(self) -> list[tuple[str, str]]:
        """Kind and name of the attributes, a row each."""
        return self._table.attributes

    def __len__(self) -> int:
        return self._table.shape[0]

    def numpy(self) -> _typing.NDArray[_numpy.uint8]:
        """The statuses by number: an array of uint8, a row for each attribute, a column for each step."""
        import numpy

        statuses = numpy.empty(self._table.shape, numpy.uint8)
        self._table._fill(statuses)
        return statuses

    def values(self, member: str) -> _typing.NDArray[_numpy.float64]:
        """The values of a member that are in force, as float64 in the same places; NaN where there is none."""
        import numpy

        if member not in _objects.state_members:
            raise ValueError(f"no attribute says {member!r} in steps")
        values = numpy.empty(self._table.shape, numpy.float64)
        self._table._fill_values(member, values)
        return values

    def frame(self, member: str | None = None) -> _pandas.DataFrame:
        """A frame of the statuses, or of the values of a member, by kind and name of the attribute and by step."""
        import pandas

        values = self.numpy() if member is None else self.values(member)
        rows = pandas.MultiIndex.from_tuples(self.attributes, names=["kind", "name"])
        return pandas.DataFrame(values, index=rows, columns=pandas.Index(self.steps, name="step"))

    def __str__(self):
        return str(self._table)

    def __repr__(self):
        rows, columns = self.shape
        return f"<History of {rows} attributes in {columns} steps>"

    def _repr_html_(self) -> str:
        page = html.escape(self._table.html())
        return f'<iframe srcdoc="{page}" style="width: 100%; height: {min(60 + 28 * len(self), 600)}px; border: none"></iframe>'


class Subscription:
    """Keeps a callback; ends with end(), or with the model."""

    __slots__ = ("_model", "_callback", "_token", "__weakref__")

    def __init__(self, model, callback):
        self._model, self._callback = model, callback
        here = weakref.ref(self)  # the collector does not see what the session holds
        self._token = model._on_change(lambda change: here()._callback(change))

    def end(self) -> None:
        """The callback is told nothing more."""
        self._token.end()
        self._model._subscriptions.discard(self)


class DryRun:
    """What edits would have come to; filled when the block ends."""

    __slots__ = ("history", "findings", "changes", "statuses")
    history: History
    findings: list[Finding]
    changes: list[ObjectChange]
    statuses: list[StatusChange]

    def __init__(self):
        self.history, self.findings, self.changes, self.statuses = None, [], [], []


class Model(_gattr.Model):
    """A model under edit. Its methods and those of its handles are the session's commands."""

    __slots__ = ("_subscriptions",)
    # what the compiled part has
    path: str | None
    name: str
    space: str
    journal: list[dict[str, _Json]]

    def __init__(self) -> None:
        super().__init__()
        self._subscriptions = set()

    @property
    def steps(self) -> Steps:
        """The steps in their order, by name or by position."""
        return Steps(self, 0)

    def execute(self, command: Mapping[str, _Json | Unset | Freed | Handle]) -> Outcome:
        """Runs a command as a journal has it: {"command": "deactivate", "boundaryCondition": "Fix", "stepName": "Step-2"}."""
        changed, message, history, report, effects = self._execute(command)
        return Outcome(changed, message, history, report, *effects)

    def save(self, path: _Path | None = None, *, overwrite: bool = False, progress: _Progress | None = None) -> None:
        """Saves the model (.gadb, .gattr.json), by default where it was opened or saved last."""
        path = path if path is not None else self.path
        if path is None:
            raise ValueError("the model was not opened or saved before: a path is expected")
        self._save(_path(path), overwrite, progress)

    def dump(self) -> str:
        """The model as text, from which gattr.load makes an equal one."""
        return self._dump()

    def history(self) -> History:
        """The statuses of all attributes in all steps as they are now."""
        return History(self._history())

    def check(self, *, disable: Sequence[str] = (), only: Sequence[str] = (), progress: _Progress | None = None) -> list[Finding]:
        """What stands in the way of solving the model, and what is allowed and hardly meant.

        disable leaves warnings and notes out by their identifiers, only tells nothing else: check(disable=["GA017"])."""
        return [Finding(*told) for told in self._check(progress, disable, only)]

    def report(self, path: _Path, *, progress: _Progress | None = None) -> None:
        """Writes the model as a page for a browser: histories, values, plots, steps, findings."""
        self._report(_path(path), progress)

    def attribute(self, name: str) -> _Attribute:
        """The attribute of that name; "load:Push" where two kinds have the name."""
        return self._attribute(name)

    def inforce(self, step: str | Step | None = None, *, still: bool = True, at: float | None = None) -> Iterator[InForce]:
        """Goes over what is new, changed, gone and still in force, step by step or in one step, in the model as it is now."""
        return _seen.in_force(self._in_force(step if step is None or isinstance(step, str) else step.name, still, at))

    @contextlib.contextmanager
    def transaction(self) -> Iterator[None]:
        """What the block does is one edit, to be undone as one; where it raises, nothing of it is done."""
        self._begin()
        try:
            yield
        except BaseException:
            self._rollback()
            raise
        self._commit()

    @contextlib.contextmanager
    def dry_run(self) -> Iterator[DryRun]:
        """Takes back all that the block does, and tells what it came to: histories, findings, objects and statuses that changed."""
        told = DryRun()
        self._begin()
        try:
            yield told
            told.history, told.findings = self.history(), self.check()
            told.changes, told.statuses = self._effects()
        finally:
            self._rollback()

    def on_change(self, callback: Callable[[Change], object]) -> Subscription:
        """Has callback(change) called after every whole edit, undo and redo, once for a transaction, not for what is refused or tried.

        It may read the model and edit it; what it raises passes to the caller of the edit, which stays done."""
        subscription = Subscription(self, callback)
        self._subscriptions.add(subscription)
        return subscription

    def branch(self, name: str) -> None:
        """Begins another version of the model and goes on in it, with its own undo and journal; the first one is called "main"."""
        self._branch(name)

    def switch(self, name: str) -> None:
        """Goes on in another branch."""
        self._switch(name)

    def delete_branch(self, name: str) -> None:
        """Forgets a branch, which is not the one that is worked in."""
        self._delete_branch(name)

    def branches(self) -> list[str]:
        """The names of all branches."""
        return self._branches()[0]

    @property
    def current_branch(self) -> str:
        """The branch that is worked in."""
        return self._branches()[1]

    def compare(self, name: str, other: str | None = None) -> list[Difference]:
        """What a branch says that another one does not; with one name what the present branch says that this one does not."""
        return _differences(self._compare(self.current_branch, name) if other is None else self._compare(name, other))

    def differences(self, other: Model) -> list[Difference]:
        """What another model says that this one does not, by object, step and member."""
        return _differences(self._differences(other))

    def copy(self) -> Model:
        """Another model, equal to this one. Costs next to nothing; has no undo and no journal of its own yet."""
        copied = type(self)()
        copied._copy(self)
        return copied

    __copy__ = copy

    def __deepcopy__(self, memo):
        return self.copy()

    def __reduce__(self):
        return load, (self.dump(),)

    def __enter__(self) -> Model:
        if self.path is None:
            raise ValueError("the model has no path to be saved to: open or save it first")
        return self

    def __exit__(self, kind: type[BaseException] | None, value: BaseException | None, traceback: TracebackType | None) -> None:
        if kind is None:
            self.save()

    def __repr__(self):
        return f"<Model {self.name!r} of {len(self.steps)} steps>"


def _differences(told):
    def members(of):
        return [MemberDifference(*one) for one in of]

    return [
        Difference(*whole, members(own), [StepDifference(*step, members(said)) for *step, said in steps]) for *whole, own, steps in told
    ]


def _path(path):
    return os.fsencode(path)


def open(path: _Path, *, progress: _Progress | None = None) -> Model:
    """Opens a model (.gadb, .gattr.json). As a context it is saved when the block ends without an exception."""
    model = Model()
    model._open(_path(path), progress)
    return model


def load(text: str) -> Model:
    """The model that a text says, which dump gave."""
    model = Model()
    model._load(text)
    return model


def merge(base: Model, ours: Model, theirs: Model) -> Merged:
    """Makes of base what ours and theirs have both made of it: of each object, step and member what one of them says."""
    model = Model()
    conflicts, findings = model._merge(base, ours, theirs)
    return Merged(model, [Conflict(*told) for told in conflicts], [Finding(*told) for told in findings])


def replay(path: _Path, *, progress: _Progress | None = None) -> Model:
    """Runs a journal on an empty model."""
    model = Model()
    model._replay(_path(path), progress)
    return model


def _mapping(number):
    def objects(self):
        return Objects(self, number)

    objects.__doc__ = f"The objects by name that commands call {_objects.kinds[number]}."
    return property(objects)


def _complete():
    made = {name: _mapping(number) for name, number in _objects.mappings.items() if number}
    made.update({info.name: _objects.construction(info) for info in _objects.constructions()})
    made.update({info.name: _objects.session_command(info) for info in _objects.session_commands()})
    for name, attribute in made.items():
        if hasattr(Model, name):
            raise ImportError(f"the command {name!r} hides a method of Model")
        setattr(Model, name, attribute)


_objects.mappings_by_number = {number: name for name, number in _objects.mappings.items()}
_complete()
