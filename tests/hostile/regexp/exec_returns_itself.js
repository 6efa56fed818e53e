// limit: 100 ms
// error: time limit of 100 ms
{ let r = /a/g; r.exec = () => r; r[Symbol.replace]('aaa', 'b').length; }
