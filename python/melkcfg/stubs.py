"""Writes the stub of the package: ``python3 -m melkcfg.stubs FILE``. Every configuration, with its queries and units."""

from __future__ import annotations

import inspect
import sys

import melkcfg
from melkcfg import _DESCRIPTIONS, operation_doc, type_text

_PYTHON = {"text": "str", "flag": "bool", "number": "float", "integer": "int", "point": "tuple[float, float, float]"}

_HEAD = '''# Written by melkcfg/stubs.py.
import os
from dataclasses import dataclass
from typing import Any, Callable, Iterator

class FileError(RuntimeError): ...

def open(directory: str | os.PathLike[str]) -> Directory: ...
def operation_doc(operation: dict[str, Any]) -> str: ...
def type_text(kind: Any, unit: str = ...) -> str: ...

_DESCRIPTIONS: dict[str, dict[str, Any]]

@dataclass(frozen=True)
class Origin:
    role: str
    how: str
    why: str
    file: str
    line: int
    column: int
    path: str
    attribute: str
    text: str

@dataclass(frozen=True)
class Finding:
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

class Value:
    field: str
    raw: Any
    number: float | None
    unit: str
    si: float | None
    si_unit: str
    @property
    def origins(self) -> tuple[Origin, ...]: ...
    @property
    def origin(self) -> Origin | None: ...
    def __float__(self) -> float: ...
    def __bool__(self) -> bool: ...

class Record:
    def __getattr__(self, name: str) -> Any: ...
    def __iter__(self) -> Iterator[str]: ...
    def to_dict(self) -> dict[str, Any]: ...

class Answer:
    arguments: dict[str, Any]
    @property
    def result(self) -> Any: ...
    @property
    def reason(self) -> str: ...
    def to_dict(self) -> dict[str, Any]: ...
    def values(self) -> list[Value]: ...
    def __bool__(self) -> bool: ...
    def __getattr__(self, name: str) -> Any: ...

class Standard:
    name: str
    def categories(self) -> list[str]: ...
    def __iter__(self) -> Iterator[str]: ...
    def __len__(self) -> int: ...
    def __getitem__(self, category: str) -> Answer: ...
    def __getattr__(self, name: str) -> Any: ...

class Configuration:
    name: str
    file: str
    def standards(self) -> list[str]: ...
    def operations(self) -> list[str]: ...
    def __iter__(self) -> Iterator[str]: ...
    def __len__(self) -> int: ...
    def __contains__(self, standard: object) -> bool: ...
    def __getitem__(self, standard: str) -> Standard: ...
'''


class _Writer:
    def __init__(self) -> None:
        self.text = _HEAD

    def record(self, name: str, kind: dict) -> str:
        """The class of a record; its fields are values with their units."""
        fields = [
            f"    {field}: {self.wrapped(f'{name}_{field}', of, unit)}" for field, of, unit in kind["record"]
        ]
        self.text += f"\nclass {name}(Record):\n" + ("\n".join(fields) or "    ...") + "\n"
        return name

    def wrapped(self, name: str, kind, unit: str) -> str:
        if isinstance(kind, dict) and "list" in kind:
            return f"list[{self.wrapped(name, kind['list'], '')}]"
        if isinstance(kind, dict):
            return self.record(name, kind)
        if kind == "attributes":
            return "list[Record]"
        return "Value" + (f"  # {type_text(kind, unit)}" if unit and "list" not in name else "")

    def answer(self, name: str, operation: dict) -> None:
        """The class of an answer: its outputs, and the fields of an only record."""
        only = operation["outputs"][0] if len(operation["outputs"]) == 1 else None
        outputs = list(operation["outputs"])
        if only and isinstance(only[1], dict) and "record" in only[1]:
            outputs += only[1]["record"]
        lines = [f"    {output}: {self.wrapped(f'{name}_{output}', kind, unit)}" for output, kind, unit in outputs]
        self.text += f"\nclass {name}(Answer):\n" + ("\n".join(lines) or "    ...") + "\n"

    def method(self, configuration: str, operation: dict) -> str:
        arguments = "".join(
            f", {name}: {_PYTHON[kind]}{' | str' if unit and kind == 'number' else ''} = ..."
            for name, kind, unit in operation["arguments"]
        )
        outputs = "".join(f", {name}: Any = ..." for name, _, _ in operation["outputs"])
        doc = operation_doc(operation).replace("\n", "\n        ")
        return (
            f"    def {operation['name']}(self{arguments}{', *' if outputs else ''}{outputs})"
            f" -> {configuration}_{operation['name']}:\n        \"\"\"{doc}\n        \"\"\"\n"
        )

    def configuration(self, description: dict) -> None:
        name = description["name"]
        for operation in description["operations"]:
            self.answer(f"{name}_{operation['name']}", operation)
        main = f"{name}_{description['main']}" if description["main"] else "Answer"
        base = f"Standard, {main}" if description["main"] and not description["main_has_category"] else "Standard"
        self.text += f"\nclass {name}_Standard({base}):  # type: ignore[misc]\n"
        self.text += f"    def __getitem__(self, category: str) -> {main}: ...\n"
        self.text += f"\nclass {name}_Configuration(Configuration):\n    \"\"\"{description['meaning']}\"\"\"\n"
        self.text += f"    def __getitem__(self, standard: str) -> {name}_Standard: ...\n"
        for operation in description["operations"]:
            self.text += self.method(name, operation)

    def directory(self) -> None:
        self.text += "\nclass Directory:\n    path: str\n"
        for name in _DESCRIPTIONS:
            self.text += f"    @property\n    def {name}(self) -> {name}_Configuration: ...\n"
        for name in ("configurations", "check", "dump", "reload", "__getitem__", "__iter__"):
            signature = str(inspect.signature(getattr(melkcfg.Directory, name))).replace("'", "")
            if name == "check":
                signature = "(self, *configurations: str, level: str = ...) -> list[Finding]"
            if name == "dump":
                signature = "(self, *configurations: str) -> list[dict[str, Any]]"
            if name == "__iter__":
                signature = "(self) -> Iterator[str]"
            self.text += f"    def {name}{signature}: ...\n"


def main() -> None:
    writer = _Writer()
    for description in _DESCRIPTIONS.values():
        writer.configuration(description)
    writer.directory()
    with open(sys.argv[1], "w", encoding="utf-8") as file:
        file.write(writer.text)


if __name__ == "__main__":
    main()
