// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
new Float64Array(1000).sort(() => { for (;;); })
