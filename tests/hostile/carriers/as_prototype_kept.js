// expect: 5
// variable: A=5
// then: reset run
kept = typeof kept === 'undefined' ? Object.create(A___A) : kept; String(kept.ouraccessor)
