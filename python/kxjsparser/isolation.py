"""How isolated hosts run their formulas."""

from __future__ import annotations

import ctypes
import enum
import os
from dataclasses import dataclass

from ._border import ensure, milliseconds, whole
from ._library import library


class _IsolationStruct(ctypes.Structure):
    _fields_ = [
        ("struct_size", ctypes.c_size_t),
        ("memory_limit", ctypes.c_uint64),
        ("grace_ms", ctypes.c_int64),
        ("worker", ctypes.c_char_p),
        ("worker_length", ctypes.c_size_t),
        ("required_sandbox", ctypes.c_uint32),
        ("reserved", ctypes.c_uint32),
        ("shared_memory", ctypes.c_uint64),
    ]


class Sandbox(enum.IntFlag):
    """The pieces of the sandbox that a worker process is in."""

    NO_NEW_PRIVILEGES = 1
    """No program that it could run would gain rights."""
    NO_CAPABILITIES = 2
    """It has no privileges."""
    LANDLOCK = 4
    """The kernel refuses files, and TCP where it knows how."""
    SYSTEM_CALL_FILTER = 8
    """About thirty system calls are left."""


@dataclass(frozen=True)
class Isolation:
    """How an isolated host runs its formulas; None stands for the library's default.

    ``memory_limit`` is the most private memory of the worker process in bytes, ``grace`` the
    seconds that a formula may run on after its time limit before the worker is ended, ``worker``
    the path of the program kxjs-worker, ``required_sandbox`` the pieces of the sandbox without
    which there is no host, ``shared_memory`` the bytes of :attr:`Host.shared_memory`.
    """

    memory_limit: int | None = None
    grace: float | None = None
    worker: str | os.PathLike[str] | None = None
    required_sandbox: Sandbox = Sandbox(0)
    shared_memory: int = 0

    def _structure(self) -> _IsolationStruct:
        structure = _IsolationStruct()
        ensure(library.kxjs_isolation_init(ctypes.byref(structure), ctypes.sizeof(structure)))
        if self.memory_limit is not None:
            structure.memory_limit = _bytes("memory_limit", self.memory_limit)
        if self.grace is not None:
            structure.grace_ms = milliseconds("grace", self.grace)
        if self.worker is not None:
            path = os.fsencode(self.worker)
            structure.worker, structure.worker_length = path, len(path)
        structure.required_sandbox |= whole(
            "required_sandbox", self.required_sandbox, 32, is_signed=False
        )
        structure.shared_memory = _bytes("shared_memory", self.shared_memory)
        return structure


def _bytes(name: str, value: int) -> int:
    return whole(name, value, 64, is_signed=False)
