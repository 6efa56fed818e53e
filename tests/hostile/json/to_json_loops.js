// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
JSON.stringify({ toJSON() { for (;;); } })
