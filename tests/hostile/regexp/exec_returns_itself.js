// limit: 20 ms
// error: time limit of 20 ms
{ let r = /a/g; r.exec = () => r; r[Symbol.replace]('aaa', 'b').length; }
