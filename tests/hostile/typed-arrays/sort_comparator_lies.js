// expect: 100000
new Float64Array(100000).map(Math.random).sort(() => Math.random() - 0.5).length
