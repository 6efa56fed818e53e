"""The exceptions of the package."""

from __future__ import annotations

import enum
from typing import TYPE_CHECKING

if TYPE_CHECKING:
    from .translation import Finding


class Kind(enum.Enum):
    """Which step of a formula failed."""

    COMPILE = 0
    """The formula did not compile."""
    RUN = 1
    """It threw an exception while it ran."""
    LIMIT = 2
    """A limit ended it, or :meth:`Host.terminate`."""
    WORKER_ENDED = 3
    """The worker process of an isolated host ended with it."""


class KxJsError(Exception):
    """The base of the package's exceptions; also raised itself, for calls that are not allowed."""


class WrongThreadError(KxJsError):
    """A host was used on another thread than the one that made it, or in a forked process."""


class FormulaError(KxJsError):
    """A formula failed.

    ``str(error)`` is the error text, with the line, the exception and carets under the place. Lines
    and columns count from 1, in :attr:`source`; 0 stands for an unknown place.

    >>> try:
    ...     host.evaluate("1 +* 2")
    ... except FormulaError as error:
    ...     print(error.line, error.column, error.message)
    1 4 SyntaxError: Unexpected token '*'
    """

    def __init__(
        self,
        text: str,
        kind: Kind = Kind.RUN,
        line: int = 0,
        column: int = 0,
        end_column: int = 0,
        message: str = "",
        source: str = "",
        record: int | None = None,
    ) -> None:
        super().__init__(text, kind, line, column, end_column, message, source, record)
        self.text = text
        """The error text."""
        self.kind = kind
        self.line = line
        self.column = column
        self.end_column = end_column
        """The first column behind the mistake, on the same line."""
        self.message = message
        """The exception's own text."""
        self.source = source
        """The JavaScript that failed: a formula of the older language as it was converted."""
        self.record = record
        """The position of the record that failed, from 0; None outside of columns."""

    def __str__(self) -> str:
        return self.text if self.record is None else f"record {self.record}: {self.text}"


class TranslationError(KxJsError):
    """A formula has no translation; :attr:`findings` say why and where."""

    def __init__(self, findings: list[Finding]) -> None:
        super().__init__(findings)
        self.findings = findings

    def __str__(self) -> str:
        return "; ".join(f"{finding.position}: {finding.text}" for finding in self.findings)
