"""Evaluates a formula for a CSV file with `kxjs batch`, with pandas, and with Dask on two workers.

    against_batch.py KXJS [RECORDS]

Prints the seconds from file to file, the start of the workers apart, and the processor time of all
processes in it. All must have given the same numbers.
"""

import pathlib
import resource
import subprocess
import sys
import tempfile
import time

import dask.dataframe
import distributed
import kxjsparser.dask
import numpy
import pandas

FORMULA = "IIF(QTY>99,PRICE*0.8,PRICE)*QTY*1.19"


def make(file, count):
    random = numpy.random.default_rng(1)
    pandas.DataFrame(
        {
            "ITEM": [f"item {number}" for number in range(count)],
            "PRICE": random.uniform(0, 100, count).round(2),
            "QTY": random.integers(1, 200, count),
        }
    ).to_csv(file, index=False)


def batch(kxjs, source, directory):
    result = directory / "batch.csv"
    subprocess.run([kxjs, "batch", FORMULA, "-i", source, "-o", result, "--as", "TOTAL"], check=True)
    return [result]


def one_process(source, directory):
    result = directory / "pandas.csv"
    table = pandas.read_csv(source)
    with kxjsparser.Host() as host:
        table.assign(TOTAL=host.column(FORMULA, table)).to_csv(result, index=False)
    return [result]


def on_workers(source, directory):
    table = dask.dataframe.read_csv(source, blocksize="4MB")
    table["TOTAL"] = kxjsparser.dask.column(FORMULA, table)
    return table.to_csv(str(directory / "dask-*.csv"), index=False)


def processor_time(client):
    """Of this process, of those that it has waited for, and of the workers."""
    children = resource.getrusage(resource.RUSAGE_CHILDREN)
    workers = client.run(time.process_time).values()
    return time.process_time() + children.ru_utime + children.ru_stime + sum(workers)


def measure(client, work, *arguments):
    """The seconds to the last file, the processor time, and the totals in the files."""
    start, processor = time.perf_counter(), processor_time(client)
    files = work(*arguments)
    times = time.perf_counter() - start, processor_time(client) - processor
    return *times, numpy.concatenate([pandas.read_csv(file).TOTAL for file in sorted(files)])


def main(kxjs, count=1000000):
    with tempfile.TemporaryDirectory() as name:
        directory = pathlib.Path(name)
        source = directory / "orders.csv"
        make(source, count)
        start = time.perf_counter()
        with distributed.LocalCluster(
            n_workers=2, threads_per_worker=1, dashboard_address=None
        ) as cluster, distributed.Client(cluster) as client:
            client.wait_for_workers(2)
            print(f"start of two workers: {time.perf_counter() - start:.1f} s")
            size = source.stat().st_size / 2**20
            print(f"\n| {count} records of CSV, {size:.0f} MiB | s | processor s |\n|---|--:|--:|")
            expected = None
            for title, work, *arguments in (
                ("`kxjs batch`", batch, kxjs, source, directory),
                ("pandas, one process", one_process, source, directory),
                ("Dask, two workers", on_workers, source, directory),
            ):
                seconds, processor, totals = measure(client, work, *arguments)
                if expected is not None and not numpy.array_equal(totals, expected):
                    raise SystemExit(f"{title} gives other results")
                expected = totals
                print(f"| {title} | {seconds:.1f} | {processor:.1f} |")


if __name__ == "__main__":
    main(sys.argv[1], *map(int, sys.argv[2:]))
