import kxjsparser
import pytest


@pytest.fixture
def host():
    with kxjsparser.Host() as host:
        yield host
