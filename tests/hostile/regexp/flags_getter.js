// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
{ let r = /a/; Object.defineProperty(r, 'flags', { get() { for (;;); } }); 'a'.matchAll(r); }
