// variable: A=5
// expect: 5
// then: reset run
typeof kept === 'undefined' ? (kept = A___A, kept.ouraccessor) : String(kept.ouraccessor)
