// expect: string
({ [Symbol.toPrimitive](hint) { return hint; } })
