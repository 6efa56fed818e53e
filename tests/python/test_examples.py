"""The example prints what it should, and makes a picture."""

import pathlib
import subprocess
import sys

SOURCE = pathlib.Path(__file__).parents[2]
DIRECTORY = SOURCE / "examples/python"


def test_price_orders(tmp_path):
    picture = tmp_path / "turnover.png"
    result = subprocess.run(
        [sys.executable, DIRECTORY / "price_orders.py", DIRECTORY / "orders.csv", picture],
        capture_output=True,
        text=True,
    )
    assert result.returncode == 0, result.stderr
    assert result.stdout == (SOURCE / "tests/examples/price_orders.txt").read_text()
    data = picture.read_bytes()
    assert data.startswith(b"\x89PNG")
    # A picture with nothing in it has some hundred bytes.
    assert len(data) > 5000
