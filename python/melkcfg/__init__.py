"""Asks the configuration of the vehicle-architecture checks what a check can ask it.

>>> import melkcfg
>>> directory = melkcfg.open("configuration")
>>> offset = directory.UFCurb["EU Passenger Car"]["suv"].FrontOffset
>>> offset
<Value definition.FrontOffset = 180mm from Default/OVA/UFCurb.xml:37:40>
>>> offset.number, offset.unit, offset.si, offset.si_unit
(180.0, 'mm', 0.18, 'm')

A configuration has the standards of its files as items, a standard its categories, and a category answers the main query
of the configuration. Every other query is a method: ``directory.EyeEllipses.GetRadii2002(standard="S",
hPointTravel="250mm", cutoff=95)``. ``help(directory.EyeEllipses.GetRadii2002)`` tells arguments, outputs and units.

Files are read at the first question and stay in memory until :meth:`Directory.reload`. The module is for one thread.
"""

from __future__ import annotations

import os
from collections.abc import Iterable
from dataclasses import dataclass

from . import _melkcfg
from ._melkcfg import FileError

__all__ = ["Answer", "Configuration", "Directory", "FileError", "Finding", "Origin", "Record", "Standard", "Value", "open"]

_DESCRIPTIONS = {description["name"]: description for description in _melkcfg.configurations()}


def open(directory: str | os.PathLike[str]) -> Directory:  # noqa: A001 - melkcfg.open reads like the built-in one
    """Opens a configuration directory: the one that holds the folders "Default" and "Customer".

    Raises FileNotFoundError or NotADirectoryError when it is not there.
    """
    path = os.fspath(directory)
    if not os.path.exists(path):
        raise FileNotFoundError(f"the configuration directory {path} does not exist")
    if not os.path.isdir(path):
        raise NotADirectoryError(f"{path} is no directory")
    return Directory(path)


@dataclass(frozen=True)
class Origin:
    """A place in the files that decides a value.

    role: "value" (the text that the value is made of), "choice" (a text that chooses it) or "hidden" (a text that would
    count if another did not stand before it). how: the rule that brought it there, in words in "why". file: below the
    directory; empty without a place. line, column: of the text's first character, from 1. text: as written.
    """

    role: str
    how: str
    why: str
    file: str
    line: int
    column: int
    path: str
    attribute: str
    text: str

    def __str__(self) -> str:
        return f"{self.file}:{self.line}:{self.column}" if self.file else self.why


@dataclass(frozen=True)
class Finding:
    """Something that is wrong with a file.

    rule: its name, of which ``melkcfg rule NAME`` tells more. level: "error", "warning" or "note". line, column: from 1;
    end_line, end_column: behind the last character. suggestion: what was probably meant. effect: what the checks get now.
    """

    rule: str
    level: str
    file: str
    line: int
    column: int
    end_line: int
    end_column: int
    message: str
    suggestion: str
    effect: str

    def __str__(self) -> str:
        return f"{self.file}:{self.line}:{self.column}: {self.level}: {self.message} [{self.rule}]"


class Value:
    """One value of an answer.

    It compares and hashes as what it is in Python (``raw``), and ``float(value)`` is its number.
    """

    __slots__ = ("_answer", "field", "raw", "number", "unit", "si", "si_unit")

    field: str
    """Its name in the answer: "definition.FrontOffset"."""
    raw: object
    """A text ("180mm"), flag, number or integer, as the checks get it; None for nothing."""
    number: float | None
    """Its number in "unit"; None for what is no number."""
    unit: str
    """The unit of "number", empty for none. Of a text, the one that is written in it."""
    si: float | None
    """The number in "si_unit", to compare what is written in several units."""
    si_unit: str
    """"m" of lengths, "rad" of angles, "1" of fractions and percentages, empty for numbers without a unit."""

    def __init__(self, answer: Answer, field: str, raw: object):
        self._answer = answer
        self.field = field
        self.raw = raw
        self.number, self.unit, self.si, self.si_unit = _measured(raw, answer._units.get(field, ""))

    @property
    def origins(self) -> tuple[Origin, ...]:
        """The places that decide it, the deciding one first, then what it hides. The files are read anew for this."""
        return self._answer._places().get(self.field, ())

    @property
    def origin(self) -> Origin | None:
        """The text that it is made of, or the rule that made it where no file has one; None when that is not known."""
        return _deciding(self.origins)

    def __float__(self) -> float:
        if self.number is None:
            raise TypeError(f"{self.field} is no number: {self.raw!r}")
        return self.number

    def __bool__(self) -> bool:
        return bool(self.raw)

    def __str__(self) -> str:
        return str(self.raw)

    def __eq__(self, other: object) -> bool:
        return self.raw == (other.raw if isinstance(other, Value) else other)

    def __hash__(self) -> int:
        return hash(self.raw)

    def __repr__(self) -> str:
        return f"<Value {self.field} = {self.raw} from {self.origin}>"


