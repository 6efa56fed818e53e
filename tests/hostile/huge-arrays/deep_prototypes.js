// isolated
// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
{ let p = {}; for (let i = 0; i < 10000; i++) p = Object.create(p); let a = new Array(2 ** 24); Object.setPrototypeOf(a, p); a.forEach = Array.prototype.forEach; a.forEach(Boolean); }
