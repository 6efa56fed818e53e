// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
class E extends Error { get name() { for (;;); } } throw new E('x')