class Record:
    """A record of an answer: its fields are attributes, and ``dir(record)`` lists them."""

    def __init__(self, answer: Answer, field: str, fields: dict):
        self._answer = answer
        self._field = field
        self._fields = fields

    def __getattr__(self, name: str):
        if name.startswith("_"):
            raise AttributeError(name)
        if name not in self._fields:
            raise AttributeError(f"{self._field} has no field {name}" + _did_you_mean(name, self._fields))
        return _wrap(self._answer, f"{self._field}.{name}", self._fields[name])

    def __dir__(self):
        return [*super().__dir__(), *self._fields]

    def __iter__(self):
        """The names of the fields."""
        return iter(self._fields)

    def to_dict(self) -> dict:
        """The fields as plain Python."""
        return self._fields

    def __repr__(self) -> str:
        return f"<{self._field} {self._fields}>"


class Answer:
    """What a query answered: its outputs are attributes. Those of an only record can be read without its name."""

    def __init__(self, directory: Directory, configuration: str, operation: str, arguments: dict):
        self._directory = directory
        self._question = (configuration, operation, arguments)
        self.arguments = arguments
        result, self._outputs, self._units = directory._asked.ask(*self._question)
        self._result = result
        self._origins: dict[str, tuple[Origin, ...]] | None = None

    @property
    def result(self):
        """A flag (whether it was answered), a number or a text with its origin; None of a query without a result."""
        return self._result if isinstance(self._result, (bool, type(None))) else _wrap(self, "result", self._result)

    @property
    def reason(self) -> str:
        """Why it is answered with False, or by another category than was asked for; empty when there is nothing to say."""
        return self._directory._asked.reason(*self._question)

    def to_dict(self) -> dict:
        """The outputs as plain Python."""
        return self._outputs

    def values(self) -> list[Value]:
        """All values of the outputs, one by one."""
        return [value for name, output in self._outputs.items() for value in _flatten(_wrap(self, name, output))]

    def __getattr__(self, name: str):
        if name.startswith("_"):
            raise AttributeError(name)
        if name in self._outputs:
            return _wrap(self, name, self._outputs[name])
        only = next(iter(self._outputs.items())) if len(self._outputs) == 1 else None
        if only and isinstance(only[1], dict):
            return getattr(Record(self, *only), name)
        raise AttributeError(f"{self._question[1]} has no output {name}" + _did_you_mean(name, self._outputs))

    def __dir__(self):
        fields = [name for output in self._outputs.values() if isinstance(output, dict) for name in output]
        return [*super().__dir__(), *self._outputs, *(fields if len(self._outputs) == 1 else [])]

    def __bool__(self) -> bool:
        """Whether it was answered."""
        return self._result is not False

    def __repr__(self) -> str:
        return f"<Answer {self._question[0]}.{self._question[1]} {self._result} {self._outputs}>"

    def _places(self) -> dict[str, tuple[Origin, ...]]:
        if self._origins is None:
            explained = self._directory._asked.explain(*self._question)
            self._origins = {
                field: tuple(Origin(**place) for place in places) for field, places in explained.items()
            }
        return self._origins


