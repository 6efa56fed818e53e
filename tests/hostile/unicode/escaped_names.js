// expect: 1
\u0061b = 1; \u{61}b
