"""Evaluates a formula on a scheduler and two worker processes, ends one of them midway, and compares
all results and failing records with those of one process.

    cluster.py [RECORDS [PARTITIONS]]
"""

import functools
import os
import signal
import sys
import time

import dask.dataframe
import distributed
import kxjsparser.dask
import pandas
import records


def one_process(count, partitions):
    """The digests of all partitions, each evaluated in this process."""
    with kxjsparser.Host() as host:
        for name, value in records.VARIABLES.items():
            host[name] = value
        column = host.compile_column(records.JAVASCRIPT, js=True)
        digests = []
        for number in range(partitions):
            frame = records.partition(number, count)
            failures = []
            values = column(frame, failures=failures)
            errors = pandas.Series(
                {frame.index[each.record]: each.text for each in failures}, dtype=object
            )
            digests.append(
                records.digest(pandas.DataFrame({"VALUE": values, "ERROR": errors}, frame.index))
            )
    return pandas.concat(digests, ignore_index=True)


def on_the_cluster(client, count, partitions):
    """The same on the cluster, and the worker that was ended when a third was done."""
    make = functools.partial(records.partition, count=count)
    frame = dask.dataframe.from_map(make, range(partitions), meta=records.partition(0, 0))
    results = kxjsparser.dask.results(
        records.JAVASCRIPT, frame, js=True, variables=records.VARIABLES
    )
    digests = client.compute(list(map(dask.delayed(records.digest), results.to_delayed())))
    victim = sorted(client.run(os.getpid).values())[0]
    for done, _ in enumerate(distributed.as_completed(digests), 1):
        if done == partitions // 3:
            os.kill(victim, signal.SIGKILL)
            break
    assert not all(digest.done() for digest in digests), "nothing was left to do"
    return pandas.concat(client.gather(digests), ignore_index=True), victim


def compare(total=10000000, partitions=100):
    count = total // partitions
    start = time.perf_counter()
    expected = one_process(count, partitions)
    alone = time.perf_counter() - start
    with distributed.LocalCluster(
        n_workers=2, threads_per_worker=1, dashboard_address=None, memory_limit=0
    ) as cluster, distributed.Client(cluster) as client:
        client.wait_for_workers(2)
        start = time.perf_counter()
        found, victim = on_the_cluster(client, count, partitions)
        together = time.perf_counter() - start
        assert victim not in client.run(os.getpid).values(), "the worker is still there"
    pandas.testing.assert_frame_equal(found, expected)
    failing = sum(map(len, expected.failing))
    assert failing > 0
    return (
        f"{count * partitions} records, {failing} failing: one process {alone:.1f} s, "
        f"two workers, one of them ended: {together:.1f} s"
    )


if __name__ == "__main__":
    print(compare(*map(int, sys.argv[1:])))
