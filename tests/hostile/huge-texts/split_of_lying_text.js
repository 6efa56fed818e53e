// dies: invalid size error
// error: The script was ended: its worker process ended
{ let s = new String(''); s.toString = () => 'x'.repeat(2 ** 28); s.split(''); }
