// error: TypeError: Cannot read properties of null
// limit: 100 ms
// next: fresh
Error.prepareStackTrace = () => { for (;;); }; null.x
