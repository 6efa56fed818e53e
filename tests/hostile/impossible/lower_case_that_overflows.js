// signal: SEGV
'\u0130'.repeat(2 ** 28).toLowerCase().length
