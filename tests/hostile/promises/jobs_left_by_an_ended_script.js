// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
// variable: A=5
Promise.resolve().then(() => { A___A = 1; throw 1; }); for (;;);
