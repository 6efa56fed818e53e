// dies: Fatal javascript OOM in invalid array length
'x'.repeat(2 ** 27).split(/x/).length
