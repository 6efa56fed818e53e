// limit: 20 ms
// next: fresh
// error: The script was ended: it ran longer than its time limit of 20 ms
RegExp.prototype.exec = function () { for (;;); }; /a/.test('a')
