// expect: 100000
Array.from({ length: 1e5 }, (_, i) => i).sort(() => Math.random() - 0.5).length
