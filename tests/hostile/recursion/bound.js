// limit: 5000 ms
// expect: 0
{ let f = () => 0; for (let i = 0; i < 100000; i++) f = f.bind(null); f(); }