class Standard:
    """A standard of a configuration: its categories are items."""

    def __init__(self, configuration: Configuration, name: str):
        self._configuration = configuration
        self.name = name

    def categories(self) -> list[str]:
        """The categories that the standard's winning element holds."""
        return self._configuration._directory._asked.categories(self._configuration.name, self.name)

    def __iter__(self):
        return iter(self.categories())

    def __len__(self) -> int:
        return len(self.categories())

    def __getitem__(self, category: str) -> Answer:
        """The answer to the configuration's main query for the category.

        One that is not in the standard is answered by "default" where there is one, as a check gets it: ``reason`` says
        so. Raises KeyError when there is no answer.
        """
        return self._configuration._main(standard=self.name, category=category)

    def __getattr__(self, name: str):
        if name.startswith("_") or self._configuration._description["main_has_category"]:
            raise AttributeError(f"a standard of {self._configuration.name} has no {name}; take a category first")
        return getattr(self._configuration._main(standard=self.name), name)

    def __repr__(self) -> str:
        return f"<Standard {self._configuration.name}[{self.name!r}]>"


class Configuration:
    """One configuration of a directory: its standards are items, and its queries methods."""

    def __init__(self, directory: Directory, name: str):
        self._directory = directory
        self._description = _DESCRIPTIONS[name]
        self.name = name
        self.file: str = self._description["file"]
        self.__doc__ = self._description["meaning"]

    def standards(self) -> list[str]:
        """The names of the standards in its files, those of the Customer file first."""
        return self._directory._asked.standards(self.name)

    def operations(self) -> list[str]:
        """The names of its queries."""
        return [operation["name"] for operation in self._description["operations"]]

    def __iter__(self):
        return iter(self.standards())

    def __len__(self) -> int:
        return len(self.standards())

    def __contains__(self, standard: object) -> bool:
        return standard in self.standards()

    def __getitem__(self, standard: str) -> Standard:
        """A standard by its name; KeyError when the files have none of that name."""
        known = self.standards()
        if standard not in known:
            raise KeyError(f"{self.file} has no standard {standard}" + _did_you_mean(standard, known))
        return Standard(self, standard)

    def __getattr__(self, name: str):
        for operation in self._description["operations"]:
            if operation["name"] == name:
                return _method(self, operation)
        raise AttributeError(f"{self.name} has no operation {name}" + _did_you_mean(name, self.operations()))

    def __dir__(self):
        return [*super().__dir__(), *self.operations()]

    def __repr__(self) -> str:
        return f"<Configuration {self.name} of {self._directory.path}>"

    def _main(self, **arguments: str) -> Answer:
        if self._description["main"] is None:
            raise TypeError(f"{self.name} has no query for a standard; it has {', '.join(self.operations())}")
        if not self._description["main_has_category"]:
            arguments.pop("category", None)
        answer = Answer(self._directory, self.name, self._description["main"], arguments)
        if not answer:
            raise KeyError(f"{self.file}: {answer.reason}")
        return answer


class Directory:
    """A configuration directory: its configurations are attributes, and items by their names."""

    def __init__(self, path: str):
        self._asked = _melkcfg.Directory(path)
        self.path = path

    def configurations(self) -> list[str]:
        """The names of all configurations, whether the directory has files for them or not."""
        return list(_DESCRIPTIONS)

    def check(self, *configurations: str, level: str = "warning") -> list[Finding]:
        """What is wrong with the files, of these configurations or of all, at least of that level."""
        levels = ["error", "warning", "note"]
        if level not in levels:
            raise ValueError(f"level: expected one of {', '.join(levels)}, got {level}")
        findings = [Finding(**finding) for finding in self._asked.check(list(configurations))]
        return [finding for finding in findings if levels.index(finding.level) <= levels.index(level)]

    def dump(self, *configurations: str) -> list[dict]:
        """Every value of every answer, of these configurations or of all: rows as pandas.DataFrame takes them.

        The questions are those that the files make meaningful. A row has config, operation, arguments ("NAME=VALUE ..."),
        standard, category, field, value, si (the number in SI, None for what is none), unit (that of si), level
        ("Customer", "Default", "default", "single", or "builtin" for what no file says), and file, line and column of the
        text that decides it.
        """
        return self._asked.rows(list(configurations))

    def reload(self) -> None:
        """Has the files read anew by the next question; answers that were got stay as they are."""
        self._asked.reload()

    def __getitem__(self, name: str) -> Configuration:
        if name not in _DESCRIPTIONS:
            raise KeyError(f"unknown configuration {name}" + _did_you_mean(name, _DESCRIPTIONS))
        return Configuration(self, name)

    def __getattr__(self, name: str) -> Configuration:
        if name not in _DESCRIPTIONS:
            raise AttributeError(f"unknown configuration {name}" + _did_you_mean(name, _DESCRIPTIONS))
        return Configuration(self, name)

    def __iter__(self):
        return iter(_DESCRIPTIONS)

    def __dir__(self):
        return [*super().__dir__(), *_DESCRIPTIONS]

    def __repr__(self) -> str:
        return f"<Directory {self.path}>"


