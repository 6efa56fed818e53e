// dies: Fatal javascript OOM in invalid table size
Array.from({ length: 1e9 })
