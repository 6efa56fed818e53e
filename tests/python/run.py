"""Runs tests with pytest, or says which modules are missing and ends with the status of a skip.

    run.py MODULE,... FILE...
"""

import importlib.util
import sys

needed = [module for module in sys.argv[1].split(",") if module]
missing = [module for module in needed if importlib.util.find_spec(module) is None]
if missing:
    print(f"skipped: {sys.executable} has no {', '.join(missing)}: scripts/setup --with python")
    sys.exit(77)

import pytest

sys.exit(pytest.main(["-q", "-p", "no:cacheprovider", *sys.argv[2:]]))
