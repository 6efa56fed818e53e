// dies: Fatal javascript OOM in invalid table size
new Array(1e9).fill(0)
