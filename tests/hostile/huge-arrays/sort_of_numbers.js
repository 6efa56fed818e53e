// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
{ let a = []; for (let i = 0; i < 1e5; i++) a.push(i * 7919 % 100003); a[0] = 0.5; for (;;) { a.sort(); a.reverse(); } }
