// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
{ class T extends Uint8Array { get length() { return 1e15; } } Array.prototype.forEach.call(new T(1), Boolean); }
