// expect: 100
{ let n = 0; for (let i = 0; i < 100; i++) try { new ArrayBuffer(2 ** 40); } catch (e) { n++; } n; }
