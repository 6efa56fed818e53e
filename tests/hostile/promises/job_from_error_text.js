// limit: 100 ms
// error: x
// then: run
throw { toString() { Promise.resolve().then(() => { for (;;); }); return 'x'; } }
