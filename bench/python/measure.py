"""Compares columns over NumPy with columns in C++, and measures single calls.

    measure.py CPP-PROGRAM [ROUNDS]

Both sides evaluate a formula in turn, over the same million records. The figures are processor time,
the least of the rounds: other programs only add to it.
"""

import itertools
import subprocess
import sys
import time

import kxjsparser
import numpy

COUNT = 1000000
FORMULAS = ["A*1.2+B/3", "IIF(A>B,A,B)", "A*A-B*B+A/7", "LEFT(NAME,6)+'-'+LEN(NAME)"]


def table():
    numbers = numpy.arange(COUNT)
    return {
        "A": numbers * 7919 % 2000003 / 1000 - 1000,
        "B": numbers * 104729 % 2000003 / 1000 - 1000,
        "NAME": numpy.array([f"  item {i} " for i in range(COUNT)], dtype=object),
    }


def in_python(column, records, dtype, out):
    start = time.process_time_ns()
    result = column(records, dtype=dtype, out=out)
    nanoseconds = (time.process_time_ns() - start) / COUNT
    # One after the other, as C++ adds.
    total = sum(map(len, result)) if dtype is str else list(itertools.accumulate(result))[-1]
    return nanoseconds, total


def in_cpp(program, formula):
    program.stdin.write(formula + "\n")
    program.stdin.flush()
    nanoseconds, total = map(float, program.stdout.readline().split())
    return nanoseconds, total


def compare_columns(program_file, rounds):
    host, records = kxjsparser.Host(), table()
    # As in C++, where the results have their place.
    out = numpy.zeros(COUNT)
    columns = {formula: host.compile_column(formula) for formula in FORMULAS}
    times = {formula: ([], []) for formula in FORMULAS}
    with subprocess.Popen(
        [program_file, str(COUNT)], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True
    ) as program:
        for formula in FORMULAS * rounds:
            dtype = str if "NAME" in formula else float
            python, python_total = in_python(
                columns[formula], records, dtype, out if dtype is float else None
            )
            cpp, cpp_total = in_cpp(program, formula)
            if python_total != cpp_total:
                raise SystemExit(f"{formula}: {python_total} in Python, {cpp_total} in C++")
            times[formula][0].append(python)
            times[formula][1].append(cpp)
        program.stdin.close()
    print("| formula, a million records | C++ | Python | ratio |\n|---|--:|--:|--:|")
    for formula, (python, cpp) in times.items():
        ratio = min(python) / min(cpp)
        print(f"| `{formula}` | {min(cpp):.2f} | {min(python):.2f} | {ratio:.2f} |")


def call_time(call, rounds, calls=20000):
    times = []
    for _ in range(rounds):
        start = time.process_time_ns()
        for _ in range(calls):
            call()
        times.append((time.process_time_ns() - start) / calls)
    return min(times)


def measure_calls(rounds):
    host = kxjsparser.Host()
    host["A"] = 1.5
    formula = host.compile("A*2.5")
    print("\n| single call | ns |\n|---|--:|")
    for name, call in {
        '`host["A"] = 2.5`': lambda: host.__setitem__("A", 2.5),
        "`formula()` of `A*2.5`": formula,
        '`convert("A<>1")`': lambda: kxjsparser.convert("A<>1"),
    }.items():
        print(f"| {name} | {call_time(call, rounds):.0f} |")


if __name__ == "__main__":
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 15
    compare_columns(sys.argv[1], rounds)
    measure_calls(rounds)
