// expect: 5
// variable: A=5
// then: reset run
kept = typeof kept === 'undefined' ? new Proxy(A___A, {}) : kept; String(kept.ouraccessor)
