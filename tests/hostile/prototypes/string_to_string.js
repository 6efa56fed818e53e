// next: fresh
// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
String.prototype.toString = String.prototype.valueOf = () => { for (;;); }; new String('x')
