// limit: 100 ms
// next: fresh
Error.prepareStackTrace = () => { for (;;); }; null.x
