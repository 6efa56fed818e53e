// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
{ let a = new Array(4e9); Object.setPrototypeOf(a, new String('')); [].concat(a); }
