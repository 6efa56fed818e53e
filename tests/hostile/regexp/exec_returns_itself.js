// limit: 50 ms
// error: time limit of 50 ms
{ let r = /a/g; r.exec = () => r; r[Symbol.replace]('aaa', 'b').length; }
