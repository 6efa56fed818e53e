// next: fresh
// limit: 100 ms
// error: The script was ended: it ran longer than its time limit of 100 ms
String.prototype.toString = String.prototype.valueOf = () => { for (;;); }; new String('x')
