// variable: A=5
// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
A___A.toString = () => { for (;;); }; A___A
