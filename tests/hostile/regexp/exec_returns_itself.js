// limit: 100 ms
{ let r = /a/g; r.exec = () => r; r[Symbol.replace]('aaa', 'b').length; }
