// limit: 5000 ms
{ let f = () => 0; for (let i = 0; i < 100000; i++) f = f.bind(null); f(); }
