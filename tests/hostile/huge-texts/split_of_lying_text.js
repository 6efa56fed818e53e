// limit: 300 ms
// error: The script was ended: it ran longer than its time limit of 300 ms
{ let s = new String(''); s.toString = () => 'x'.repeat(2 ** 28); s.split(''); }