def _did_you_mean(name: str, known) -> str:
    nearest = _melkcfg.nearest(name, list(known))
    return f"; did you mean {' or '.join(nearest)}?" if nearest else ""


def _measured(raw, unit: str) -> tuple[float | None, str, float | None, str]:
    """Number and unit, as they are and in SI."""
    if isinstance(raw, bool) or not isinstance(raw, (str, int, float)):
        return None, "", None, ""
    if isinstance(raw, str):
        return _melkcfg.measure(raw) or (None, "", None, "")
    if unit == "mm":
        return float(raw), unit, raw / 1000, "m"
    return float(raw), unit, float(raw), unit


def _deciding(origins: Iterable[Origin]) -> Origin | None:
    """The text that a value is made of, or the rule that made it; else the first text that chooses it."""
    return next((origin for role in ("value", "choice") for origin in origins if origin.role == role), None)


def _wrap(answer: Answer, field: str, raw):
    if isinstance(raw, dict):
        return Record(answer, field, raw)
    if isinstance(raw, list):
        return [_wrap(answer, f"{field}[{position}]", element) for position, element in enumerate(raw)]
    return Value(answer, field, raw)


def _flatten(wrapped) -> list[Value]:
    if isinstance(wrapped, Record):
        return [value for name in wrapped for value in _flatten(getattr(wrapped, name))]
    if isinstance(wrapped, list):
        return [value for element in wrapped for value in _flatten(element)]
    return [wrapped]


def type_text(kind, unit: str = "") -> str:
    """A type of the descriptions in words: "text [mm]", "list of {name: text, a: number [mm]}"."""
    if isinstance(kind, dict) and "list" in kind:
        return f"list of {type_text(kind['list'])}"
    if isinstance(kind, dict):
        return "{" + ", ".join(f"{name}: {type_text(of, in_unit)}" for name, of, in_unit in kind["record"]) + "}"
    return f"{kind} [{unit}]" if unit else str(kind)


def operation_doc(operation: dict) -> str:
    """What help() says of an operation."""
    lines = ["Arguments:"] if operation["arguments"] else []
    for name, kind, unit in operation["arguments"]:
        lines.append(f"    {name}: {type_text(kind, unit)}" + (', or a text with its unit' if unit else ""))
    lines += ["Outputs (one that is not answered keeps what the caller gives, else nothing):"] if operation["outputs"] else []
    for name, kind, unit in operation["outputs"]:
        lines.append(f"    {name}: {type_text(kind, unit)}")
    if operation["result"] is not None:
        lines.append(f"Result: {type_text(operation['result'], operation['result_unit'])}")
    return "\n".join(lines)


def _method(configuration: Configuration, operation: dict):
    names = [name for name, _, _ in operation["arguments"]]

    def ask(*positional, **named) -> Answer:
        if len(positional) > len(names):
            raise TypeError(f"{operation['name']} takes {len(names)} arguments: {', '.join(names)}")
        arguments = dict(zip(names, positional))
        twice = arguments.keys() & named.keys()
        if twice:
            raise TypeError(f"the argument {twice.pop()} is given twice")
        return Answer(configuration._directory, configuration.name, operation["name"], {**arguments, **named})

    ask.__name__ = ask.__qualname__ = operation["name"]
    ask.__doc__ = operation_doc(operation)
    return ask
