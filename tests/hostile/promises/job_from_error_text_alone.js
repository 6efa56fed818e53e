// limit: 100 ms
// error: x
throw { toString() { Promise.resolve().then(() => { for (;;); }); return 'x'; } }
