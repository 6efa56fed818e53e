// expect: 1500000
new Array(1500000).fill(7).filter((v) => v === 7).length
