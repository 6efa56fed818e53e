// expect: 5
// variable: A=5
// then: reset run
kept = typeof kept === 'undefined' ? new WeakRef(A___A) : kept; String(kept.deref()?.ouraccessor)
