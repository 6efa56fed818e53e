"""Runs tests with pytest, or says which modules are missing and ends with the status of a skip.

    run.py MODULE,... FILE...
"""

import importlib.util
import sys


def run(modules, files):
    missing = [name for name in modules.split(",") if name and not importlib.util.find_spec(name)]
    if missing:
        print(f"skipped: no {', '.join(missing)} for {sys.executable}: scripts/setup --with python")
        return 77
    import pytest

    return pytest.main(["-q", "-p", "no:cacheprovider", *files])


# The workers of a test import this file.
if __name__ == "__main__":
    sys.exit(run(sys.argv[1], sys.argv[2:]))
