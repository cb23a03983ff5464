"""What the module raises."""

import difflib


class Error(Exception):
    """All that the module raises of its own."""


class Refused(Error):
    """A command that was refused. The model is as it was."""

    module: "str | None"
    code: "int | None"
    text: str
    object: "str | None"
    step: "str | None"
    member: "str | None"
    hint: "str | None"

    def __init__(self, message, module=None, code=None, text="", object=None, step=None, member=None, hint=None):
        super().__init__(message)
        self.module = module
        self.code = code
        self.text = text
        self.object = object
        self.step = step
        self.member = member
        self.hint = hint

    def __str__(self):
        return self.args[0]

    def __reduce__(self):
        return type(self), (self.args[0], self.module, self.code, self.text, self.object, self.step, self.member, self.hint)


class RefusedValue(Refused, ValueError):
    """A command that was refused for a value."""


class RefusedKey(Refused, KeyError):
    """A command that was refused for a name that nothing bears."""


class Gone(Error, LookupError):
    """The object of a handle is no more."""


class Busy(Error, RuntimeError):
    """The model is in use by another call."""


class Unreadable(Error, OSError):
    """A model or a journal that cannot be read or written. The text names the file and what was expected."""


def refused(message, exception, module, code, text, object, step, member, hint):
    """The refusal as its class."""
    kind = {"omu_ValueErrorException": RefusedValue, "omu_KeyErrorException": RefusedKey}.get(exception, Refused)
    return kind(message, module or None, None if code < 0 else code, text, object or None, step or None, member or None, hint or None)


def no_attribute(object, name):
    """What is raised where a handle has no such attribute."""
    text = f"{type(object).__name__} has no attribute {name!r}"
    if hasattr(type(object), name):
        return AttributeError(f"{name!r} of {type(object).__name__} cannot be set", name=name, obj=object)
    if not name.startswith("_"):
        near = difflib.get_close_matches(name, [known for known in dir(object) if not known.startswith("_")], 1)
        text += f"; did you mean {near[0]!r}?" if near else ""
    return AttributeError(text, name=name, obj=object)
