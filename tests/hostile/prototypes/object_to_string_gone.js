// next: fresh
// error: TypeError: Cannot convert object to primitive value
delete Object.prototype.toString; delete Object.prototype.valueOf; ({})
